#include "overview/payment_statement.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "store/ledger.h"

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

QString title(const RecordSet &payment)
{
    const FieldValue day = payment.field(u"Del"_s);
    return u"Nr. "_s + withoutOuterBlanks(payment.field(u"NFat"_s).textOrEmpty()) + u" del "_s +
           (day.isNull() ? QString() : FormatData(day.date()));
}

QString amount(const RecordSet &payment, const QString &field)
{
    return FormatImporto(payment.field(field).currency());
}

QStringList professionalLines(const RecordSet &payment)
{
    return {u"Altri Importi ..............: "_s + FormatImporto(OtherAmounts(payment)),
            u"Elenco analitico voci spesa "_s,
            u"  Importo Prestazione ......: "_s + amount(payment, u"ImportoPrest"_s),
            u"  Contributo pre.le 4% .....: "_s + amount(payment, u"Contributo"_s),
            u"  Cassa Previdenza 2% ......: "_s + amount(payment, u"CassaPrev"_s),
            u"  Iva lavori ...............: "_s + amount(payment, u"ImportoIVA"_s),
            u"  Importo R.A. .............: "_s + amount(payment, u"ImportoRA"_s),
            u"  Note ..:"_s};
}

QStringList companyLines(const RecordSet &payment)
{
    return {u"Elenco analitico voci spesa "_s,
            u"  Importo lavori ...........: "_s + amount(payment, u"Importo"_s),
            u"  Iva lavori ...............: "_s + amount(payment, u"ImportoIVA"_s), u"Note ..:"_s};
}

QString statement(const RecordSet &payment, Currency gross)
{
    const auto text = [&](const QString &field) { return payment.field(field).textOrEmpty(); };
    QStringList lines{u"Numero Pagamento ...........: "_s + payment.field(u"Npag"_s).text(),
                      u"Creditore ..................: "_s + text(u"Creditore"_s),
                      u"Descrizione ................: "_s + text(u"Descrizione"_s),
                      u"Titolo (fattura) ...........: "_s + title(payment),
                      u"Importo totale pagato ......: "_s + FormatImporto(gross)};
    lines += IsProfessional(payment) ? professionalLines(payment) : companyLines(payment);
    lines += text(u"Memo"_s);
    return lines.join(u"\r\n"_s);
}

} // namespace

// The payment's mandate note is no part of its statement, so it is not looked up: a payment
// without one would fail there for nothing.
void ComponiTestoPagamento(const RecordSet &payment, ProgramValues &values)
{
    const auto number = [&] { return payment.field(u"Npag"_s).textOrEmpty(); };
    WithDetail(u"Pagamento"_s, number, [&] {
        const Currency gross = GrossAmount(payment);
        const Currency total = values.TotaleLiquidato + gross;
        values.TestoPagamento = statement(payment, gross);
        values.TotaleLiquidato = total;
    });
}

} // namespace saldoro
