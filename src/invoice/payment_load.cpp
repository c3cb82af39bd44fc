#include "invoice/payment_load.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "database/database.h"
#include "invoice/allocation_table.h"
#include "store/archive_paths.h"
#include "store/contract_sheet.h"
#include "store/mandate_note.h"
#include "store/payment_numbers.h"

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

void readAmounts(const RecordSet &payments, PaymentRecord &record)
{
    const QList<AmountField> &fields = AmountChainOf(record.kind).fields;
    QMap<Amount, Currency> stored;
    for (const AmountField &field : fields) {
        if (field.column.isEmpty())
            continue;
        if (const auto value = payments.field(field.column).currencyOrNone())
            stored[field.amount] = *value;
    }
    record.amounts.showStored(fields, stored);
}

void readPayment(const Database &ledger, PaymentRecord &record)
{
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture "_s);
    if (FindPayment(payments, record.number)) {
        record.storedKind = payments.field(u"AziProf"_s).textOrEmpty();
        readTexts(payments, record);
        readAmounts(payments, record);
    } else if (!payments.isEmpty()) {
        payments.moveLast();
        record.memo = payments.field(u"Memo"_s).textOrEmpty();
    }
}

/** The current allocation's amount; nothing for a null. */
QString amountText(const RecordSet &allocations)
{
    const auto code = [&] { return allocations.field(u"Cod"_s).textOrEmpty(); };
    return WithDetail(Detail::Item, code, [&] {
        const std::optional<Currency> amount = allocations.field(u"Importo"_s).currencyOrNone();
        return amount ? FormatImporto(*amount) : QString();
    });
}

/** The amount of the last row added becomes current. */
void readAllocations(const Database &ledger, qint32 paymentNumber, TextTable &grid)
{
    RecordSet allocations = ledger.openRecordSet(u"SELECT * FROM Spese "_s);
    const TextTable::BulkChange change(grid);
    const QString criterion = AllocationsCriterion(paymentNumber);
    for (allocations.findFirst(criterion); !allocations.noMatch();
         allocations.findNext(criterion)) {
        const int row = grid.rows();
        grid.setRows(row + 1);
        grid.setCurrentCell(row, AllocationColumn::Importo);
        grid.setText(row, AllocationColumn::Cod, allocations.field(u"Cod"_s).textOrEmpty());
        grid.setText(row, AllocationColumn::Descrizione,
                     allocations.field(u"Descrizione"_s).textOrEmpty());
        grid.setText(row, AllocationColumn::Importo, amountText(allocations));
    }
}

void readMandate(const ProgramValues &values, PaymentRecord &record)
{
    const QString item = VoceMandato(values, record.number);
    if (!EsisteVoceLike(values, item))
        return;
    const MandateNote note = ParseMandateNote(StringaVoceLike(values, item), record.kind);
    record.mandato = note.mandato;
    record.mandatoDell = note.mandatoDell.isEmpty() ? EmptyDateText.toString() : note.mandatoDell;
}

} // namespace

void LoadPagamento(const ProgramValues &values, PaymentRecord &record, TextTable &grid)
{
    WithDetail(Detail::Payment, QString::number(record.number), [&] {
        {
            const Database ledger = Database::open(LedgerPath(values));
            readPayment(ledger, record);
            readAllocations(ledger, record.number, grid);
        }
        readMandate(values, record);
    });
}

} // namespace saldoro
