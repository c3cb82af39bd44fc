#include "common/date_text.h"

#include "common/number_text.h"

#include <QStringList>

namespace saldoro {

namespace {

int fullYear(const QString &text)
{
    const int year = DigitsValue(text);
    if (text.size() == 2 && year >= 0)
        return year + (year < 30 ? 2000 : 1900);
    return text.size() == 4 && year >= 100 ? year : -1;
}

/** Writes @p value as @p count digits into @p text, the first at @p position. */
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
    // Long lists are full of dates: the digits are set one by one, without a format to interpret.
    QString text = EmptyDateText.toString();
    int year = 0;
    int month = 0;
    int dayOfMonth = 0;
    day.getDate(&year, &month, &dayOfMonth);
    setDigits(text, 0, 2, dayOfMonth);
    setDigits(text, 3, 2, month);
    setDigits(text, 6, 4, year);
    return text;
}

QDate DataDaTesto(const QString &text)
{
    const QStringList pieces = text.split(u'/');
    if (pieces.size() != 3)
        return {};
    if (pieces[0].size() > 2 || pieces[1].size() > 2)
        return {};
    const int year = fullYear(pieces[2]);
    return year < 0 ? QDate() : QDate(year, DigitsValue(pieces[1]), DigitsValue(pieces[0]));
}

} // namespace saldoro
