#include "common/amount_text.h"

#include "common/number_text.h"

namespace saldoro {

namespace {

/** Decimal digits with "." between groups of three, counted from the right. */
QString groupedDigits(quint64 value)
{
    QString digits = QString::number(value);
    for (qsizetype position = digits.size() - 3; position > 0; position -= 3)
        digits.insert(position, u'.');
    return digits;
}

} // namespace

QString FormatImporto(Currency amount)
{
    const bool negative = amount.scaled() < 0;
    // Unsigned, since the smallest value has no positive counterpart.
    const quint64 magnitude = negative ? 0 - static_cast<quint64>(amount.scaled())
                                       : static_cast<quint64>(amount.scaled());
    const quint64 cents = (magnitude + 50) / 100;
    QString text = negative ? QStringLiteral("-") : QString();
    text += groupedDigits(cents / 100);
    text += u',';
    text += QChar(u'0' + static_cast<char16_t>(cents % 100 / 10));
    text += QChar(u'0' + static_cast<char16_t>(cents % 10));
    return text;
}

QString FormatImportoEuro(Currency amount)
{
    if (amount == Currency())
        return {};
    return QStringLiteral("€ ") + FormatImporto(amount);
}

QString PuntoDecimale(QString &text)
{
    text.remove(u'.');
    const qsizetype comma = text.indexOf(u',');
    if (comma >= 0)
        text[comma] = u'.';
    return text;
}

Currency ImportoDaTesto(QString &text)
{
    return Currency::fromDouble(LeadingNumber(PuntoDecimale(text)));
}

Currency ImportoDaTesto(QString &&text)
{
    return ImportoDaTesto(text);
}

QString RaddoppiaApici(const QString &text)
{
    return QString(text).replace(u'\'', QStringLiteral("''"));
}

} // namespace saldoro
