#include "controls/date_box.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Of the letters, A V X are the keys with Ctrl, H E home and end, B D backspace and delete, R the
 *  right arrow and S the same with Shift; other characters are typed. */
void press(QWidget &box, const QString &keys)
{
    static const QHash<QChar, QPair<Qt::Key, Qt::KeyboardModifier>> named{
        {u'A', {Qt::Key_A, Qt::ControlModifier}},  {u'V', {Qt::Key_V, Qt::ControlModifier}},
        {u'X', {Qt::Key_X, Qt::ControlModifier}},  {u'H', {Qt::Key_Home, Qt::NoModifier}},
        {u'E', {Qt::Key_End, Qt::NoModifier}},     {u'B', {Qt::Key_Backspace, Qt::NoModifier}},
        {u'D', {Qt::Key_Delete, Qt::NoModifier}},  {u'R', {Qt::Key_Right, Qt::NoModifier}},
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
    void keys()
    {
        const QString date = u"25/12/2003"_s;
        for (const auto &[start, keys, text] : QList<std::tuple<QString, QString, QString>>{
                 {{}, u"010220037"_s, u"01/02/2003"_s},
                 {{}, u"1/2/03"_s, u"01/02/03__"_s},
                 {{}, u"12/03/2003"_s, u"12/03/2003"_s},
                 {{}, u"/12"_s, u"12/__/____"_s},
                 {date, u"H1/3/"_s, u"01/03/2003"_s},
                 {date, u"HDRR/"_s, u"05/12/2003"_s},
                 {{}, u"123BB4"_s, u"14/__/____"_s},
                 {date, u"HRRRRRB0"_s, u"25/10/2003"_s},
                 {date, u"HDDD3"_s, u"3_/_2/2003"_s},
                 {date, u"HSSSD"_s, u"__/12/2003"_s},
                 {date, u"A3"_s, u"3_/__/____"_s},
                 {date, u"A/"_s, date},
                 {date, u"Ax3"_s, u"3_/__/____"_s},
                 {u"non nota"_s, u"E1"_s, u"1_/__/____"_s},
                 {date, u"AX"_s, u"__/__/____"_s},
                 {u"1/2/2003"_s, u"EB"_s, u"__/__/____"_s},
                 {u"1/2/2003"_s, u"A1/3"_s, u"01/3_/____"_s},
                 {date, u"A25/1"_s, u"25/1_/____"_s},
                 {u"12/__/____"_s, u"E3"_s, u"12/3_/____"_s}}) {
            DateBox box;
            box.setDateText(start);
            QCOMPARE(box.text(), start.isEmpty() ? u"__/__/____"_s : start);
            press(box, keys);
            QCOMPARE(keys + u": "_s + box.text(), keys + u": "_s + text);
            box.setReadOnly(true);
            press(box, u"H1/BDAXV"_s);
            QCOMPARE(box.text(), text);
        }
    }

    void pasting()
    {
        const QString date = u"25/12/1999"_s;
        const QList<QStringList> pasted{{u"1/2/2003"_s, u"A"_s, u"01/02/2003"_s},
                                        {u" 01022003\n"_s, u"H"_s, u"01/02/2003"_s},
                                        {u"1/2/03"_s, u"HRRRR"_s, u"01/02/03__"_s},
                                        {u"07/0"_s, u"H"_s, u"07/02/1999"_s},
                                        {u"1 gennaio"_s, u"A"_s, date},
                                        {u" \n"_s, u"A"_s, date},
                                        {u"/"_s, u"A"_s, date},
                                        {QString(), u"A"_s, date},
                                        {u"30/12/1999"_s, u"A"_s, u"30/12/1999"_s}};
        for (const QStringList &row : pasted) {
            QGuiApplication::clipboard()->setText(row.at(0));
            DateBox box;
            box.setDateText(date);
            press(box, row.at(1) + u'V');
            QCOMPARE(box.text(), row.at(2));
        }
    }

    void screenKeyboard()
    {
        DateBox box;
        for (const QChar digit : u"01022003"_s) {
            QInputMethodEvent event;
            event.setCommitString(digit);
            QCoreApplication::sendEvent(&box, &event);
        }
        QCOMPARE(box.text(), u"01/02/2003"_s);
    }

    void clickBeyondAComposedLetter()
    {
        DateBox box;
        box.setDateText(u"01/02/1___"_s);
        box.show();
        QInputMethodEvent composing(u"´"_s, {});
        QCoreApplication::sendEvent(&box, &composing);
        QTest::mouseClick(&box, Qt::LeftButton, {}, box.rect().center() + QPoint(300, 0));
        QTest::keyClick(&box, Qt::Key_9);
        QCOMPARE(box.text(), u"01/02/19__"_s);
    }

    void settling()
    {
        for (const auto &[shown, settled] : // nothing where the box must not be left
             {std::pair{u"__/__/____"_s, u"__/__/____"_s},
              {u"29/02/2004"_s, u"29/02/2004"_s},
              {u"01/02/03__"_s, u"01/02/2003"_s},
              {u"01/02/200_"_s, QString()},
              {u"_1/02/2003"_s, QString()},
              {u"1/2/2003"_s, u"01/02/2003"_s}}) {
            DateBox box;
            box.setDateText(shown);
            QCOMPARE(box.settle() ? box.text() : QString(), settled);
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
