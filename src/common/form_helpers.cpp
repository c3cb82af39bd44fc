#include "common/form_helpers.h"

#include "common/message_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWidget>

namespace saldoro {

int TwipsToPixels(int twips, const QWidget &widget)
{
    constexpr int twipsPerInch = 1440;
    return twips * widget.logicalDpiX() / twipsPerInch;
}

void SetTopMost(QWidget &window)
{
    window.setWindowFlag(Qt::WindowStaysOnTopHint);
    window.move(0, 0);
}

void CentraForm(QWidget &form)
{
    const QRect screen = form.screen()->geometry();
    const QSize size = form.frameGeometry().size();
    form.move(screen.x() + screen.width() / 2 - size.width() / 2,
              screen.y() + screen.height() / 2 - size.height() / 2);
}

int InvioTab(int keyCode)
{
    if (keyCode != EnterKeyCode)
        return keyCode;
    // Posted, not sent: the focus may change only after the handler of the Enter key is done.
    if (QWidget *target = QApplication::focusWidget()) {
        QCoreApplication::postEvent(target,
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier));
        QCoreApplication::postEvent(target,
                                    new QKeyEvent(QEvent::KeyRelease, Qt::Key_Tab, Qt::NoModifier));
    }
    return 0;
}

bool ChiediConferma(const QString &question)
{
    return ShowMessage(MessageKind::Question, question) == MessageAnswer::Yes;
}

} // namespace saldoro
