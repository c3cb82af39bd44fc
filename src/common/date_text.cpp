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

} // namespace

QString FormatData(QDate day)
{
    return day.isValid() ? day.toString(QStringLiteral("dd/MM/yyyy")) : QString();
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
