#include "controls/message_box.h"

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

MessageAnswer ask(QMessageBox &box)
{
    QPushButton *yes = box.addButton(u"&Sì"_s, QMessageBox::YesRole);
    QPushButton *no = box.addButton(u"&No"_s, QMessageBox::NoRole);
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes ? MessageAnswer::Yes : MessageAnswer::No;
}

} // namespace

MessageAnswer ShowMessage(MessageKind kind, const QString &text)
{
    if (currentAnswerer())
        return currentAnswerer()(kind, text);
    const QMessageBox::Icon icon = kind == MessageKind::Critical      ? QMessageBox::Critical
                                   : kind == MessageKind::Information ? QMessageBox::Information
                                                                      : QMessageBox::NoIcon;
    QMessageBox box(icon, QApplication::applicationDisplayName(), text, QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    // The program's windows stay above others; a box below them could not be answered.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    if (kind == MessageKind::Question)
        return ask(box);
    box.addButton(QMessageBox::Ok);
    box.exec();
    return MessageAnswer::Ok;
}

MessageAnswerer ReplaceMessageBoxes(MessageAnswerer answerer)
{
    return std::exchange(currentAnswerer(), std::move(answerer));
}

} // namespace saldoro
