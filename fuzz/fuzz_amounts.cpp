#include "common/amount_text.h"
#include "fuzzer.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A count of ten-thousandths in Italian notation, to four decimals and ungrouped. */
QString written(qint64 scaled)
{
    QString digits = QString::number(scaled);
    const bool isNegative = digits.startsWith(u'-');
    digits = digits.mid(isNegative ? 1 : 0).rightJustified(5, u'0');
    return (isNegative ? u"-"_s : QString()) + digits.chopped(4) + u',' + digits.right(4);
}

/** The same to two decimals, half away from zero, and grouped: all by the digits of the text. */
QString shown(qint64 scaled)
{
    QString digits = written(scaled).remove(u',').remove(u'-');
    const bool roundsUp = digits[digits.size() - 2] >= u'5';
    digits.chop(2);
    for (qsizetype place = digits.size() - 1; roundsUp; --place) {
        if (place < 0) {
            digits.prepend(u'1');
            break;
        }
        const bool isNine = digits[place] == u'9';
        digits[place] = isNine ? QChar(u'0') : QChar(digits[place].unicode() + 1);
        if (!isNine)
            break;
    }
    digits.insert(digits.size() - 2, u',');
    for (qsizetype place = digits.size() - 6; place > 0; place -= 3)
        digits.insert(place, u'.');
    return (scaled < 0 ? u"-"_s : QString()) + digits;
}

void insertSome(QString &text, QChar character, Random &random)
{
    for (int count = random.below(3); count > 0; --count)
        text.insert(random.below(static_cast<int>(text.size()) + 1), character);
}

} // namespace

void FuzzAmount(Random &random)
{
    const auto any = static_cast<qint64>(random.bits()) >> random.below(64);
    RequireSame(QString::number(any), FormatImporto(Currency::fromScaled(any)), shown(any));

    // Fifteen significant digits: within them every amount has a floating number of its own.
    const qint64 scaled = any % 1'000'000'000'000'000;
    static const QStringList tails = {QString(), u" euro"_s, u"abc"_s, u",5"_s, u"-"_s, u" €"_s};
    QString text = written(scaled) + random.pick(tails);
    insertSome(text, u'.', random);
    insertSome(text, u' ', random);
    QString plain = QString(text).remove(u'.');
    plain[plain.indexOf(u',')] = u'.';
    QString rewritten = text;
    RequireSame(text, QString::number(ImportoDaTesto(rewritten).scaled()), QString::number(scaled));
    RequireSame(text, rewritten, plain);
}

} // namespace saldoro
