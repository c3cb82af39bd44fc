#include "controls/message_box.h"

#include "controls/enter_and_held_keys.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

MessageAnswerer &currentAnswerer()
{
    static MessageAnswerer answerer;
    return answerer;
}

} // namespace

bool ShowMessage(MessageKind kind, const QString &text)
{
    if (currentAnswerer())
        return currentAnswerer()(kind, text);
    WatchKeyPresses(); // of which a box gets none that is held down
    const bool isQuestion = kind == MessageKind::Question;
    const QMessageBox::Icon icon = isQuestion                      ? QMessageBox::NoIcon
                                   : kind == MessageKind::Critical ? QMessageBox::Critical
                                                                   : QMessageBox::Information;
    QMessageBox box(icon, QApplication::applicationDisplayName(), text,
                    isQuestion ? QMessageBox::NoButton : QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    // The program's windows stay above others; a box below them could not be answered.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    const QPushButton *yes = nullptr;
    if (isQuestion) {
        yes = box.addButton(u"&Sì"_s, QMessageBox::YesRole);
        QPushButton *no = box.addButton(u"&No"_s, QMessageBox::NoRole);
        box.setDefaultButton(no);
        box.setEscapeButton(no);
    }
    box.exec();
    return isQuestion && box.clickedButton() == yes;
}

bool ChiediConferma(const QString &question)
{
    return ShowMessage(MessageKind::Question, question);
}

MessageAnswerer ReplaceMessageBoxes(MessageAnswerer answerer)
{
    return std::exchange(currentAnswerer(), std::move(answerer));
}

} // namespace saldoro
