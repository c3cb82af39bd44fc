#include "exchange/csv_values.h"

#include "common/number_text.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MostDecimals = 4;

/** What stands in front of or behind the digits of an amount. */
struct Surroundings
{
    bool isNegative = false;
    bool hasSign = false;
    bool hasEuro = false;

    /** Takes one sign or currency mark; false for anything else and for a second one. */
    bool take(QChar character)
    {
        bool &known = character == u'€' ? hasEuro : hasSign;
        if (known || (character != u'€' && character != u'-' && character != u'+'))
            return false;
        known = true;
        isNegative = isNegative || character == u'-';
        return true;
    }
};

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/** The digits of the whole part; no value when "." stands elsewhere than between groups of three.
 */
std::optional<QString> ungrouped(QStringView whole)
{
    QString digits;
    const bool isGrouped = whole.contains(u'.');
    for (qsizetype place = 0; place < whole.size(); ++place) {
        const bool isMark = isGrouped && place > 0 && (whole.size() - place) % 4 == 0;
        if (isMark != (whole[place] == u'.'))
            return std::nullopt;
        if (!isMark)
            digits += whole[place];
    }
    return digits;
}

bool fits(qsizetype decimals, CsvDialect dialect)
{
    return decimals >= 1 && decimals <= MostDecimals &&
           (decimals != 3 || dialect == CsvDialect::Italian);
}

/** The number that the digits spell, which the sign may carry to the end of the range. */
std::optional<Currency> exactAmount(const QString &digits, bool isNegative)
{
    quint64 magnitude = 0;
    for (const QChar digit : digits) {
        if (!isDigit(digit) || __builtin_mul_overflow(magnitude, quint64{10}, &magnitude) ||
            __builtin_add_overflow(magnitude, static_cast<quint64>(digit.digitValue()), &magnitude))
            return std::nullopt;
    }
    const auto limit = static_cast<quint64>(std::numeric_limits<qint64>::max());
    if (magnitude > limit + (isNegative ? 1 : 0))
        return std::nullopt;
    return Currency::fromScaled(static_cast<qint64>(isNegative ? 0 - magnitude : magnitude));
}

std::optional<QDate> dayOf(QStringView year, QStringView month, QStringView day)
{
    if (year.size() != 4 || month.size() > 2 || day.size() > 2)
        return std::nullopt;
    const QDate result(DigitsValue(year), DigitsValue(month), DigitsValue(day));
    return result.isValid() && result.year() > 0 ? std::optional(result) : std::nullopt;
}

bool isMidnight(QStringView text)
{
    static const QRegularExpression midnight(u"\\A[ T]00:00(:00(\\.0+)?)?\\z"_s);
    return text.isEmpty() || midnight.match(text.toString()).hasMatch();
}

} // namespace

QChar SeparatorOf(CsvDialect dialect)
{
    return dialect == CsvDialect::Italian ? u';' : u',';
}

QString AmountExample(CsvDialect dialect)
{
    return dialect == CsvDialect::Italian ? u"un importo come 1.234,56"_s
                                          : u"un importo come 1234.56 (non con tre decimali)"_s;
}

QString DayExample(CsvDialect dialect)
{
    return dialect == CsvDialect::Italian ? u"una data gg/mm/aaaa"_s : u"una data aaaa-mm-gg"_s;
}

std::optional<Currency> AmountOf(QStringView text, CsvDialect dialect)
{
    Surroundings surroundings;
    text = text.trimmed();
    while (!text.isEmpty() && surroundings.take(text.front()))
        text = text.sliced(1).trimmed();
    if (text.endsWith(u'€') && surroundings.take(u'€'))
        text = text.chopped(1).trimmed();
    const bool isItalian = dialect == CsvDialect::Italian;
    const qsizetype mark = text.indexOf(isItalian ? u',' : u'.');
    const QStringView whole = mark < 0 ? text : text.first(mark);
    const QStringView decimals = mark < 0 ? QStringView() : text.sliced(mark + 1);
    if (whole.isEmpty() || (mark >= 0 && !fits(decimals.size(), dialect)))
        return std::nullopt;
    std::optional<QString> digits = isItalian ? ungrouped(whole) : whole.toString();
    if (!digits)
        return std::nullopt;
    *digits += decimals;
    return exactAmount(digits->leftJustified(digits->size() + MostDecimals - decimals.size(), u'0'),
                       surroundings.isNegative);
}

std::optional<QDate> DayOf(QStringView text, CsvDialect dialect)
{
    text = text.trimmed();
    if (dialect == CsvDialect::Italian) {
        const QList<QStringView> parts = text.split(u'/');
        return parts.size() == 3 ? dayOf(parts[2], parts[1], parts[0]) : std::nullopt;
    }
    constexpr qsizetype DayLength = 10;
    if (text.size() < DayLength || text[4] != u'-' || text[7] != u'-' ||
        !isMidnight(text.sliced(DayLength)))
        return std::nullopt;
    return dayOf(text.first(4), text.sliced(5, 2), text.sliced(8, 2));
}

std::optional<qint32> WholeOf(QStringView text)
{
    text = text.trimmed();
    const QStringView digits = text.startsWith(u'-') ? text.sliced(1) : text;
    bool isNumber = !digits.isEmpty() && std::all_of(digits.begin(), digits.end(), isDigit);
    const qint32 number = isNumber ? text.toInt(&isNumber) : 0;
    return isNumber ? std::optional(number) : std::nullopt;
}

QString AmountCell(Currency amount)
{
    const bool isNegative = amount.scaled() < 0;
    // Unsigned, since the smallest value has no positive counterpart.
    const quint64 magnitude = isNegative ? 0 - static_cast<quint64>(amount.scaled())
                                         : static_cast<quint64>(amount.scaled());
    QString text = QString::number(magnitude).rightJustified(MostDecimals + 1, u'0');
    text.insert(text.size() - MostDecimals, u',');
    for (int spare = 2; spare > 0 && text.endsWith(u'0'); --spare)
        text.chop(1);
    return isNegative ? u'-' + text : text;
}

QString TextCell(QString text)
{
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

} // namespace saldoro
