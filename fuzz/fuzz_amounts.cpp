#include "common/amount_text.h"
#include "common/errors.h"
#include "common/number_text.h"
#include "fuzzer.h"

#include <QRegularExpression>

#include <charconv>
#include <limits>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The value that a number without blanks and without plus sign stands for. */
double valueOf(const QByteArray &number)
{
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    // Beyond a double: whether it is too large or too small is told by its decimal magnitude.
    static const QRegularExpression parts(u"^-?([0-9]*)[.]?([0-9]*)(?:[eE]([+-]?[0-9]+))?$"_s);
    const auto match = parts.match(QString::fromLatin1(number));
    const QString digits = match.captured(1) + match.captured(2);
    qsizetype firstDigit = 0;
    while (firstDigit < digits.size() && digits[firstDigit] == u'0')
        ++firstDigit;
    bool fits = true;
    const QString exponent = match.captured(3).isEmpty() ? u"0"_s : match.captured(3);
    const qint64 written = exponent.toLongLong(&fits);
    const bool isLarge =
        fits ? written + match.capturedLength(1) - firstDigit > 0 : !exponent.startsWith(u'-');
    const double magnitude = isLarge ? std::numeric_limits<double>::infinity() : 0.0;
    return number.startsWith('-') ? -magnitude : magnitude;
}

double leadingNumber(QString text)
{
    static const QRegularExpression number(
        u"^[+-]?(?:[0-9]+[.]?[0-9]*|[.][0-9]+)(?:[eE][+-]?[0-9]+)?"_s);
    for (const char16_t blank : {u' ', u'\t', u'\n', u'\r'})
        text.remove(QChar(blank));
    QByteArray found = number.match(text).captured().toLatin1();
    if (found.startsWith('+'))
        found.remove(0, 1);
    return found.isEmpty() ? 0.0 : valueOf(found);
}

/** A count of ten-thousandths in Italian notation, by the digits of its decimal text. */
QString formatted(qint64 scaled)
{
    QString digits = QString::number(scaled);
    const bool negative = digits.startsWith(u'-');
    if (negative)
        digits.remove(0, 1);
    digits = digits.rightJustified(5, u'0');
    const bool roundsUp = digits[digits.size() - 2] >= u'5';
    digits.chop(2);
    qsizetype place = digits.size() - 1;
    for (bool carry = roundsUp; carry; --place) {
        if (place < 0) {
            digits.prepend(u'1');
            break;
        }
        carry = digits[place] == u'9';
        digits[place] = carry ? QChar(u'0') : QChar(digits[place].unicode() + 1);
    }
    QString text = u","_s + digits.right(2);
    digits.chop(2);
    for (; digits.size() > 3; digits.chop(3))
        text.prepend(u'.' + digits.right(3));
    return (negative ? u"-"_s : QString()) + digits + text;
}

/** The exact decimal rounded to ten-thousandths, ties to even; the other neighbour of a tie, which
 *  no double holds exactly, is given by @p other. */
qint64 exactly(const QString &whole, const QString &fraction, qint64 &other)
{
    const QString padded = fraction.leftJustified(4, u'0');
    const qint64 value = (whole + padded.first(4)).toLongLong();
    QString rest = padded.mid(4);
    while (rest.endsWith(u'0'))
        rest.chop(1);
    if (rest == "5"_L1) {
        other = value % 2 == 0 ? value + 1 : value;
        return value % 2 == 0 ? value : value + 1;
    }
    other = rest > "5"_L1 ? value + 1 : value;
    return other;
}

QString plainForm(const QString &text)
{
    QString result;
    bool commaSeen = false;
    for (const QChar character : text) {
        if (character == u'.')
            continue;
        const bool isPoint = character == u',' && !commaSeen;
        commaSeen = commaSeen || isPoint;
        result += isPoint ? QChar(u'.') : character;
    }
    return result;
}

} // namespace

void FuzzNumber(Random &random)
{
    static const QStringList pieces = {u"0"_s,           u"1"_s,
                                       u"5"_s,           u"9"_s,
                                       u"12"_s,          u"."_s,
                                       u"."_s,           u"-"_s,
                                       u"+"_s,           u"e"_s,
                                       u"E"_s,           u" "_s,
                                       u"\t"_s,          u"\r\n"_s,
                                       u","_s,           u"x"_s,
                                       u"٣"_s,           u"\u00a0"_s,
                                       u"e-"_s,          u"e+30"_s,
                                       u"308"_s,         u"00000000000000000000"_s,
                                       u"999999999999"_s};
    const QString text = random.text(pieces, 9);
    const double value = LeadingNumber(text);
    const double expected = leadingNumber(text);
    if (value != expected)
        Differ(text, QString::number(value, 'g', 17), QString::number(expected, 'g', 17));
}

void FuzzAmount(Random &random)
{
    // Fifteen significant digits in all: within them every decimal reaches its nearest count.
    const QString whole = random.digits(9);
    const QString fraction = random.chance(4) ? QString() : random.digits(6);
    QString text = whole;
    for (int dots = random.below(3); dots > 0; --dots)
        text.insert(random.below(static_cast<int>(text.size()) + 1), u'.');
    if (!fraction.isEmpty())
        text += u',' + fraction;
    static const QStringList tails = {QString(), u" euro"_s, u"abc"_s, u",5"_s, u"-"_s, u" €"_s};
    const bool negative = random.chance(3);
    text = (negative ? u"-"_s : QString()) + text;
    const QString &tail = random.pick(tails);
    if (!fraction.isEmpty() || !tail.startsWith(u',')) // or it would be the fraction
        text += tail;
    for (int blanks = random.below(3); blanks > 0; --blanks)
        text.insert(random.below(static_cast<int>(text.size()) + 1), u' ');
    qint64 other = 0;
    const qint64 exact = exactly(whole, fraction, other);
    QString rewritten = text;
    const qint64 read = ImportoDaTesto(rewritten).scaled() * (negative ? -1 : 1);
    if (read != exact && read != other)
        Differ(text, QString::number(read), QString::number(exact));
    RequireSame(text, rewritten, plainForm(text));

    const auto scaled = static_cast<qint64>(random.bits()) >> random.below(64);
    const Currency amount = Currency::fromScaled(scaled);
    RequireSame(QString::number(scaled), FormatImporto(amount), formatted(scaled));
    constexpr qint64 largestExact = 1LL << 51; // 225 thousand millions; beyond, a double is coarser
    const qint64 cents = scaled % largestExact / 100 * 100;
    const qint64 again = ImportoDaTesto(FormatImporto(Currency::fromScaled(cents))).scaled();
    RequireSame(u"cents "_s + QString::number(cents), QString::number(again),
                QString::number(cents));
}

} // namespace saldoro
