#pragma once

#include "invoice/allocation_block.h"
#include "invoice/company_amounts.h"
#include "invoice/payment_record.h"
#include "invoice/professional_amounts.h"

#include <QMap>

#include <memory>

namespace saldoro {

/** The texts of amount fields without boxes. */
class HeldTexts : public AmountTexts
{
public:
    QString text(int position) const override { return m_texts.value(position); }
    void setText(int position, const QString &text) override { m_texts[position] = text; }

private:
    QMap<int, QString> m_texts;
};

/** A payment as an invoice form holds it, without widgets. */
struct HeldForm
{
    explicit HeldForm(CreditorKind kindOfCreditor)
        : kind(kindOfCreditor)
    {
        if (kind == CreditorKind::Company)
            amounts = std::make_unique<CompanyAmounts>(texts);
        else
            amounts = std::make_unique<ProfessionalAmounts>(texts);
        block.prepareGrid();
    }

    void load(const ProgramValues &values, qint32 number)
    {
        LoadPagamento(values, {kind, number}, record, *amounts, grid);
    }
    void save(ProgramValues &values, qint32 number) const
    {
        SavePagamento(values, {kind, number}, record, *amounts, grid);
    }

    /** What the amount fields show, joined by "|". */
    QString amountTexts() const
    {
        QStringList shown;
        for (int position = 0; position < amounts->fields().size(); ++position)
            shown += texts.text(position);
        return shown.join(u'|');
    }

    CreditorKind kind;
    PaymentRecord record;
    HeldTexts texts;
    std::unique_ptr<AmountChain> amounts;
    TextTable overview{5};
    TextTable grid;
    AllocationBlock block{overview, grid};
};

} // namespace saldoro
