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
    void boxes()
    {
        QApplication::setApplicationDisplayName(u"Prova"_s);
        const QString text = u"<b>1 & 2</b>"_s; // texts from databases stand as they are
        for (const auto &[kind, key, answer, icon, buttons] :
             {std::tuple{MessageKind::Question, Qt::Key_Return, MessageAnswer::No,
                         QMessageBox::NoIcon, u"&Sì &No*"_s},
              {MessageKind::Question, Qt::Key_Escape, MessageAnswer::No, QMessageBox::NoIcon,
               u"&Sì &No*"_s},
              {MessageKind::Question, Qt::Key_S, MessageAnswer::Yes, QMessageBox::NoIcon,
               u"&Sì &No*"_s},
              {MessageKind::Information, Qt::Key_Return, MessageAnswer::Ok,
               QMessageBox::Information, u"OK*"_s},
              {MessageKind::Critical, Qt::Key_Escape, MessageAnswer::Ok, QMessageBox::Critical,
               u"OK*"_s}}) {
            QStringList looks;
            QTimer::singleShot(0, this, [&looks, key = key] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                QStringList captions;
                for (const auto *button : box->findChildren<QPushButton *>())
                    captions += button->text() + (button->isDefault() ? u"*"_s : QString());
                looks = {QString::number(box->icon()), captions.join(u' '), box->windowTitle(),
                         box->text()};
                if (box->textFormat() == Qt::PlainText &&
                    box->windowFlags() & Qt::WindowStaysOnTopHint)
                    looks += u"plain, on top"_s;
                QTest::keyClick(box, key);
            });
            QCOMPARE(ShowMessage(kind, text), answer);
            QCOMPARE(looks, (QStringList{QString::number(icon), buttons, u"Prova"_s, text,
                                         u"plain, on top"_s}));
        }
    }
};

QTEST_MAIN(TestMessageBox)
#include "test_message_box.moc"
