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

void PromptButton::keyPressEvent(QKeyEvent *event)
{
    if (!IsEnter(*event) || !IsKeyHeld())
        QPushButton::keyPressEvent(event);
}

} // namespace saldoro
