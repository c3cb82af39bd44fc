#include "common/date_text.h"
#include "controls/date_box.h"
#include "fuzzer.h"

#include <QRegularExpression>
#include <QTest>

#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

struct WrittenDate
{
    QString text;
    QString day; ///< as dd/MM/yyyy; null where the text goes beyond the calendar
};

WrittenDate randomDate(Random &random)
{
    const int dayOfMonth = random.below(34);
    const int month = random.below(15);
    const bool isShort = random.chance(2);
    const int year = isShort ? 1930 + random.below(100) : random.below(10000);
    const QDate day(year < 100 ? 0 : year, month, dayOfMonth);
    const QChar zero = u'0';
    return {u"%1/%2/%3"_s.arg(dayOfMonth, 1 + random.below(2), 10, zero)
                .arg(month, 1 + random.below(2), 10, zero)
                .arg(isShort ? year % 100 : year, isShort ? 2 : 4, 10, zero),
            day.toString(u"dd/MM/yyyy"_s)};
}

/** What the box reads once it is left; a null text when it can't be left. */
QString settled(DateBox &box)
{
    return box.settle() || box.text() == EmptyDateText ? box.text() : QString();
}

} // namespace

void FuzzDate(Random &random)
{
    auto [text, day] = randomDate(random);
    RequireSame(text, FormatData(DataDaTesto(text)), day);
    text.insert(random.below(static_cast<int>(text.size()) + 1),
                random.pick({u"/"_s, u"_"_s, u" "_s, u"-"_s, u"٣"_s, u"\n"_s}));
    RequireSame(text, FormatData(DataDaTesto(text)), {});
}

void FuzzDateBox(Random &random)
{
    DateBox box;
    const WrittenDate date = randomDate(random);
    QTest::keyClicks(&box, date.text);
    // "0" and "/" is no day either way; what counts is that it can't be left.
    RequireSame(date.text + u" typed"_s, settled(box), date.day);

    static const QRegularExpression shape(u"\\A[0-9_]{2}/[0-9_]{2}/[0-9_]{4}\\z"_s);
    for (int left = 12; left > 0; --left) {
        static constexpr std::array<Qt::Key, 11> keys = {
            Qt::Key_0,      Qt::Key_1,    Qt::Key_2,     Qt::Key_9,
            Qt::Key_Slash,  Qt::Key_Left, Qt::Key_Right, Qt::Key_Backspace,
            Qt::Key_Delete, Qt::Key_Home, Qt::Key_X};
        const Qt::Key key = keys.at(static_cast<size_t>(random.below(int(keys.size()))));
        QTest::keyClick(&box, key, random.chance(4) ? Qt::ShiftModifier : Qt::NoModifier);
        const QString day = settled(box);
        if (!shape.match(box.text()).hasMatch())
            Differ(date.text + u" and keys"_s, box.text(), u"the mask"_s);
        if (!day.isNull() && day != EmptyDateText)
            RequireSame(date.text + u" and keys"_s, day, FormatData(DataDaTesto(day)));
    }
}

} // namespace saldoro
