#include "controls/message_box.h"

#include "controls/held_key.h"

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

/** A box takes no key that is held down since before it came: it would be answered unread. */
class HeldKeysAside : public QObject
{
public:
    explicit HeldKeysAside(QMessageBox &box)
    {
        WatchHeldKeys();
        box.installEventFilter(this);
        for (QAbstractButton *button : box.buttons())
            button->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        const bool isKey =
            event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
        if (!isKey || !IsKeyHeld())
            return false;
        event->accept(); // or its shortcut would be tried
        return true;
    }
};

MessageAnswer ask(QMessageBox &box)
{
    QPushButton *yes = box.addButton(u"&Sì"_s, QMessageBox::YesRole);
    QPushButton *no = box.addButton(u"&No"_s, QMessageBox::NoRole);
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    const HeldKeysAside heldKeys(box);
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
    const HeldKeysAside heldKeys(box);
    box.exec();
    return MessageAnswer::Ok;
}

bool ChiediConferma(const QString &question)
{
    return ShowMessage(MessageKind::Question, question) == MessageAnswer::Yes;
}

MessageAnswerer ReplaceMessageBoxes(MessageAnswerer answerer)
{
    return std::exchange(currentAnswerer(), std::move(answerer));
}

} // namespace saldoro
