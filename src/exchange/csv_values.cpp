#include "exchange/csv_values.h"

#include "common/number_text.h"

#include <QRegularExpression>

#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MostDecimals = 4;

/** Takes a character off the front, with the blanks behind it. */
bool take(QStringView &text, QChar character)
{
    if (!text.startsWith(character))
        return false;
    text = text.sliced(1).trimmed();
    return true;
}

/** Counts ten-thousandths digit by digit, without a sign. */
class DigitCount
{
public:
    /** False for what is no digit, and beyond the range. */
    bool add(QChar digit)
    {
        return digit >= u'0' && digit <= u'9' &&
               !__builtin_mul_overflow(m_count, quint64{10}, &m_count) &&
               !__builtin_add_overflow(m_count, static_cast<quint64>(digit.unicode() - u'0'),
                                       &m_count);
    }

    std::optional<Currency> amount(bool isNegative) const
    {
        constexpr auto limit = static_cast<quint64>(std::numeric_limits<qint64>::max());
        if (m_count > limit + (isNegative ? 1 : 0))
            return std::nullopt;
        return Currency::fromScaled(static_cast<qint64>(isNegative ? 0 - m_count : m_count));
    }

private:
    quint64 m_count = 0;
};

/** The whole part, where "." may stand between groups of three and then must. */
bool addWhole(QStringView whole, bool isGrouped, DigitCount &count)
{
    for (qsizetype place = 0; place < whole.size(); ++place) {
        const bool isMark = isGrouped && (whole.size() - place) % 4 == 0;
        if (isMark ? place == 0 || whole[place] != u'.' : !count.add(whole[place]))
            return false;
    }
    return !whole.isEmpty();
}

bool addDecimals(QStringView decimals, DigitCount &count)
{
    for (qsizetype place = 0; place < MostDecimals; ++place) {
        if (!count.add(place < decimals.size() ? decimals[place] : u'0'))
            return false;
    }
    return decimals.size() <= MostDecimals;
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
    const QStringView decimals = mark < 0 ? QStringView() : text.sliced(mark + 1);
    if ((mark >= 0 && decimals.isEmpty()) || (!isItalian && decimals.size() == 3))
        return std::nullopt;
    DigitCount count;
    if (!addWhole(whole, isItalian && whole.contains(u'.'), count) || !addDecimals(decimals, count))
        return std::nullopt;
    return count.amount(isNegative);
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
    const bool isNegative = take(text, u'-');
    DigitCount count;
    if (!addWhole(text, false, count))
        return std::nullopt;
    const qint64 number = count.amount(isNegative).value_or(Currency()).scaled();
    const auto narrow = static_cast<qint32>(number);
    return narrow == number ? std::optional(narrow) : std::nullopt;
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

} // namespace saldoro
