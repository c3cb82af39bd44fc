#include "overview/payment_statement.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"

#include <QStringView>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

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

QString title(const LedgerPayment &payment)
{
    const FieldValue day = payment.field(PaymentField::Del);
    return u"Nr. "_s + withoutOuterBlanks(payment.field(PaymentField::NFat).textOrEmpty()) +
           u" del "_s + (day.isNull() ? QString() : FormatData(day.date()));
}

/** A statement under way, taking its lines from the current payment. */
class Lines
{
public:
    explicit Lines(const LedgerPayment &payment)
        : m_payment(payment)
    {
        constexpr qsizetype usualLength = 768;
        m_text.reserve(usualLength);
    }

    void add(QStringView label, const QString &value = {})
    {
        m_text += label;
        m_text += value;
        m_text += u"\r\n";
    }
    void addText(QStringView label, PaymentField field)
    {
        add(label, m_payment.field(field).textOrEmpty());
    }
    void addAmount(QStringView label, Currency amount) { add(label, FormatImporto(amount)); }
    void addAmount(QStringView label, PaymentField field)
    {
        addAmount(label, m_payment.field(field).currency());
    }

    /** The whole statement, the payment's note being the last line. */
    QString takeWithNote()
    {
        m_text += m_payment.field(PaymentField::Memo).textOrEmpty();
        return std::move(m_text);
    }

private:
    const LedgerPayment &m_payment;
    QString m_text;
};

void addProfessional(Lines &lines, const LedgerPayment &payment)
{
    lines.addAmount(u"Altri Importi ..............: ", payment.otherAmounts());
    lines.add(u"Elenco analitico voci spesa ");
    lines.addAmount(u"  Importo Prestazione ......: ", PaymentField::ImportoPrest);
    lines.addAmount(u"  Contributo pre.le 4% .....: ", PaymentField::Contributo);
    lines.addAmount(u"  Cassa Previdenza 2% ......: ", PaymentField::CassaPrev);
    lines.addAmount(u"  Iva lavori ...............: ", PaymentField::ImportoIVA);
    lines.addAmount(u"  Importo R.A. .............: ", PaymentField::ImportoRA);
    lines.add(u"  Note ..:");
}

void addCompany(Lines &lines)
{
    lines.add(u"Elenco analitico voci spesa ");
    lines.addAmount(u"  Importo lavori ...........: ", PaymentField::Importo);
    lines.addAmount(u"  Iva lavori ...............: ", PaymentField::ImportoIVA);
    lines.add(u"Note ..:");
}

QString statement(const LedgerPayment &payment, Currency gross)
{
    Lines lines(payment);
    lines.add(u"Numero Pagamento ...........: ", payment.field(PaymentField::Npag).text());
    lines.addText(u"Creditore ..................: ", PaymentField::Creditore);
    lines.addText(u"Descrizione ................: ", PaymentField::Descrizione);
    lines.add(u"Titolo (fattura) ...........: ", title(payment));
    lines.addAmount(u"Importo totale pagato ......: ", gross);
    if (payment.isProfessional())
        addProfessional(lines, payment);
    else
        addCompany(lines);
    return lines.takeWithNote();
}

} // namespace

// The payment's mandate note is no part of its statement, so it is not looked up: a payment
// without one would fail there for nothing.
void ComponiTestoPagamento(const LedgerPayment &payment, ProgramValues &values)
{
    const auto number = [&] { return payment.field(PaymentField::Npag).textOrEmpty(); };
    WithDetail(u"Pagamento"_s, number, [&] {
        const Currency gross = payment.grossAmount();
        const Currency total = values.TotaleLiquidato + gross;
        values.TestoPagamento = statement(payment, gross);
        values.TotaleLiquidato = total;
    });
}

} // namespace saldoro
