#include "common/number_text.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

double LeadingNumber(const QString &text)
{
    static const QRegularExpression blanks(u"[ \\t\\n\\r]"_s);
    static const QRegularExpression number(
        u"[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?"_s);
    const auto match =
        number.match(QString(text).remove(blanks), 0, QRegularExpression::NormalMatch,
                     QRegularExpression::AnchorAtOffsetMatchOption);
    return match.captured().toDouble(); // infinity when it is beyond the range
}

int DigitsValue(QStringView text)
{
    constexpr qsizetype mostDigits = 9;
    if (text.isEmpty() || text.size() > mostDigits)
        return -1;
    int value = 0;
    for (const QChar character : text) {
        if (character < u'0' || character > u'9')
            return -1;
        value = value * 10 + (character.unicode() - u'0');
    }
    return value;
}

QString RateText(double value)
{
    if (value == 0.0) // also for a negative zero
        return u"0"_s;
    return QString::number(value, 'g', 15).toUpper();
}

QString SignedNumberText(qint32 value)
{
    return (value < 0 ? QString() : u" "_s) + QString::number(value);
}

} // namespace saldoro
