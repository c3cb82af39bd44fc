#include "overview/payments_list.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "database/database.h"
#include "store/ledger_payment.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

void writeCells(TextTable &payments, int row, const LedgerPayment &payment)
{
    payments.setText(row, PaymentColumn::Nr,
                     QString::number(payment.field(PaymentField::Npag).integer()));
    payments.setText(row, PaymentColumn::Creditore, payment.field(PaymentField::Creditore).text());
    payments.setText(row, PaymentColumn::Data, FormatData(payment.field(PaymentField::Del).date()));
    payments.setText(row, PaymentColumn::Importo, FormatImporto(payment.grossAmount()));
    payments.setText(row, PaymentColumn::Euro, u"€"_s);
}

void addPlace(SaldoroError &error, int row, const LedgerPayment &payment)
{
    const QString number = payment.field(PaymentField::Npag).textOrEmpty();
    if (!number.isEmpty()) {
        error.addDetail(u"Pagamento"_s, number);
        return;
    }
    error.addDetail(u"Pagamento"_s, u"senza numero"_s);
    error.addDetail(u"Riga"_s, QString::number(row));
    error.addDetail(u"Creditore"_s, payment.field(PaymentField::Creditore).textOrEmpty());
}

void appendRow(TextTable &payments, const LedgerPayment &payment)
{
    const int row = payments.rows();
    payments.setRows(row + 1);
    payments.setRow(row);
    try {
        writeCells(payments, row, payment);
    } catch (SaldoroError &error) {
        addPlace(error, row, payment);
        throw;
    }
}

} // namespace

void PreparePaymentsList(TextTable &payments)
{
    payments.setHeader({u"Nr"_s, u"Creditore"_s, u"Data"_s, u"importo"_s, u"€"_s});
}

void FillPaymentsList(TextTable &payments, const ProgramValues &values)
{
    const Database ledger = Database::open(LedgerPath(values));
    RecordSet fatture = ledger.openRecordSet(u"SELECT * FROM Fatture ORDER BY Npag "_s);
    const RecordSet spese = ledger.openRecordSet(u"SELECT * FROM Spese"_s); // has to be there
    const TextTable::BulkChange change(payments);
    const LedgerPayment payment(fatture);
    for (; !fatture.eof(); fatture.moveNext())
        appendRow(payments, payment);
}

} // namespace saldoro
