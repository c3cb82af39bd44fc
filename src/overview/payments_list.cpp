#include "overview/payments_list.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/payment_amounts.h"
#include "store/shown_order.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void writeCells(TextTable &payments, int row, const RecordSet &payment)
{
    payments.setText(row, PaymentColumn::Nr, QString::number(payment.field(u"Npag"_s).integer()));
    payments.setText(row, PaymentColumn::Creditore, payment.field(u"Creditore"_s).text());
    payments.setText(row, PaymentColumn::Data, FormatData(payment.field(u"Del"_s).date()));
    payments.setText(row, PaymentColumn::Importo, FormatImporto(GrossAmount(payment)));
    payments.setText(row, PaymentColumn::Euro, u"€"_s);
}

void addDetails(SaldoroError &error, int row, const RecordSet &payment)
{
    const QString number = payment.field(u"Npag"_s).textOrEmpty();
    if (!number.isEmpty()) {
        error.addDetail(Detail::Payment, number);
        return;
    }
    error.addDetail(Detail::Payment, u"senza numero"_s);
    error.addDetail(Detail::Row, QString::number(row));
    error.addDetail(Detail::Creditor, payment.field(u"Creditore"_s).textOrEmpty());
}

} // namespace

void PreparePaymentsList(TextTable &payments)
{
    payments.setHeader({u"Nr"_s, u"Creditore"_s, u"Data"_s, u"importo"_s, u"€"_s});
}

RecordSet OpenPaymentsList(const ProgramValues &values)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture"_s + PaymentsOrder);
    ledger.openRecordSet(u"SELECT * FROM Spese"_s); // the overview reads it later
    return payments;
}

void FillPaymentsList(TextTable &list, RecordSet payments)
{
    const TextTable::BulkChange change(list);
    for (; !payments.eof(); payments.moveNext()) {
        const int row = list.rows();
        list.setRows(row + 1);
        list.setRow(row);
        try {
            writeCells(list, row, payments);
        } catch (SaldoroError &error) {
            addDetails(error, row, payments);
            throw;
        }
    }
}

} // namespace saldoro
