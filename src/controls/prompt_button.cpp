#include "controls/prompt_button.h"

#include "controls/enter_and_held_keys.h"
#include "controls/screen_reader.h"

#include <QKeyEvent>
#include <QShortcut>

namespace saldoro {

PromptButton::PromptButton(const QString &objectName, const QString &caption, const QString &hint,
                           QWidget *parent)
    : QPushButton(caption, parent)
{
    Describe(*this, objectName, caption, hint);
    setAutoDefault(true); // in a plain window too
    setShortcut({});      // the button's own one would show itself pressed, and repeat
    auto *mnemonic = new QShortcut(QKeySequence::mnemonic(caption), this);
    connect(mnemonic, &QShortcut::activated, this, [this] {
        if (!IsKeyHeld())
            click();
    });
}

// A screen reader's press is no event that the toolkit could hold back. It would destroy the form
// that is waiting for an answer, or act a second time.
bool PromptButton::event(QEvent *event)
{
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked)
        blockSignals(event->type() == QEvent::WindowBlocked);
    return QPushButton::event(event);
}

void PromptButton::keyPressEvent(QKeyEvent *event)
{
    if (!IsEnter(*event) || !IsKeyHeld())
        QPushButton::keyPressEvent(event);
}

} // namespace saldoro
