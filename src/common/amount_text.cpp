#include "common/amount_text.h"

#include "common/number_text.h"
#include "common/rounding.h"

#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Most characters of an amount: 17 digits, 4 points, the comma and the sign. */
constexpr std::size_t longestAmount = 23;

} // namespace

QString FormatImporto(Currency amount)
{
    const qint64 cents = RoundHalfAway(amount.scaled(), Currency::Scale / 100);
    // Long lists are full of amounts: one buffer, filled from the last character to the first.
    std::array<QChar, longestAmount> buffer;
    auto first = buffer.end();
    qint64 rest = qAbs(cents);
    for (int digit = 0; digit < 3 || rest > 0; ++digit, rest /= 10) {
        if (digit == 2)
            *--first = u',';
        else if (digit > 2 && digit % 3 == 2)
            *--first = u'.';
        *--first = QChar(u'0' + static_cast<char16_t>(rest % 10));
    }
    if (amount < Currency())
        *--first = u'-';
    return QString(first, buffer.end() - first); // NOLINT(modernize-return-braced-init-list)
}

Currency ShownAmount(Currency amount)
{
    constexpr qint64 cent = Currency::Scale / 100;
    return Currency::fromScaled(RoundHalfAway(amount.scaled(), cent) * cent);
}

QString EuroText(Currency amount)
{
    return u"€ "_s + FormatImporto(amount);
}

QString FormatImportoEuro(Currency amount)
{
    return amount == Currency() ? QString() : EuroText(amount);
}

QString FourDecimals(Currency amount)
{
    const QString sign = amount < Currency() ? u"-"_s : QString();
    QString digits = QString::number(amount.scaled()).sliced(sign.size());
    digits = digits.rightJustified(Currency::Decimals + 1, u'0');
    return sign + digits.insert(digits.size() - Currency::Decimals, u'.');
}

QString PuntoDecimale(QString &text)
{
    text.remove(u'.');
    const qsizetype comma = text.indexOf(u',');
    if (comma >= 0)
        text[comma] = u'.';
    return text;
}

Currency PlainAmount(const QString &text)
{
    return Currency::fromDouble(LeadingNumber(text));
}

Currency ImportoDaTesto(QString &text)
{
    return PlainAmount(PuntoDecimale(text));
}

Currency ImportoDaTesto(QString &&text)
{
    return ImportoDaTesto(text);
}

} // namespace saldoro
