#include "common/amount_text.h"

#include "common/number_text.h"

#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Most characters of an amount: 17 digits, 4 points, the comma and the sign. */
constexpr std::size_t LongestAmount = 23;

} // namespace

QString FormatImporto(Currency amount)
{
    const bool negative = amount.scaled() < 0;
    // Unsigned, since the smallest value has no positive counterpart.
    const quint64 magnitude = negative ? 0 - static_cast<quint64>(amount.scaled())
                                       : static_cast<quint64>(amount.scaled());
    // Long lists are full of amounts: one buffer, filled from the last character to the first.
    std::array<QChar, LongestAmount> buffer;
    auto first = buffer.end();
    quint64 rest = (magnitude + 50) / 100;
    for (int digit = 0; digit < 3 || rest > 0; ++digit, rest /= 10) {
        if (digit == 2)
            *--first = u',';
        else if (digit > 2 && digit % 3 == 2)
            *--first = u'.';
        *--first = QChar(u'0' + static_cast<char16_t>(rest % 10));
    }
    if (negative)
        *--first = u'-';
    return QString(first, buffer.end() - first); // NOLINT(modernize-return-braced-init-list)
}

QString FormatImportoEuro(Currency amount)
{
    if (amount == Currency())
        return {};
    return u"€ "_s + FormatImporto(amount);
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
    return QString(text).replace(u'\'', u"''"_s);
}

} // namespace saldoro
