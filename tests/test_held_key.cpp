#include "controls/enter_and_held_keys.h"
#include "controls/prompt_button.h"

#include <QSignalSpy>
#include <QTest>

using namespace saldoro;
using namespace Qt::StringLiterals;

class TestHeldKey : public QObject
{
    Q_OBJECT

private slots:
    /** What a window system tells of keys, one event a word: P or p for a press with or without its
     *  mark of a repetition, R or r for a release, T for Tab pressed by the program; then the time.
     *  Each press that is told for a repetition ends in "!". */
    void repetitions()
    {
        for (const QString &told :
             {u"p10 r20 p30"_s, u"p10 R600 P600! R640 P640! r650 p660"_s,
              u"p10 R600 P601! R640 P641!"_s, u"p10 r600 p600! R640 P640! r680 p680!"_s,
              u"p10 r600 p600! r9000 p9000!"_s, u"p10 p10 R600 R600 P600! P600!"_s,
              u"p10 R600 P600! P5000 P5000 r5010 p5020"_s, u"p10 R600 P600! R5000 P5000!"_s,
              u"p10 T0 r600 p600! T0 R640 P640!"_s, u"p10 P600! P640! r650 p660"_s,
              u"p0 P0! P0! r0 p0"_s, u"p0 r0 p0"_s})
            QCOMPARE(heard(told), told);
    }

    /** By its mnemonic or by Enter, a button acts once however long the key is held down. */
    void buttons()
    {
        PromptButton button(u"Command1"_s, u"&Conferma"_s, {});
        button.show();
        QVERIFY(QTest::qWaitForWindowActive(&button));
        const QSignalSpy clicked(&button, &QPushButton::clicked);
        const auto hold = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
            QTest::keyPress(&button, key, modifiers);
            for (const bool press : {false, true, false, true})
                QTest::simulateEvent(&button, press, key, modifiers, {}, true);
            QTest::keyRelease(&button, key, modifiers);
        };
        hold(Qt::Key_Return, {});
        QCOMPARE(clicked.count(), 1);
        hold(Qt::Key_C, Qt::AltModifier);
        QCOMPARE(clicked.count(), 2);
    }

private:
    QString heard(const QString &told)
    {
        QWidget window;
        QStringList heard;
        for (const QString &word : told.split(u' ')) {
            const QString plain = QString(word).remove(u'!');
            const QChar kind = plain.front();
            const bool isRelease = kind.toLower() == u'r';
            QKeyEvent event(isRelease ? QEvent::KeyRelease : QEvent::KeyPress,
                            kind == u'T' ? Qt::Key_Tab : Qt::Key_Return, {}, {}, kind.isUpper());
            event.setTimestamp(plain.mid(1).toULongLong());
            QCoreApplication::sendEvent(&window, &event);
            heard += !isRelease && IsKeyHeld() ? plain + u'!' : plain;
        }
        return heard.join(u' ');
    }
};

QTEST_MAIN(TestHeldKey)
#include "test_held_key.moc"
