#include "controls/window_placement.h"

#include "platform/registry.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <QWidget>

#include <functional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Acts on each event of a type that a window gets. */
class WindowWatcher : public QObject
{
public:
    using Action = std::function<void(const QEvent &event)>;

    WindowWatcher(QWidget &window, QEvent::Type type, Action action)
        : QObject(&window)
        , m_type(type)
        , m_action(std::move(action))
    {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == m_type)
            m_action(*event);
        return false;
    }

private:
    QEvent::Type m_type;
    Action m_action;
};

QString &sizesFile()
{
    static QString fileName;
    return fileName;
}

bool fillsTheScreen(const QWidget &form)
{
    return form.isMaximized() || form.isFullScreen();
}

void centre(QWidget &form)
{
    if (fillsTheScreen(form)) // it would leave the screen and lose the place it goes back to
        return;
    const QRect screen = form.screen()->geometry();
    const QSize size = form.frameGeometry().size();
    // The halves themselves are not rounded, only the place that comes out.
    form.move(screen.x() + qRound((screen.width() - size.width()) / 2.0),
              screen.y() + qRound((screen.height() - size.height()) / 2.0));
}

} // namespace

int TwipsToPixels(int twips, const QWidget &widget)
{
    constexpr int twipsPerInch = 1440;
    return twips * widget.logicalDpiX() / twipsPerInch;
}

QSize TwipsToPixels(QSize twips, const QWidget &widget)
{
    return {TwipsToPixels(twips.width(), widget), TwipsToPixels(twips.height(), widget)};
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
    if (form.isVisible())
        return;
    // The window system has framed a form by the time that it first makes it the active one.
    auto centreOnce = [&form, isDone = false](const QEvent & /*event*/) mutable {
        if (!std::exchange(isDone, true))
            centre(form);
    };
    new WindowWatcher(form, QEvent::WindowActivate, std::move(centreOnce));
}

void BringToFront(QWidget &form)
{
    // To the toolkit a minimised window counts as shown, and raising does not bring it back.
    form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
    // On Wayland no window may come to the front by itself, but one that is newly shown does.
    if (form.isVisible() && QGuiApplication::platformName().startsWith("wayland"_L1))
        form.hide();
    form.show();
    form.raise();
    form.activateWindow();
}

QString WindowSizesFile()
{
    return SettingsFolder() + u"/finestre.ini"_s;
}

void KeepWindowSizes(const QString &fileName)
{
    sizesFile() = fileName;
}

void SizeWindow(QWidget &window, QSize first)
{
    const bool isKept = !sizesFile().isEmpty();
    QSize wanted = first;
    if (isKept)
        wanted =
            QSettings(sizesFile(), QSettings::IniFormat).value(window.objectName(), first).toSize();
    // The window system's own frame is not known before it is there: the style's is a guess.
    const QStyle *style = window.style();
    const int frame = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    const int title = style->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const QSize room = window.screen()->availableSize() - QSize(2 * frame, title + 2 * frame);
    window.resize((wanted.isEmpty() ? first : wanted).boundedTo(room));
    if (!isKept)
        return;
    auto keep = [&window, kept = window.size()](const QEvent &hiding) mutable {
        if (hiding.spontaneous() || window.size() == kept || fillsTheScreen(window))
            return;
        kept = window.size();
        QSettings(sizesFile(), QSettings::IniFormat).setValue(window.objectName(), kept);
    };
    new WindowWatcher(window, QEvent::Hide, std::move(keep));
}

} // namespace saldoro
