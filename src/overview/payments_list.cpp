#include "overview/payments_list.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/payment_amounts.h"

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

PaymentsReader::PaymentsReader(const ProgramValues &values)
    : m_ledger(Database::open(LedgerPath(values)))
    , m_fatture(m_ledger.openRecordSet(u"SELECT * FROM Fatture ORDER BY Npag "_s))
    , m_spese(m_ledger.openRecordSet(u"SELECT * FROM Spese"_s))
{
}

void PaymentsReader::fill(TextTable &payments)
{
    const TextTable::BulkChange change(payments);
    for (; !m_fatture.eof(); m_fatture.moveNext()) {
        const int row = payments.rows();
        payments.setRows(row + 1);
        payments.setRow(row);
        try {
            writeCells(payments, row, m_fatture);
        } catch (SaldoroError &error) {
            addDetails(error, row, m_fatture);
            throw;
        }
    }
}

} // namespace saldoro
