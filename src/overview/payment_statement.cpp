#include "overview/payment_statement.h"

#include "common/amount_text.h"
#include "common/date_text.h"
#include "common/errors.h"

#include <QStringList>

namespace saldoro {

namespace {

/** The amounts that the layouts share; the sum is the payment's gross amount. */
struct Gross
{
    Currency importo;
    Currency iva;
    Currency altri;

    Currency sum() const { return importo + iva + altri; }
};

bool isProfessional(const RecordSet &fatture)
{
    return fatture.field(QStringLiteral("AziProf")).textOrEmpty() == u'P';
}

Gross readGross(const RecordSet &fatture)
{
    Gross gross;
    gross.importo = fatture.field(QStringLiteral("Importo")).currency();
    gross.iva = fatture.field(QStringLiteral("ImportoIVA")).currency();
    if (isProfessional(fatture))
        gross.altri =
            fatture.field(QStringLiteral("AltriImporti01")).currencyOrNone().value_or(Currency());
    return gross;
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

QString title(const RecordSet &fatture)
{
    const FieldValue day = fatture.field(QStringLiteral("Del"));
    return QStringLiteral("Nr. ") +
           withoutOuterBlanks(fatture.field(QStringLiteral("NFat")).textOrEmpty()) +
           QStringLiteral(" del ") + (day.isNull() ? QString() : FormatData(day.date()));
}

QStringList commonLines(const RecordSet &fatture, const Gross &gross)
{
    const auto text = [&](const QString &field) { return fatture.field(field).textOrEmpty(); };
    return {
        QStringLiteral("Numero Pagamento ...........: ") +
            fatture.field(QStringLiteral("Npag")).text(),
        QStringLiteral("Creditore ..................: ") + text(QStringLiteral("Creditore")),
        QStringLiteral("Descrizione ................: ") + text(QStringLiteral("Descrizione")),
        QStringLiteral("Titolo (fattura) ...........: ") + title(fatture),
        QStringLiteral("Importo totale pagato ......: ") + FormatImporto(gross.sum()),
    };
}

QStringList professionalLines(const RecordSet &fatture, const Gross &gross)
{
    const auto amount = [&](const QString &field) {
        return FormatImporto(fatture.field(field).currency());
    };
    return {
        QStringLiteral("Altri Importi ..............: ") + FormatImporto(gross.altri),
        QStringLiteral("Elenco analitico voci spesa "),
        QStringLiteral("  Importo Prestazione ......: ") + amount(QStringLiteral("ImportoPrest")),
        QStringLiteral("  Contributo pre.le 4% .....: ") + amount(QStringLiteral("Contributo")),
        QStringLiteral("  Cassa Previdenza 2% ......: ") + amount(QStringLiteral("CassaPrev")),
        QStringLiteral("  Iva lavori ...............: ") + FormatImporto(gross.iva),
        QStringLiteral("  Importo R.A. .............: ") + amount(QStringLiteral("ImportoRA")),
        QStringLiteral("  Note ..:"),
    };
}

QStringList companyLines(const Gross &gross)
{
    return {
        QStringLiteral("Elenco analitico voci spesa "),
        QStringLiteral("  Importo lavori ...........: ") + FormatImporto(gross.importo),
        QStringLiteral("  Iva lavori ...............: ") + FormatImporto(gross.iva),
        QStringLiteral("Note ..:"),
    };
}

QString statement(const RecordSet &fatture, const Gross &gross)
{
    QStringList lines = commonLines(fatture, gross);
    lines += isProfessional(fatture) ? professionalLines(fatture, gross) : companyLines(gross);
    lines += fatture.field(QStringLiteral("Memo")).textOrEmpty();
    return lines.join(QStringLiteral("\r\n"));
}

void namePayment(SaldoroError &error, const RecordSet &fatture)
{
    if (fatture.eof())
        return;
    const FieldValue number = fatture.field(QStringLiteral("Npag"));
    error.addDetail(QStringLiteral("Pagamento"), number.textOrEmpty());
}

} // namespace

// The payment's mandate note is no part of its statement, so it is not looked up: a payment
// without one would fail there for nothing.
void ComponiTestoPagamento(RecordSet &fatture, ProgramValues &values)
{
    try {
        const Gross gross = readGross(fatture);
        const Currency total = values.TotaleLiquidato + gross.sum();
        values.TestoPagamento = statement(fatture, gross);
        values.TotaleLiquidato = total;
    } catch (SaldoroError &error) {
        namePayment(error, fatture);
        throw;
    }
}

} // namespace saldoro
