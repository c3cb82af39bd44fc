#include "common/number_text.h"

#include <QByteArray>

#include <limits>
#include <locale>
#include <sstream>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

bool isBlank(QChar character)
{
    return character == u' ' || character == u'\t' || character == u'\n' || character == u'\r';
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/** The text without blanks, as ASCII up to the first character that no number can hold. */
QByteArray numberCandidate(const QString &text)
{
    QByteArray candidate;
    for (const QChar character : text) {
        if (isBlank(character))
            continue;
        const char latin = character.unicode() < 128 ? character.toLatin1() : '\0';
        if (!isDigit(latin) && (latin == '\0' || QByteArrayView("+-.eE").indexOf(latin) < 0))
            break;
        candidate.append(latin);
    }
    return candidate;
}

qsizetype skipDigits(const QByteArray &text, qsizetype position)
{
    while (position < text.size() && isDigit(text[position]))
        ++position;
    return position;
}

qsizetype skipSign(const QByteArray &text, qsizetype position)
{
    const bool sign = position < text.size() && (text[position] == '+' || text[position] == '-');
    return sign ? position + 1 : position;
}

/** End of the exponent that starts at @p position, or @p position when it has no digits. */
qsizetype skipExponent(const QByteArray &text, qsizetype position)
{
    if (position >= text.size() || (text[position] != 'e' && text[position] != 'E'))
        return position;
    const qsizetype digits = skipSign(text, position + 1);
    const qsizetype end = skipDigits(text, digits);
    return end > digits ? end : position;
}

/** Value of a complete number. A stream is used because it tells overflow (infinity) from underflow
 *  (0) and takes "." as decimal point whatever the process's locale. */
double parseNumber(const QByteArray &number)
{
    std::istringstream stream(number.toStdString());
    stream.imbue(std::locale::classic());
    double value = 0.0;
    stream >> value;
    constexpr double largest = std::numeric_limits<double>::max();
    if (value == largest || value == -largest) // how a stream reports overflow
        value *= 2;
    return value;
}

} // namespace

double LeadingNumber(const QString &text)
{
    const QByteArray candidate = numberCandidate(text);
    const qsizetype start = skipSign(candidate, 0);
    qsizetype end = skipDigits(candidate, start);
    qsizetype digits = end - start;
    if (end < candidate.size() && candidate[end] == '.') {
        const qsizetype fraction = end + 1;
        end = skipDigits(candidate, fraction);
        digits += end - fraction;
    }
    if (digits == 0)
        return 0.0;
    end = skipExponent(candidate, end);
    return parseNumber(candidate.left(end));
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
