#include "invoice/payment_load.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "invoice/allocation_block.h"
#include "invoice/mandate_note.h"
#include "platform/database.h"
#include "store/code_lookups.h"

namespace saldoro {

namespace {

/** The current record's texts; what is no date leaves the date box empty. */
void readTexts(const RecordSet &payments, PaymentRecord &record)
{
    record.creditore = payments.field(QStringLiteral("Creditore")).textOrEmpty();
    record.nFat = payments.field(QStringLiteral("NFat")).textOrEmpty();
    const QDate day = payments.field(QStringLiteral("Del")).dateOrNone();
    record.del = day.isValid() ? FormatData(day) : EmptyDateText.toString();
    record.descrizione = payments.field(QStringLiteral("Descrizione")).textOrEmpty();
    record.memo = payments.field(QStringLiteral("Memo")).textOrEmpty();
}

void readAmounts(const RecordSet &payments, AmountChain &amounts)
{
    QList<Currency> stored(amounts.fieldCount());
    for (const StoredAmount &item : amounts.storedAmounts()) {
        const std::optional<Currency> value = payments.field(item.column).currencyOrNone();
        amounts.showStored(item.field, value);
        stored[item.field] = value.value_or(Currency());
    }
    amounts.fillDerived(stored);
}

void readPayment(const Database &ledger, qint32 paymentNumber, PaymentRecord &record,
                 AmountChain &amounts)
{
    RecordSet payments =
        ledger.openRecordSet(QStringLiteral("SELECT *") + QStringLiteral(" FROM Fatture "));
    if (payments.isEmpty())
        return;
    payments.findFirst(QStringLiteral("Npag =") + QString::number(paymentNumber));
    if (payments.noMatch()) {
        payments.moveLast();
        record.memo = payments.field(QStringLiteral("Memo")).textOrEmpty();
        return;
    }
    readTexts(payments, record);
    readAmounts(payments, amounts);
}

/** The current allocation's amount; nothing for a null. */
QString amountText(const RecordSet &allocations)
{
    try {
        const std::optional<Currency> amount =
            allocations.field(QStringLiteral("Importo")).currencyOrNone();
        return amount ? FormatImporto(*amount) : QString();
    } catch (SaldoroError &error) {
        error.addDetail(QStringLiteral("Voce"),
                        allocations.field(QStringLiteral("Cod")).textOrEmpty());
        throw;
    }
}

/** The last row added becomes the current one. */
void readAllocations(const Database &ledger, qint32 paymentNumber, TextTable &grid)
{
    RecordSet allocations =
        ledger.openRecordSet(QStringLiteral("SELECT *") + QStringLiteral(" FROM Spese "));
    if (allocations.isEmpty())
        return;
    const TextTable::BulkChange change(grid);
    const QString criterion = QStringLiteral("RelNpag =") + QString::number(paymentNumber);
    allocations.findFirst(criterion);
    while (!allocations.noMatch()) {
        const int row = grid.rows();
        grid.setRows(row + 1);
        grid.setRow(row);
        grid.setText(row, AllocationBlock::CodColumn,
                     allocations.field(QStringLiteral("Cod")).textOrEmpty());
        grid.setText(row, AllocationBlock::DescrizioneColumn,
                     allocations.field(QStringLiteral("Descrizione")).textOrEmpty());
        grid.setText(row, AllocationBlock::ImportoColumn, amountText(allocations));
        allocations.findNext(criterion);
    }
}

void readMandate(const ProgramValues &values, qint32 paymentNumber, CreditorKind kind,
                 PaymentRecord &record)
{
    const QString item = VoceMandato(values, paymentNumber);
    if (!EsisteVoceLike(values, item))
        return;
    const MandateNote note = ParseMandateNote(StringaVoceLike(values, item), kind);
    record.mandato = note.mandato;
    record.mandatoDell = note.mandatoDell.isEmpty() ? EmptyDateText.toString() : note.mandatoDell;
}

} // namespace

void LoadPagamento(const ProgramValues &values, qint32 paymentNumber, PaymentRecord &record,
                   AmountChain &amounts, TextTable &grid)
{
    try {
        {
            const Database ledger = Database::open(LedgerPath(values));
            readPayment(ledger, paymentNumber, record, amounts);
            readAllocations(ledger, paymentNumber, grid);
        }
        readMandate(values, paymentNumber, amounts.kind(), record);
    } catch (SaldoroError &error) {
        error.addDetail(QStringLiteral("Pagamento"), QString::number(paymentNumber));
        throw;
    }
}

} // namespace saldoro
