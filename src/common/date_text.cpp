#include "common/date_text.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Writes @p value as @p count digits into @p text, the first at @p position. Long tables are full
 *  of dates, and take several times as long where a format is interpreted for each. */
void setDigits(QString &text, qsizetype position, int count, int value)
{
    for (qsizetype place = position + count - 1; place >= position; --place, value /= 10)
        text[place] = QChar(u'0' + static_cast<char16_t>(value % 10));
}

} // namespace

QString FormatData(QDate day)
{
    if (!day.isValid())
        return {};
    QString text = EmptyDateText.toString();
    setDigits(text, 0, 2, day.day());
    setDigits(text, 3, 2, day.month());
    setDigits(text, 6, 4, day.year());
    return text;
}

QString IsoText(QDate day)
{
    QString text = u"0000-00-00"_s;
    setDigits(text, 0, 4, day.year());
    setDigits(text, 5, 2, day.month());
    setDigits(text, 8, 2, day.day());
    return text;
}

QDate DataDaTesto(const QString &text)
{
    static const QRegularExpression dayMonthYear(QRegularExpression::anchoredPattern(TypedDayForm));
    const auto match = dayMonthYear.match(text);
    int year = match.capturedView(3).toInt();
    if (match.capturedLength(3) == 2)
        year += year < 30 ? 2000 : 1900;
    const QDate day(year, match.capturedView(2).toInt(), match.capturedView(1).toInt());
    return year < 100 ? QDate() : day;
}

QDate DayInBox(const QString &text)
{
    return DataDaTesto(text.section(u'_', 0, 0));
}

} // namespace saldoro
