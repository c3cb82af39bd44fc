#include "common/date_text.h"
#include "controls/date_box.h"
#include "fuzzer.h"

#include <QRegularExpression>
#include <QTest>

#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** dd/MM/yyyy of the day that is written, or a null text when there is none. */
QString dayOf(const QString &text)
{
    static const QRegularExpression shape(u"\\A([0-9]{1,2})/([0-9]{1,2})/([0-9]{2}|[0-9]{4})\\z"_s);
    const auto match = shape.match(text);
    if (!match.hasMatch())
        return {};
    const int day = match.captured(1).toInt();
    const int month = match.captured(2).toInt();
    int year = match.captured(3).toInt();
    if (match.capturedLength(3) == 2)
        year += year < 30 ? 2000 : 1900;
    if (year < 100 || !QDate::isValid(year, month, day))
        return {};
    const auto padded = [](int number, int width) {
        return QString::number(number).rightJustified(width, u'0');
    };
    return padded(day, 2) + u'/' + padded(month, 2) + u'/' + padded(year, 4);
}

/** One or two digits of a day or month, now and then beyond the calendar. */
QString smallNumber(Random &random, int most)
{
    const QString number = QString::number(random.below(most + 3));
    return random.chance(2) ? number.rightJustified(2, u'0') : number;
}

/** What the box reads once it is left; a null text when it can't be left. */
QString settled(DateBox &box)
{
    return box.settle() || box.text() == EmptyDateText ? box.text() : QString();
}

QString randomDate(Random &random)
{
    QString year = random.digits(4);
    if (random.chance(2))
        year = random.pick({u"2000"_s, u"1900"_s, u"2004"_s, u"29"_s, u"30"_s, u"0099"_s});
    return smallNumber(random, 31) + u'/' + smallNumber(random, 12) + u'/' + year;
}

} // namespace

void FuzzDate(Random &random)
{
    static const QStringList noise = {u"/"_s, u"_"_s, u" "_s, u"3"_s, u"-"_s, u"٣"_s, u"\n"_s};
    QString text = randomDate(random);
    for (int changes = random.below(3); changes > 0; --changes)
        text.insert(random.below(static_cast<int>(text.size()) + 1), random.pick(noise));
    RequireSame(text, FormatData(DataDaTesto(text)), dayOf(text));
}

void FuzzDateBox(Random &random)
{
    DateBox box;
    const QString date = randomDate(random);
    QTest::keyClicks(&box, date);
    // "0" and "/" is no day either way; what counts is that it can't be left.
    const QString year = date.section(u'/', 2);
    const QString expected = year.size() == 2 || year.size() == 4 ? dayOf(date) : QString();
    RequireSame(date + u" typed"_s, settled(box), expected);

    QString keys = date;
    static const QRegularExpression shape(u"\\A[0-9_]{2}/[0-9_]{2}/[0-9_]{4}\\z"_s);
    for (int key = 0; key < 12; ++key) {
        static constexpr std::array<Qt::Key, 11> every = {
            Qt::Key_0,      Qt::Key_1,    Qt::Key_2,     Qt::Key_9,
            Qt::Key_Slash,  Qt::Key_Left, Qt::Key_Right, Qt::Key_Backspace,
            Qt::Key_Delete, Qt::Key_Home, Qt::Key_X};
        const Qt::Key one = every.at(static_cast<size_t>(random.below(int(every.size()))));
        QTest::keyClick(&box, one, random.chance(4) ? Qt::ShiftModifier : Qt::NoModifier);
        keys += u' ' + QString::number(int(one), 16);
        const QString left = settled(box);
        const bool isSound = left.isNull() || left == EmptyDateText || dayOf(left) == left;
        if (!shape.match(box.text()).hasMatch() || !isSound)
            Differ(keys, box.text() + u" as "_s + left, u"a mask and a day"_s);
    }
}

} // namespace saldoro
