#include "controls/window_placement.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Moving a maximised window would push it off the screen and lose the place it goes back to. */
bool fillsTheScreen(const QWidget &form)
{
    return form.isMaximized() || form.isFullScreen();
}

void centre(QWidget &form)
{
    if (fillsTheScreen(form))
        return;
    const QRect screen = form.screen()->geometry();
    const QSize size = form.frameGeometry().size();
    // The halves themselves are not rounded, only the place that comes out.
    form.move(screen.x() + qRound((screen.width() - size.width()) / 2.0),
              screen.y() + qRound((screen.height() - size.height()) / 2.0));
}

/** Centres a form when it becomes active for the first time, the window system having framed it
 *  by then; goes away with that. */
class FrameAwaiter : public QObject
{
public:
    explicit FrameAwaiter(QWidget &form)
        : QObject(&form)
        , m_form(form)
    {
        form.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::WindowActivate) {
            m_form.removeEventFilter(this);
            deleteLater();
            centre(m_form);
        }
        return false;
    }

private:
    QWidget &m_form;
};

} // namespace

int TwipsToPixels(int twips, const QWidget &widget)
{
    constexpr int twipsPerInch = 1440;
    return twips * widget.logicalDpiX() / twipsPerInch;
}

void SetTopMost(QWidget &window)
{
    window.setWindowFlag(Qt::WindowStaysOnTopHint);
    if (!fillsTheScreen(window))
        window.move(0, 0);
}

void CentraForm(QWidget &form)
{
    centre(form);
    if (!form.isVisible())
        new FrameAwaiter(form);
}

void BringToFront(QWidget &form)
{
    // To the toolkit a minimised window counts as shown, and raising does not bring it back.
    form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
    // There no window may come to the front by itself, but one that is shown does.
    if (form.isVisible() && QGuiApplication::platformName().startsWith("wayland"_L1))
        form.hide();
    form.show();
    form.raise();
    form.activateWindow();
}

} // namespace saldoro
