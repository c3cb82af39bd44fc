#pragma once

#include "invoice/allocation_table.h"
#include "invoice/payment_load.h"
#include "invoice/payment_save.h"

namespace saldoro {

/** A payment as an invoice form holds it, without widgets. */
struct HeldForm
{
    explicit HeldForm(CreditorKind kind, qint32 number = 1)
        : record{kind, number}
    {
        PrepareAllocations(grid);
    }

    void load(const ProgramValues &values) { LoadPagamento(values, record, grid); }
    void save(ProgramValues &values) const { SavePagamento(values, record, grid); }

    const AmountChain &chain() const { return AmountChainOf(record.kind); }

    /** What the amount fields show, joined by "|". */
    QString amountTexts() const
    {
        QStringList shown;
        for (const AmountField &field : chain().fields)
            shown += record.amounts.text(field.amount);
        return shown.join(u'|');
    }

    PaymentRecord record;
    TextTable grid;
};

} // namespace saldoro
