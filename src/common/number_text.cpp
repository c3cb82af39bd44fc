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

QString RateText(double value)
{
    if (value == 0.0) // also for a negative zero
        return u"0"_s;
    return QString::number(value, 'g', 15).toUpper();
}

bool IsInGroupsOfThree(QStringView text, QChar mark)
{
    constexpr qsizetype groupAndMark = 4;
    const qsizetype first = text.size() % groupAndMark;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if ((text[at] == mark) != (at % groupAndMark == first))
            return false;
    }
    return first > 0;
}

} // namespace saldoro
