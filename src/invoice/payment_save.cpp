#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "database/database.h"
#include "invoice/allocation_block.h"
#include "invoice/payment_record.h"
#include "store/code_lookups.h"
#include "store/ledger.h"
#include "store/mandate_note.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What to write where the ledger takes null but no empty text. */
NewValue textOrNull(const QString &text)
{
    return text.isEmpty() ? NewValue() : NewValue(text);
}

NewValue dateOrNull(const QString &boxText)
{
    return boxText == EmptyDateText ? NewValue() : textOrNull(boxText);
}

void fillPayment(RecordSet &payments, PaymentKey key, const PaymentRecord &record,
                 const AmountChain &amounts)
{
    payments.set(u"AziProf"_s, KindCode(key.kind));
    payments.set(u"Npag"_s, key.number);
    payments.set(u"Creditore"_s, textOrNull(record.creditore));
    payments.set(u"NFat"_s, record.nFat);
    payments.set(u"Del"_s, dateOrNull(record.del));
    payments.set(u"Memo"_s, record.memo);
    payments.set(u"Descrizione"_s, record.descrizione);
    for (int position = 0; position < amounts.fields().size(); ++position) {
        const QString &column = amounts.fields().at(position).column;
        if (!column.isEmpty())
            payments.set(column, amounts.storedValue(position));
    }
}

void writePayment(RecordSet &payments, PaymentKey key, const PaymentRecord &record,
                  const AmountChain &amounts)
{
    bool found = false;
    if (!payments.isEmpty()) {
        payments.findFirst(u"Npag ="_s + QString::number(key.number));
        found = !payments.noMatch();
    }
    if (found)
        payments.edit();
    else
        payments.addNew();
    fillPayment(payments, key, record, amounts);
    payments.update();
}

void writeAllocation(RecordSet &allocations, qint32 paymentNumber, const TextTable &grid, int row)
{
    const QString code = grid.text(row, AllocationColumn::Cod);
    if (FindAllocation(allocations, code)) {
        allocations.edit();
    } else {
        const QString description = grid.text(row, AllocationColumn::Descrizione);
        allocations.addNew();
        allocations.set(u"RelNpag"_s, paymentNumber);
        allocations.set(u"Cod"_s, textOrNull(code));
        allocations.set(u"Descrizione"_s,
                        textOrNull(LeftCharacters(description, LedgerSize::Descrizione)));
    }
    allocations.set(u"Importo"_s, ImportoDaTesto(grid.text(row, AllocationColumn::Importo)));
    allocations.update();
}

void writeLedger(const ProgramValues &values, PaymentKey key, const PaymentRecord &record,
                 const AmountChain &amounts, const TextTable &grid)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture WHERE AziProf = '"_s +
                                              KindCode(key.kind) + u"' "_s);
    RecordSet allocations = OpenAllocations(ledger, key.number);
    writePayment(payments, key, record, amounts);
    for (int row = 1; row < grid.rows(); ++row)
        writeAllocation(allocations, key.number, grid, row);
}

} // namespace

void SavePagamento(ProgramValues &values, PaymentKey key, const PaymentRecord &record,
                   const AmountChain &amounts, const TextTable &grid)
{
    WithDetail(u"Pagamento"_s, QString::number(key.number), [&] {
        writeLedger(values, key, record, amounts, grid);

        constexpr qint16 noFunction = 0;
        values.MandateText = ComposeMandateNote(record.mandato, record.mandatoDell);
        ScriviVoceStringa(values, VoceMandato(values, key.number), noFunction,
                          MandateDescription(key.number, record.creditore), values.MandateText);
    });
}

} // namespace saldoro
