#include "overview/payment_statement.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"

#include <QRegularExpression>
#include <QStringList>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString withoutOuterBlanks(const QString &text)
{
    static const QRegularExpression outerBlanks(u"^ +| +\\z"_s);
    return QString(text).remove(outerBlanks);
}

QString title(const LedgerPayment &payment)
{
    const FieldValue day = payment.field(PaymentField::Del);
    return u"Nr. "_s + withoutOuterBlanks(payment.field(PaymentField::NFat).textOrEmpty()) +
           u" del "_s + (day.isNull() ? QString() : FormatData(day.date()));
}

QString amount(const LedgerPayment &payment, PaymentField field)
{
    return FormatImporto(payment.field(field).currency());
}

QStringList professionalLines(const LedgerPayment &payment)
{
    return {u"Altri Importi ..............: "_s + FormatImporto(payment.otherAmounts()),
            u"Elenco analitico voci spesa "_s,
            u"  Importo Prestazione ......: "_s + amount(payment, PaymentField::ImportoPrest),
            u"  Contributo pre.le 4% .....: "_s + amount(payment, PaymentField::Contributo),
            u"  Cassa Previdenza 2% ......: "_s + amount(payment, PaymentField::CassaPrev),
            u"  Iva lavori ...............: "_s + amount(payment, PaymentField::ImportoIVA),
            u"  Importo R.A. .............: "_s + amount(payment, PaymentField::ImportoRA),
            u"  Note ..:"_s};
}

QStringList companyLines(const LedgerPayment &payment)
{
    return {u"Elenco analitico voci spesa "_s,
            u"  Importo lavori ...........: "_s + amount(payment, PaymentField::Importo),
            u"  Iva lavori ...............: "_s + amount(payment, PaymentField::ImportoIVA),
            u"Note ..:"_s};
}

QString statement(const LedgerPayment &payment, Currency gross)
{
    const auto text = [&](PaymentField field) { return payment.field(field).textOrEmpty(); };
    QStringList lines{u"Numero Pagamento ...........: "_s +
                          payment.field(PaymentField::Npag).text(),
                      u"Creditore ..................: "_s + text(PaymentField::Creditore),
                      u"Descrizione ................: "_s + text(PaymentField::Descrizione),
                      u"Titolo (fattura) ...........: "_s + title(payment),
                      u"Importo totale pagato ......: "_s + FormatImporto(gross)};
    lines += payment.isProfessional() ? professionalLines(payment) : companyLines(payment);
    lines += text(PaymentField::Memo);
    return lines.join(u"\r\n"_s);
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
