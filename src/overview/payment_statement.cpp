#include "overview/payment_statement.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"
#include "store/payment_amounts.h"

#include <QRegularExpression>
#include <QStringBuilder>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString title(const RecordSet &payment)
{
    static const QRegularExpression outerBlanks(u"\\A +| +\\z"_s); // no tabs
    const FieldValue day = payment.field(u"Del"_s);
    return u"Nr. "_s + payment.field(u"NFat"_s).textOrEmpty().remove(outerBlanks) + u" del "_s +
           (day.isNull() ? QString() : FormatData(day.date()));
}

QString amount(const RecordSet &payment, const QString &field)
{
    return FormatImporto(payment.field(field).currency());
}

void addProfessionalLines(QString &lines, const RecordSet &payment)
{
    lines += u"\r\nAltri Importi ..............: " % FormatImporto(OtherAmounts(payment));
    lines += u"\r\nElenco analitico voci spesa ";
    lines += u"\r\n  Importo Prestazione ......: " % amount(payment, u"ImportoPrest"_s);
    lines += u"\r\n  Contributo pre.le 4% .....: " % amount(payment, u"Contributo"_s);
    lines += u"\r\n  Cassa Previdenza 2% ......: " % amount(payment, u"CassaPrev"_s);
    lines += u"\r\n  Iva lavori ...............: " % amount(payment, u"ImportoIVA"_s);
    lines += u"\r\n  Importo R.A. .............: " % amount(payment, u"ImportoRA"_s);
    lines += u"\r\n  Note ..:";
}

void addCompanyLines(QString &lines, const RecordSet &payment)
{
    lines += u"\r\nElenco analitico voci spesa ";
    lines += u"\r\n  Importo lavori ...........: " % amount(payment, u"Importo"_s);
    lines += u"\r\n  Iva lavori ...............: " % amount(payment, u"ImportoIVA"_s);
    lines += u"\r\nNote ..:";
}

QString statement(const RecordSet &payment, Currency gross)
{
    constexpr qsizetype usualLength = 768;
    const auto text = [&](const QString &field) { return payment.field(field).textOrEmpty(); };
    QString lines;
    lines.reserve(usualLength);
    lines += u"Numero Pagamento ...........: " % payment.field(u"Npag"_s).text();
    lines += u"\r\nCreditore ..................: " % text(u"Creditore"_s);
    lines += u"\r\nDescrizione ................: " % text(u"Descrizione"_s);
    lines += u"\r\nTitolo (fattura) ...........: " % title(payment);
    lines += u"\r\nImporto totale pagato ......: " % FormatImporto(gross);
    if (IsProfessional(payment))
        addProfessionalLines(lines, payment);
    else
        addCompanyLines(lines, payment);
    lines += u"\r\n" % text(u"Memo"_s);
    return lines;
}

} // namespace

// The mandate note is not looked up: no statement shows it, and a payment without one would fail.
void ComponiTestoPagamento(const RecordSet &payment, ProgramValues &values)
{
    const auto number = [&] { return payment.field(u"Npag"_s).textOrEmpty(); };
    WithDetail(Detail::Payment, number, [&] {
        const Currency gross = GrossAmount(payment);
        const Currency total = values.TotaleLiquidato + gross;
        values.TestoPagamento = statement(payment, gross);
        values.TotaleLiquidato = total;
    });
}

} // namespace saldoro
