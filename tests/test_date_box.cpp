#include "controls/date_box.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Of the letters, A C V X are the keys with Ctrl, H E home and end, B D backspace and delete, L R
 *  the arrows and S the right arrow with Shift; other characters are typed. */
void press(QWidget &box, const QString &keys)
{
    static const QHash<QChar, QPair<Qt::Key, Qt::KeyboardModifier>> named{
        {u'A', {Qt::Key_A, Qt::ControlModifier}},    {u'C', {Qt::Key_C, Qt::ControlModifier}},
        {u'V', {Qt::Key_V, Qt::ControlModifier}},    {u'X', {Qt::Key_X, Qt::ControlModifier}},
        {u'H', {Qt::Key_Home, Qt::NoModifier}},      {u'E', {Qt::Key_End, Qt::NoModifier}},
        {u'B', {Qt::Key_Backspace, Qt::NoModifier}}, {u'D', {Qt::Key_Delete, Qt::NoModifier}},
        {u'L', {Qt::Key_Left, Qt::NoModifier}},      {u'R', {Qt::Key_Right, Qt::NoModifier}},
        {u'S', {Qt::Key_Right, Qt::ShiftModifier}}};
    for (const QChar key : keys) {
        if (const auto found = named.constFind(key); found != named.cend())
            QTest::keyClick(&box, found->first, found->second);
        else
            QTest::keyClick(&box, key.toLatin1());
    }
}

} // namespace

class TestDateBox : public QObject
{
    Q_OBJECT

private slots:
    void keys_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const QString &start, const QString &keys,
                            const QString &text) { QTest::newRow(name) << start << keys << text; };
        const QString date = u"25/12/2003"_s;
        row("no more than eight digits", {}, u"010220037"_s, u"01/02/2003"_s);
        row("short form", {}, u"1/2/03"_s, u"01/02/03__"_s);
        row("slashes written out", {}, u"12/03/2003"_s, u"12/03/2003"_s);
        row("slash before any digit", {}, u"/12"_s, u"12/__/____"_s);
        row("overtype the short way", date, u"H1/3/"_s, u"01/03/2003"_s);
        row("slash behind the second digit", date, u"HDRR/"_s, u"05/12/2003"_s);
        row("backspace over a slash", {}, u"123BB4"_s, u"14/__/____"_s);
        row("backspace in the middle", date, u"HRRRRRB0"_s, u"25/10/2003"_s);
        row("delete from the start on", date, u"HDDD3"_s, u"3_/_2/2003"_s);
        row("selection deleted", date, u"HSSSD"_s, u"__/12/2003"_s);
        row("selection typed over", date, u"A3"_s, u"3_/__/____"_s);
        row("a slash leaves the selection", date, u"A/3"_s, u"3_/__/____"_s);
        row("letters leave the selection", date, u"Ax3"_s, u"3_/__/____"_s);
        row("no date, typed over", u"non nota"_s, u"E1"_s, u"1_/__/____"_s);
        row("cut", date, u"AX"_s, u"__/__/____"_s);
        row("nearly a date", u"1/2/2003"_s, u"EB"_s, u"__/__/____"_s);
        row("nearly a date, typed over", u"1/2/2003"_s, u"A1/3"_s, u"01/3_/____"_s);
        row("the same digits again", date, u"A25/1"_s, u"25/1_/____"_s);
        row("behind empty places", u"12/__/____"_s, u"E3"_s, u"12/3_/____"_s);
    }

    void keys()
    {
        QFETCH(const QString, start);
        QFETCH(const QString, keys);
        DateBox box;
        box.setDateText(start);
        QCOMPARE(box.text(), start.isEmpty() ? u"__/__/____"_s : start);
        press(box, keys);
        QTEST(box.text(), "text");
        box.setReadOnly(true);
        press(box, u"H1/BDAXV"_s);
        QTEST(box.text(), "text");
    }

    void pasting()
    {
        const QString date = u"25/12/1999"_s;
        const QList<QStringList> pasted{{u"1/2/2003"_s, u"A"_s, u"01/02/2003"_s},
                                        {u" 01022003\n"_s, u"H"_s, u"01/02/2003"_s},
                                        {u"1/2/03"_s, u"HRRRR"_s, u"01/02/03__"_s},
                                        {u"07/0"_s, u"H"_s, u"07/02/1999"_s},
                                        {u"1 gennaio"_s, u"A"_s, date},
                                        {u"30/12/1999"_s, u"A"_s, u"30/12/1999"_s}};
        for (const QStringList &row : pasted) {
            QGuiApplication::clipboard()->setText(row.at(0));
            DateBox box;
            box.setDateText(date);
            press(box, row.at(1) + u'V');
            QCOMPARE(box.text(), row.at(2));
        }
    }

    void settling()
    {
        const QString refused; // the box must not be left
        const QList<QPair<QString, QString>> settlings{
            {u"__/__/____"_s, u"__/__/____"_s}, {u"29/02/2004"_s, u"29/02/2004"_s},
            {u"01/02/03__"_s, u"01/02/2003"_s}, {u"01/02/200_"_s, refused},
            {u"_1/02/2003"_s, refused},         {u"29/02/2003"_s, refused},
            {u"1/2/2003"_s, u"01/02/2003"_s}};
        for (const auto &[shown, settled] : settlings) {
            DateBox box;
            box.setDateText(shown);
            QCOMPARE(box.settle(), !settled.isEmpty());
            QCOMPARE(box.text(), settled.isEmpty() ? shown : settled);
        }
    }

    void aClickBehindTheTextGoesOnWithIt()
    {
        DateBox box;
        box.setDateText(u"12/__/____"_s);
        box.resize(200, box.sizeHint().height());
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(190, box.height() / 2));
        press(box, u"3"_s);
        QCOMPARE(box.text(), u"12/3_/____"_s);
        press(box, u"1"_s);
        QCOMPARE(box.cursorPosition(), 6); // the slash is passed over
    }
};

QTEST_MAIN(TestDateBox)
#include "test_date_box.moc"
