#include "exchange/csv_values.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr int MostDecimals = 4;

/** Takes a character off the front, with the blanks behind it. */
bool take(QStringView &text, QChar character)
{
    if (!text.startsWith(character))
        return false;
    text = text.sliced(1).trimmed();
    return true;
}

bool areDigits(QStringView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar character) {
        return character >= u'0' && character <= u'9';
    });
}

/** Without the "." between groups of three; nothing when they are elsewhere. */
QString ungrouped(QStringView whole)
{
    QString digits = whole.toString();
    for (qsizetype dot = digits.size() - 4; dot >= 0; dot -= 4) {
        if (dot == 0 || digits[dot] != u'.')
            return {};
        digits.remove(dot, 1);
    }
    return digits;
}

} // namespace

std::optional<Currency> AmountOf(QStringView text, CsvDialect dialect)
{
    text = text.trimmed();
    const bool hasEuro = take(text, u'€');
    const bool isNegative = take(text, u'-');
    if (!isNegative)
        take(text, u'+');
    if (!hasEuro && !take(text, u'€') && text.endsWith(u'€'))
        text = text.chopped(1).trimmed();
    const bool isItalian = dialect == CsvDialect::Italian;
    const qsizetype mark = text.indexOf(isItalian ? u',' : u'.');
    const QStringView whole = mark < 0 ? text : text.first(mark);
    const QStringView decimals = mark < 0 ? QStringView(u"0") : text.sliced(mark + 1);
    const QString digits = isItalian && whole.contains(u'.') ? ungrouped(whole) : whole.toString();
    if (!areDigits(digits) || !areDigits(decimals) || decimals.size() > MostDecimals ||
        (!isItalian && decimals.size() == 3))
        return std::nullopt;
    bool fits = false;
    const qint64 scaled = ((isNegative ? u"-"_s : u""_s) + digits +
                           decimals.toString().leftJustified(MostDecimals, u'0'))
                              .toLongLong(&fits);
    return fits ? std::optional(Currency::fromScaled(scaled)) : std::nullopt;
}

std::optional<QDate> DayOf(QStringView text, CsvDialect dialect)
{
    static const QRegularExpression italian(u"\\A(\\d\\d?)/(\\d\\d?)/(\\d{4})\\z"_s);
    static const QRegularExpression international(
        u"\\A(\\d{4})-(\\d\\d)-(\\d\\d)(?:[ T]00:00(?::00(?:\\.0+)?)?)?\\z"_s);
    const bool isItalian = dialect == CsvDialect::Italian;
    const auto match = (isItalian ? italian : international).match(text.trimmed().toString());
    const auto part = [&match](int place) { return match.capturedView(place).toInt(); };
    const QDate day(part(isItalian ? 3 : 1), part(2), part(isItalian ? 1 : 3));
    return day.isValid() && day.year() > 0 ? std::optional(day) : std::nullopt;
}

std::optional<qint32> WholeOf(QStringView text)
{
    text = text.trimmed();
    bool fits = areDigits(text.startsWith(u'-') ? text.sliced(1) : text);
    const qint32 number = fits ? text.toInt(&fits) : 0;
    return fits ? std::optional(number) : std::nullopt;
}

QString AmountCell(Currency amount)
{
    // Unsigned, since the smallest value has no positive counterpart.
    const quint64 magnitude = amount.scaled() < 0 ? 0 - static_cast<quint64>(amount.scaled())
                                                  : static_cast<quint64>(amount.scaled());
    // Long tables are full of amounts: one buffer, filled from the last character to the first.
    std::array<QChar, 24> buffer;
    auto first = buffer.end();
    quint64 rest = magnitude % 100 == 0 ? magnitude / 100 : magnitude;
    for (int decimals = magnitude % 100 == 0 ? 2 : MostDecimals; decimals >= 0 || rest > 0;
         --decimals, rest /= 10) {
        if (decimals == 0)
            *--first = u',';
        *--first = QChar(u'0' + static_cast<char16_t>(rest % 10));
    }
    if (amount.scaled() < 0)
        *--first = u'-';
    return QString(first, buffer.end() - first); // NOLINT(modernize-return-braced-init-list)
}

} // namespace saldoro
