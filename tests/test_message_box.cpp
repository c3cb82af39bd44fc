#include "common/message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace saldoro;
using namespace Qt::StringLiterals;

/** The real boxes, answered by keys. */
class TestMessageBox : public QObject
{
    Q_OBJECT

private slots:
    void boxes_data()
    {
        QTest::addColumn<MessageKind>("kind");
        QTest::addColumn<QString>("look");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<MessageAnswer>("answer");
        const auto row = [](const char *name, MessageKind kind, Qt::Key key, MessageAnswer answer) {
            const QString look = kind == MessageKind::Information ? u"information OK OK"_s
                                 : kind == MessageKind::Critical  ? u"stop OK OK"_s
                                                                  : u"&Sì&No &No"_s;
            QTest::newRow(name) << kind << look << key << answer;
        };
        row("No is preset", MessageKind::Question, Qt::Key_Return, MessageAnswer::No);
        row("the way out is No", MessageKind::Question, Qt::Key_Escape, MessageAnswer::No);
        row("Yes by its letter", MessageKind::Question, Qt::Key_S, MessageAnswer::Yes);
        row("a remark", MessageKind::Information, Qt::Key_Return, MessageAnswer::Ok);
        row("an error", MessageKind::Critical, Qt::Key_Escape, MessageAnswer::Ok);
    }

    void boxes()
    {
        QFETCH(const MessageKind, kind);
        QFETCH(const Qt::Key, key);
        QApplication::setApplicationDisplayName(u"Prova"_s);
        const QString text = u"<b>1 & 2</b>"_s; // texts from databases stand as they are
        QString look;
        QString shown;
        QTimer::singleShot(0, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            look = lookOf(*box);
            shown = box->windowTitle() + u'|' + box->text();
            shown += box->textFormat() == Qt::PlainText ? u"|plain"_s : u"|formatted"_s;
            shown += box->windowFlags() & Qt::WindowStaysOnTopHint ? u"|on top"_s : u"|below"_s;
            QTest::keyClick(box, key);
        });
        const MessageAnswer answer = ShowMessage(kind, text);
        QTEST(look, "look");
        QCOMPARE(shown, u"Prova|%1|plain|on top"_s.arg(text));
        QTEST(answer, "answer");
    }

private:
    /** Sign, captions of the buttons, caption of the preset one. */
    static QString lookOf(const QMessageBox &box)
    {
        static const QHash<QMessageBox::Icon, QString> signs{
            {QMessageBox::Information, u"information "_s}, {QMessageBox::Critical, u"stop "_s}};
        QString look = signs.value(box.icon());
        const QPushButton *preset = nullptr;
        for (const auto *button : box.findChildren<QPushButton *>()) {
            look += button->text();
            preset = button->isDefault() ? button : preset;
        }
        return look + u' ' + (preset ? preset->text() : QString());
    }
};

QTEST_MAIN(TestMessageBox)
#include "test_message_box.moc"
