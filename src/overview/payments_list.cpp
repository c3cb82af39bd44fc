#include "overview/payments_list.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/creditor_kind.h"
#include "common/date_text.h"
#include "common/errors.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** One payment record after the other; the places of the fields are looked up once. */
class PaymentRows
{
public:
    explicit PaymentRows(const RecordSet &fatture)
        : m_fatture(fatture)
        , m_kind(fatture.column(u"AziProf"_s))
        , m_number(fatture.column(u"Npag"_s))
        , m_creditor(fatture.column(u"Creditore"_s))
        , m_day(fatture.column(u"Del"_s))
        , m_amount(fatture.column(u"Importo"_s))
        , m_vat(fatture.column(u"ImportoIVA"_s))
        , m_otherAmounts(fatture.column(u"AltriImporti01"_s))
    {
    }

    void append(TextTable &payments) const
    {
        const int row = payments.rows();
        payments.setRows(row + 1);
        payments.setRow(row);
        try {
            write(payments, row);
        } catch (SaldoroError &error) {
            addPlace(error, row);
            throw;
        }
    }

private:
    void write(TextTable &payments, int row) const
    {
        const auto number = m_fatture.field(m_number).integer();
        payments.setText(row, PaymentColumn::Nr, QString::number(number));
        payments.setText(row, PaymentColumn::Creditore, m_fatture.field(m_creditor).text());
        payments.setText(row, PaymentColumn::Data, FormatData(m_fatture.field(m_day).date()));
        payments.setText(row, PaymentColumn::Importo, FormatImporto(grossAmount()));
        payments.setText(row, PaymentColumn::Euro, u"€"_s);
    }

    Currency grossAmount() const
    {
        const Currency gross =
            m_fatture.field(m_amount).currency() + m_fatture.field(m_vat).currency();
        if (m_fatture.field(m_kind).textOrEmpty() != KindCode(CreditorKind::Professional))
            return gross;
        return gross + m_fatture.field(m_otherAmounts).currencyOrNone().value_or(Currency());
    }

    void addPlace(SaldoroError &error, int row) const
    {
        const QString number = m_fatture.field(m_number).textOrEmpty();
        if (!number.isEmpty()) {
            error.addDetail(u"Pagamento"_s, number);
            return;
        }
        error.addDetail(u"Pagamento"_s, u"senza numero"_s);
        error.addDetail(u"Riga"_s, QString::number(row));
        error.addDetail(u"Creditore"_s, m_fatture.field(m_creditor).textOrEmpty());
    }

    const RecordSet &m_fatture;
    int m_kind;
    int m_number;
    int m_creditor;
    int m_day;
    int m_amount;
    int m_vat;
    int m_otherAmounts;
};

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
    if (m_fatture.eof())
        return;
    const PaymentRows rows(m_fatture);
    for (; !m_fatture.eof(); m_fatture.moveNext())
        rows.append(payments);
}

} // namespace saldoro
