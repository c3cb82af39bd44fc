#include "app/application.h"
#include "controls/window_placement.h"
#include "manual_probe.h"
#include "open_program.h"

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

/** Asks a window to close as its frame does. */
void askToClose(const QWidget &window, int = 0)
{
    QCloseEvent event;
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}

/** Grants the second request to close, or takes a while over each. */
class SlowWindow : public QWidget
{
public:
    int asked = 0;
    int slowness = 0;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        event->setAccepted(++asked > 1);
        QTest::qSleep(slowness);
    }
};

} // namespace

/** What passes from one window to another, and what a window keeps. */
class TestFormWindows : public QObject
{
    Q_OBJECT

private slots:
    /** A window that stays open may be asked again at once; how long it takes to close is no time
     *  that the clerk has had. */
    void closingIsAskedOfOneWindow()
    {
        constexpr int interval = 1000;
        QApplication::setDoubleClickInterval(interval);
        const OpenProgram program; // which watches
        SlowWindow first;
        SlowWindow second;
        first.show();
        second.show();
        askToClose(first);
        QVERIFY(first.isVisible());
        first.slowness = interval + 100;
        askToClose(first);
        QVERIFY(!first.isVisible());
        QCoreApplication::processEvents();
        askToClose(second);
        QCOMPARE(second.asked, 0);
        QTest::qWait(interval + 100);
    }

    /** The rest of a double click, a second Alt+C and a second closing by the window's frame do
     *  nothing to the form beneath; a press of its own does. */
    void whatBeginsOnOneWindowEndsThere()
    {
        constexpr int interval = 1500; // real time for the frame: enough for a slow machine
        QApplication::setDoubleClickInterval(interval);
        const auto press = [](const QWidget &form, const QString &name, int time) {
            const QWidget *button = Find(form, name);
            const QPoint place = button->mapTo(&form, button->rect().center());
            for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
                qt_handleMouseEvent(form.windowHandle(), place, form.mapToGlobal(place),
                                    type == QEvent::MouseButtonPress ? Qt::LeftButton
                                                                     : Qt::NoButton,
                                    Qt::LeftButton, type, {}, time);
        };
        const auto alt = [](const QWidget &form, Qt::Key key) {
            for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease})
                qt_handleKeyEvent(form.windowHandle(), kind, key, Qt::AltModifier);
        };
        const auto type = [&](const QWidget &form, int) { alt(form, Qt::Key_C); };
        const auto click = [&](const QWidget &form, int time) { press(form, u"Command2"_s, time); };
        int time = 100'000;
        using Act = std::function<void(const QWidget &, int)>;
        for (const auto &[act, next] : QList<std::pair<Act, Act>>{
                 {click, click}, {askToClose, click}, {type, type}, {askToClose, askToClose}}) {
            OpenProgram program;
            program.modify(1);
            QVERIFY(QTest::qWaitForWindowActive(program.company()));
            act(*program.company(), time);
            QTRY_COMPARE(program.company(), nullptr);
            next(program.main, time + 150);
            QVERIFY(program.main.isVisible());
            QTest::qWait(interval + 500);
            next(program.main, time += 2 * interval);
            time += 2 * interval;
            QVERIFY(!program.main.isVisible());
        }
        QTest::qWait(interval + 100);
        OpenProgram program;
        program.modify(1);
        QVERIFY(QTest::qWaitForWindowActive(program.company()));
        alt(*program.company(), Qt::Key_C);
        QTRY_COMPARE(program.company(), nullptr);
        QVERIFY(QTest::qWaitForWindowActive(&program.main));
        alt(program.main, Qt::Key_N); // another key is no rest of it
        QTRY_COMPARE(program.told().right(5), u"new 4"_s);
    }

    /** F1 shows the manual at the chapter of the form, above it, until Esc. */
    void manual()
    {
        OpenProgram program;
        CheckManual(program.main, u"F1"_s, u"La schermata principale"_s);
        program.modify(1);
        CheckManual(*program.company(), u"F1"_s, u"Pagamento a un'azienda"_s);
        program.modify(2);
        CheckManual(*program.forms.invoiceForm(CreditorKind::Professional), u"F1"_s,
                    u"Pagamento a un professionista"_s);
    }

    void windowsKeepTheirSizes()
    {
        const QTemporaryDir folder;
        KeepWindowSizes(folder.filePath(u"finestre.ini"_s));
        // The last one, in which the form opens, is left and comes back.
        for (const QSize size : {QSize(710, 510), QSize(720, 520), QSize(720, 520)}) {
            OpenProgram program;
            for (const QSize left : {QSize(730, 530), size}) {
                program.modify(1);
                program.company()->resize(left);
                Play(program.company(), u"click Command2"_s);
            }
            program.modify(1);
            QCOMPARE(program.company()->size(), size);
            program.company()->showMaximized(); // which is no size of its own
        }
        KeepWindowSizes({});
    }

    /** An open form comes to the front with its own payment, whatever has been asked for. */
    void eachKindOpensOnce()
    {
        OpenProgram program;
        program.modify(1);
        program.modify(2);
        InvoiceForm *const first = program.company();
        Play(first, u"to Text1_0, type !"_s);
        first->showMinimized();
        program.modify(3);
        QCOMPARE(program.told(), u"A 1 P 2"_s);
        QVERIFY(QTest::qWaitForWindowActive(first));
        QVERIFY(!first->isMinimized());
        QTRY_VERIFY(Find(*first, u"Avvisi"_s)->accessibleName().contains(u"1, non il 3"_s));

        Play(first, u"click Command1"_s); // saves, though payment 3 is current
        QCOMPARE(program.list.text(1, 1), u"!Edil Valle"_s);
        QCOMPARE(program.takeDocuments(), 5);
        program.messages.clear();
        program.modify(3);
        QCOMPARE(program.told(), u"A 3 P 2"_s);
    }
};

int main(int argc, char *argv[])
{
    Application application(argc, argv);
    TestFormWindows test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_form_windows.moc"
