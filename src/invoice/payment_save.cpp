#include "invoice/payment_save.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "database/database.h"
#include "invoice/allocation_table.h"
#include "store/allocation_records.h"
#include "store/archive_paths.h"
#include "store/contract_sheet.h"
#include "store/mandate_note.h"
#include "store/payment_numbers.h"
#include "store/table_rows.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void fillPayment(RecordSet &payments, const PaymentRecord &record)
{
    payments.set(u"AziProf"_s, KindCode(record.kind));
    payments.set(u"Npag"_s, record.number);
    payments.set(u"Creditore"_s, TextOrNull(record.creditore));
    payments.set(u"NFat"_s, record.nFat);
    // As a day: a column of texts would keep dd/MM/yyyy, which no list could read again. Not by
    // DayInBox(), for which a stored year below 100 is no date.
    const QDate day = QDate::fromString(record.del, u"dd/MM/yyyy"_s);
    payments.set(u"Del"_s, record.del == EmptyDateText ? NewValue() : day);
    payments.set(u"Memo"_s, record.memo);
    payments.set(u"Descrizione"_s, record.descrizione);
    for (const AmountField &field : AmountChainOf(record.kind).fields) {
        if (!field.column.isEmpty())
            payments.set(field.column, record.amounts.storedValue(field));
    }
}

void writePayment(const Database &ledger, const PaymentRecord &record)
{
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture WHERE AziProf = '"_s +
                                              KindCode(record.kind) + u"' "_s);
    if (FindPayment(payments, record.number))
        payments.edit();
    else
        payments.addNew();
    fillPayment(payments, record);
    payments.update();
}

} // namespace

void SavePagamento(ProgramValues &values, const PaymentRecord &record, const TextTable &grid)
{
    WithDetail(Detail::Payment, QString::number(record.number), [&] {
        {
            const Database ledger = Database::open(LedgerPath(values));
            RecordSet allocations = OpenAllocations(ledger, record.number);
            writePayment(ledger, record);
            for (int row = 1; row < grid.rows(); ++row)
                SaveAllocation(allocations, record.number, grid.text(row, AllocationColumn::Cod),
                               grid.text(row, AllocationColumn::Descrizione),
                               ImportoDaTesto(grid.text(row, AllocationColumn::Importo)));
        }
        values.MandateText = ComposeMandateNote(record.mandato, record.mandatoDell);
        ScriviVoceStringa(values, VoceMandato(values, record.number), ItemTag::None,
                          MandateDescription(record.number, record.creditore), values.MandateText);
    });
}

} // namespace saldoro
