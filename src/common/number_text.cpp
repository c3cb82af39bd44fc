#include "common/number_text.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The number that a text begins with, if any, and then the rest, both without blanks. */
QRegularExpressionMatch numberAndRest(const QString &text)
{
    static const QRegularExpression blanks(u"[ \\t\\n\\r]"_s);
    static const QRegularExpression parts(
        u"\\A([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)?(.*)"_s,
        QRegularExpression::DotMatchesEverythingOption);
    return parts.match(QString(text).remove(blanks));
}

} // namespace

double LeadingNumber(const QString &text)
{
    return numberAndRest(text).captured(1).toDouble(); // infinity when it is beyond the range
}

QString BehindLeadingNumber(const QString &text)
{
    return numberAndRest(text).captured(2);
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
