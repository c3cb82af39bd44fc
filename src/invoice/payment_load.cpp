#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "database/database.h"
#include "invoice/allocation_block.h"
#include "invoice/payment_record.h"
#include "store/code_lookups.h"
#include "store/mandate_note.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The current record's texts; what is no date leaves the date box empty. */
void readTexts(const RecordSet &payments, PaymentRecord &record)
{
    record.creditore = payments.field(u"Creditore"_s).textOrEmpty();
    record.nFat = payments.field(u"NFat"_s).textOrEmpty();
    const QDate day = payments.field(u"Del"_s).dateOrNone();
    record.del = day.isValid() ? FormatData(day) : EmptyDateText.toString();
    record.descrizione = payments.field(u"Descrizione"_s).textOrEmpty();
    record.memo = payments.field(u"Memo"_s).textOrEmpty();
}

void readAmounts(const RecordSet &payments, AmountChain &amounts)
{
    QList<std::optional<Currency>> stored;
    for (const AmountField &field : amounts.fields())
        stored.append(field.column.isEmpty() ? std::nullopt
                                             : payments.field(field.column).currencyOrNone());
    amounts.showStored(stored);
}

void readPayment(const Database &ledger, qint32 paymentNumber, PaymentRecord &record,
                 AmountChain &amounts)
{
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture "_s);
    if (payments.isEmpty())
        return;
    payments.findFirst(u"Npag ="_s + QString::number(paymentNumber));
    if (payments.noMatch()) {
        payments.moveLast();
        record.memo = payments.field(u"Memo"_s).textOrEmpty();
        return;
    }
    readTexts(payments, record);
    readAmounts(payments, amounts);
}

/** The current allocation's amount; nothing for a null. */
QString amountText(const RecordSet &allocations)
{
    const auto code = [&] { return allocations.field(u"Cod"_s).textOrEmpty(); };
    return WithDetail(u"Voce"_s, code, [&] {
        const std::optional<Currency> amount = allocations.field(u"Importo"_s).currencyOrNone();
        return amount ? FormatImporto(*amount) : QString();
    });
}

/** The last row added becomes the current one. */
void readAllocations(const Database &ledger, qint32 paymentNumber, TextTable &grid)
{
    RecordSet allocations = ledger.openRecordSet(u"SELECT * FROM Spese "_s);
    if (allocations.isEmpty())
        return;
    const TextTable::BulkChange change(grid);
    const QString criterion = u"RelNpag ="_s + QString::number(paymentNumber);
    allocations.findFirst(criterion);
    while (!allocations.noMatch()) {
        const int row = grid.rows();
        grid.setRows(row + 1);
        grid.setRow(row);
        grid.setText(row, AllocationColumn::Cod, allocations.field(u"Cod"_s).textOrEmpty());
        grid.setText(row, AllocationColumn::Descrizione,
                     allocations.field(u"Descrizione"_s).textOrEmpty());
        grid.setText(row, AllocationColumn::Importo, amountText(allocations));
        allocations.findNext(criterion);
    }
}

void readLedger(const ProgramValues &values, qint32 paymentNumber, PaymentRecord &record,
                AmountChain &amounts, TextTable &grid)
{
    const Database ledger = Database::open(LedgerPath(values));
    readPayment(ledger, paymentNumber, record, amounts);
    readAllocations(ledger, paymentNumber, grid);
}

void readMandate(const ProgramValues &values, PaymentKey key, PaymentRecord &record)
{
    const QString item = VoceMandato(values, key.number);
    if (!EsisteVoceLike(values, item))
        return;
    const MandateNote note = ParseMandateNote(StringaVoceLike(values, item), key.kind);
    record.mandato = note.mandato;
    record.mandatoDell = note.mandatoDell.isEmpty() ? EmptyDateText.toString() : note.mandatoDell;
}

} // namespace

void LoadPagamento(const ProgramValues &values, PaymentKey key, PaymentRecord &record,
                   AmountChain &amounts, TextTable &grid)
{
    WithDetail(u"Pagamento"_s, QString::number(key.number), [&] {
        readLedger(values, key.number, record, amounts, grid);
        readMandate(values, key, record);
    });
}

} // namespace saldoro
