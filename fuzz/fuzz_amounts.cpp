#include "common/amount_text.h"
#include "fuzzer.h"

#include <QRegularExpression>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A count of ten-thousandths in Italian notation, to four decimals and ungrouped. */
QString written(qint64 scaled)
{
    const QString digits = QString::number(scaled).remove(u'-').rightJustified(5, u'0');
    return (scaled < 0 ? u"-"_s : QString()) + digits.chopped(4) + u',' + digits.right(4);
}

/** The same to two decimals, half away from zero, and grouped. */
QString shown(qint64 scaled)
{
    static const QRegularExpression groupEnd(u"\\B(?=([0-9]{3})+,)"_s);
    const quint64 magnitude = scaled < 0 ? -static_cast<quint64>(scaled) : quint64(scaled);
    QString text = QString::number((magnitude + 50) / 100).rightJustified(3, u'0');
    text.insert(text.size() - 2, u',');
    return (scaled < 0 ? u"-"_s : QString()) + text.replace(groupEnd, u"."_s);
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
