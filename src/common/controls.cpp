#include "common/controls.h"

#include <QShortcutEvent>

namespace saldoro {

void Describe(QWidget &control, const QString &objectName, const QString &accessibleName,
              const QString &hint)
{
    control.setObjectName(objectName);
    control.setAccessibleName(accessibleName);
    control.setAccessibleDescription(hint);
    control.setToolTip(hint);
}

PromptButton::PromptButton(const QString &objectName, const QString &caption, const QString &hint,
                           QWidget *parent)
    : QPushButton(caption, parent)
{
    Describe(*this, objectName, QString(caption).remove(u'&'), hint);
    setAutoDefault(true); // in a plain window too
}

bool PromptButton::event(QEvent *event)
{
    const bool isMnemonic =
        event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent *>(event)->isAmbiguous();
    if (!isMnemonic)
        return QPushButton::event(event);
    click();
    return true;
}

} // namespace saldoro
