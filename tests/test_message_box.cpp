#include "controls/enter_and_held_keys.h"
#include "controls/message_box.h"
#include "controls/prompt_button.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The real boxes, answered by keys. */
class TestMessageBox : public QObject
{
    Q_OBJECT

private slots:
    /** A key that was down before the box came answers nothing until it is pressed again. */
    void heldKeys()
    {
        QWidget form;
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        const auto press = [](QWindow *window, Qt::Key key, bool again) {
            qt_handleKeyEvent(window, QEvent::KeyPress, key, {}, {}, again);
        };
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_S, Qt::Key_Escape}) {
            bool isOpen = false;
            QTimer::singleShot(50, this, [&] {
                QWidget *box = QApplication::activeModalWidget();
                press(box->windowHandle(), key, true);
                press(box->windowHandle(), key, true);
                isOpen = box->isVisible();
                qt_handleKeyEvent(box->windowHandle(), QEvent::KeyRelease, key, {});
                QTest::qWait(5); // a press of the same moment would be a repetition
                press(box->windowHandle(), key, false);
            });
            press(form.windowHandle(), key, false);
            QCOMPARE(ShowMessage(MessageKind::Question, u"?"_s), key == Qt::Key_S);
            QVERIFY(isOpen);
        }
    }

    /** A screen reader's press, which is no input of the window system. */
    void pressBehindABox()
    {
        QWidget form;
        PromptButton button(u"Command2"_s, u"&Annulla"_s, {}, &form);
        const QSignalSpy presses(&button, &QPushButton::clicked);
        form.show();
        QTimer::singleShot(0, this, [&] {
            button.click();
            QApplication::activeModalWidget()->close();
        });
        ShowMessage(MessageKind::Question, u"?"_s);
        QCOMPARE(presses.count(), 0);
        button.click();
        QCOMPARE(presses.count(), 1);
    }

    void boxes()
    {
        QApplication::setApplicationDisplayName(u"Prova"_s);
        const QString text = u"<b>1 & 2</b>"_s; // texts from databases stand as they are
        for (const auto &[kind, key, answer, look] :
             {std::tuple{MessageKind::Question, Qt::Key_Return, false, u"0 &Sì &No*"_s},
              {MessageKind::Question, Qt::Key_Escape, false, u"0 &Sì &No*"_s},
              {MessageKind::Question, Qt::Key_S, true, u"0 &Sì &No*"_s},
              {MessageKind::Information, Qt::Key_Return, false, u"1 OK*"_s},
              {MessageKind::Critical, Qt::Key_Escape, false, u"3 OK*"_s}}) {
            QStringList seen;
            QTimer::singleShot(0, this, [&seen, key = key] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                seen = {box->windowTitle(), box->text(), QString::number(box->icon())};
                for (const auto *button : box->findChildren<QPushButton *>())
                    seen += button->text() + (button->isDefault() ? u"*"_s : QString());
                if (box->textFormat() == Qt::PlainText &&
                    box->windowFlags() & Qt::WindowStaysOnTopHint)
                    seen += u"plain, on top"_s;
                QTest::keyClick(box, key);
            });
            QCOMPARE(ShowMessage(kind, text), answer);
            QCOMPARE(seen.join(u' '), u"Prova %1 %2 plain, on top"_s.arg(text, look));
        }
    }
};

QTEST_MAIN(TestMessageBox)
#include "test_message_box.moc"
