#include "controls/stray_input.h"

#include "controls/popup_list.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QStyleHints>
#include <QWindow>

#include <utility>

namespace saldoro {

namespace {

int interval()
{
    return QGuiApplication::styleHints()->mouseDoubleClickInterval();
}

/** Presses of one button or key that follow each other quickly. */
struct PressSeries
{
    const QWindow *window = nullptr; ///< on which it began
    quint64 time = 0;                ///< of its last press, the window system's own

    /** Notes a press. True when it continues a series that began on another window. */
    bool isRest(const QInputEvent &press, const QWindow &pressed)
    {
        const bool isQuick =
            time != 0 && press.timestamp() - time < static_cast<quint64>(interval());
        time = press.timestamp();
        if (isQuick && window != &pressed)
            return true;
        window = &pressed;
        return false;
    }
};

/** Sees the events of windows before any control of theirs does. */
class StrayInput : public QObject
{
public:
    explicit StrayInput(QObject &application)
        : QObject(&application)
    {
        application.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QEvent::Type type = event->type();
        if ((type == QEvent::Show || type == QEvent::Hide) && qobject_cast<PopupList *>(watched))
            m_mouse.window = nullptr; // what a press finds now is something else
        auto *window = qobject_cast<QWindow *>(watched);
        if (!window)
            return false;
        switch (type) {
        case QEvent::MouseButtonPress:
            m_takesMouse = m_mouse.isRest(*static_cast<QMouseEvent *>(event), *window) ||
                           !m_closing.hasExpired();
            return m_takesMouse;
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
            return m_takesMouse;
        case QEvent::MouseButtonRelease:
            return std::exchange(m_takesMouse, false);
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
            return takesKey(*static_cast<QKeyEvent *>(event), *window);
        case QEvent::Close:
            return takesClosing(*event, *window);
        default:
            return false;
        }
    }

private:
    bool takesKey(QKeyEvent &event, const QWindow &window)
    {
        if (!event.modifiers().testFlag(Qt::AltModifier) || event.key() == Qt::Key_Alt)
            return false;
        if (event.key() != std::exchange(m_key, event.key()))
            m_keys = {};
        // The same press comes twice, for shortcuts first.
        if (event.timestamp() != m_keys.time)
            m_takesKey = m_keys.isRest(event, window);
        if (m_takesKey)
            event.accept(); // or its shortcut would be tried
        return m_takesKey;
    }

    bool takesClosing(QEvent &event, QWindow &window)
    {
        if (!m_isAsking && (isByProgram(window) || begins(window)))
            return false;
        event.ignore();
        return true;
    }

    /** Whether the program itself is closing the window, which then grants a second request at
     *  once. */
    bool isByProgram(QWindow &window)
    {
        m_isAsking = true;
        const bool isClosing = window.close();
        m_isAsking = false;
        return isClosing;
    }

    /** Notes that the window system wants @p window closed; false right after another one. */
    bool begins(const QWindow &window)
    {
        if (!m_closing.hasExpired() && m_closed != &window)
            return false;
        m_closed = &window;
        const auto start = [this] { m_closing.setRemainingTime(interval()); };
        start();
        // What a form does on closing may take its time; the user's begins after it.
        QMetaObject::invokeMethod(this, start, Qt::QueuedConnection);
        return true;
    }

    PressSeries m_mouse;
    PressSeries m_keys; ///< of the last key with Alt
    int m_key = 0;
    bool m_takesMouse = false;
    bool m_takesKey = false;
    bool m_isAsking = false;
    const QWindow *m_closed = nullptr; ///< that the window system wanted closed last
    QDeadlineTimer m_closing;          ///< until then it wants no other one closed
};

} // namespace

void WatchStrayInput()
{
    static const auto *const watcher = new StrayInput(*QCoreApplication::instance());
    Q_UNUSED(watcher)
}

} // namespace saldoro
