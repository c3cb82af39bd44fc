#include "overview/payment_statement.h"

#include "common/amount_text.h"
#include "common/creditor_kind.h"
#include "common/date_text.h"
#include "common/errors.h"

#include <QStringView>

#include <cstddef>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

using Field = PaymentStatements::Field;

constexpr std::array<QStringView, 14> FieldNames = {
    u"Npag",       u"AziProf",     u"Creditore", u"NFat",          u"Del",
    u"Memo",       u"Descrizione", u"Importo",   u"ImportoIVA",    u"ImportoPrest",
    u"Contributo", u"CassaPrev",   u"ImportoRA", u"AltriImporti01"};

/** The values that the layouts share. */
struct Payment
{
    bool professional = false;
    Currency amount;
    Currency tax;
    Currency other;

    Currency gross() const { return amount + tax + other; }
};

Payment readPayment(const PaymentStatements &source)
{
    Payment payment;
    payment.professional =
        source.value(Field::Kind).textOrEmpty() == KindCode(CreditorKind::Professional);
    payment.amount = source.value(Field::Amount).currency();
    payment.tax = source.value(Field::Tax).currency();
    if (payment.professional)
        payment.other = source.value(Field::OtherAmounts).currencyOrNone().value_or(Currency());
    return payment;
}

QString withoutOuterBlanks(const QString &text)
{
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && text[first] == u' ')
        ++first;
    while (end > first && text[end - 1] == u' ')
        --end;
    return text.sliced(first, end - first);
}

QString title(const PaymentStatements &source)
{
    const FieldValue day = source.value(Field::InvoiceDay);
    return u"Nr. "_s + withoutOuterBlanks(source.value(Field::InvoiceNumber).textOrEmpty()) +
           u" del "_s + (day.isNull() ? QString() : FormatData(day.date()));
}

/** A statement under way, taking its lines from the current payment. */
class Lines
{
public:
    explicit Lines(const PaymentStatements &source)
        : m_source(source)
    {
        constexpr qsizetype UsualLength = 768;
        m_text.reserve(UsualLength);
    }

    void add(QStringView label, const QString &value = {})
    {
        m_text += label;
        m_text += value;
        m_text += u"\r\n";
    }
    void addText(QStringView label, Field field)
    {
        add(label, m_source.value(field).textOrEmpty());
    }
    void addAmount(QStringView label, Currency amount) { add(label, FormatImporto(amount)); }
    void addAmount(QStringView label, Field field)
    {
        addAmount(label, m_source.value(field).currency());
    }

    /** The whole statement, the payment's note being the last line. */
    QString takeWithNote()
    {
        m_text += m_source.value(Field::Note).textOrEmpty();
        return std::move(m_text);
    }

private:
    const PaymentStatements &m_source;
    QString m_text;
};

void addCommon(Lines &lines, const PaymentStatements &source, const Payment &payment)
{
    lines.add(u"Numero Pagamento ...........: ", source.value(Field::Number).text());
    lines.addText(u"Creditore ..................: ", Field::Creditor);
    lines.addText(u"Descrizione ................: ", Field::Description);
    lines.add(u"Titolo (fattura) ...........: ", title(source));
    lines.addAmount(u"Importo totale pagato ......: ", payment.gross());
}

void addProfessional(Lines &lines, const Payment &payment)
{
    lines.addAmount(u"Altri Importi ..............: ", payment.other);
    lines.add(u"Elenco analitico voci spesa ");
    lines.addAmount(u"  Importo Prestazione ......: ", Field::Fee);
    lines.addAmount(u"  Contributo pre.le 4% .....: ", Field::Contribution);
    lines.addAmount(u"  Cassa Previdenza 2% ......: ", Field::Fund);
    lines.addAmount(u"  Iva lavori ...............: ", payment.tax);
    lines.addAmount(u"  Importo R.A. .............: ", Field::Withholding);
    lines.add(u"  Note ..:");
}

void addCompany(Lines &lines, const Payment &payment)
{
    lines.add(u"Elenco analitico voci spesa ");
    lines.addAmount(u"  Importo lavori ...........: ", payment.amount);
    lines.addAmount(u"  Iva lavori ...............: ", payment.tax);
    lines.add(u"Note ..:");
}

QString statement(const PaymentStatements &source, const Payment &payment)
{
    Lines lines(source);
    addCommon(lines, source, payment);
    if (payment.professional)
        addProfessional(lines, payment);
    else
        addCompany(lines, payment);
    return lines.takeWithNote();
}

} // namespace

PaymentStatements::PaymentStatements(const RecordSet &fatture)
    : m_fatture(fatture)
{
    for (std::size_t field = 0; field < FieldNames.size(); ++field)
        m_columns.at(field) = fatture.column(FieldNames.at(field).toString());
}

// The payment's mandate note is no part of its statement, so it is not looked up: a payment
// without one would fail there for nothing.
void PaymentStatements::composeCurrent(ProgramValues &values) const
{
    try {
        const Payment payment = readPayment(*this);
        const Currency total = values.TotaleLiquidato + payment.gross();
        values.TestoPagamento = statement(*this, payment);
        values.TotaleLiquidato = total;
    } catch (SaldoroError &error) {
        if (!m_fatture.eof())
            error.addDetail(u"Pagamento"_s, value(Field::Number).textOrEmpty());
        throw;
    }
}

void ComponiTestoPagamento(RecordSet &fatture, ProgramValues &values)
{
    PaymentStatements(fatture).composeCurrent(values);
}

} // namespace saldoro
