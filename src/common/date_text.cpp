#include "common/date_text.h"

#include <QStringList>

namespace saldoro {

namespace {

/** The number that a text of ASCII digits of an accepted length spells, or -1. */
int digitsValue(const QString &text, qsizetype shortest, qsizetype longest)
{
    if (text.size() < shortest || text.size() > longest)
        return -1;
    int value = 0;
    for (const QChar character : text) {
        if (character < u'0' || character > u'9')
            return -1;
        value = value * 10 + (character.unicode() - u'0');
    }
    return value;
}

int fullYear(const QString &text)
{
    if (text.size() == 2) {
        const int year = digitsValue(text, 2, 2);
        return year < 0 ? -1 : year + (year < 30 ? 2000 : 1900);
    }
    const int year = digitsValue(text, 4, 4);
    return year < 100 ? -1 : year;
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
    const int day = digitsValue(pieces[0], 1, 2);
    const int month = digitsValue(pieces[1], 1, 2);
    const int year = fullYear(pieces[2]);
    return year < 0 ? QDate() : QDate(year, month, day);
}

} // namespace saldoro
