#include "controls/stray_input.h"

#include "controls/popup_list.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleHints>
#include <QWindow>

#include <utility>

namespace saldoro {

namespace {

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
            m_press.window = nullptr; // what a press finds now is something else
        auto *window = qobject_cast<QWindow *>(watched);
        if (!window)
            return false;
        switch (type) {
        case QEvent::MouseButtonPress:
            m_takesMouse =
                isRest(m_press, *static_cast<QMouseEvent *>(event), *window) || isClosingFresh();
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
    /** The last press, and where it or the first of a quick series fell. */
    struct Press
    {
        const QWindow *window = nullptr;
        quint64 time = 0; ///< the window system's own
        int key = 0;      ///< of a key
    };

    static quint64 interval()
    {
        return static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    }

    /** Notes a press; whether it is the rest of a series that began on another window. */
    static bool isRest(Press &last, const QInputEvent &press, const QWindow &window)
    {
        const bool isQuick = last.time != 0 && press.timestamp() - last.time < interval();
        last.time = press.timestamp();
        if (isQuick && last.window != &window)
            return true;
        last.window = &window;
        return false;
    }

    bool takesKey(QKeyEvent &event, const QWindow &window)
    {
        if (!event.modifiers().testFlag(Qt::AltModifier) || event.key() == Qt::Key_Alt)
            return false;
        if (event.key() != m_key.key)
            m_key = {nullptr, 0, event.key()};
        // The same press comes twice, for shortcuts first.
        if (event.timestamp() != m_key.time)
            m_takesKey = isRest(m_key, event, window);
        if (m_takesKey)
            event.accept(); // or its shortcut would be tried
        return m_takesKey;
    }

    bool takesClosing(QEvent &event, QWindow &window)
    {
        if (!m_isAsking) {
            // A window that the program is closing says so without being asked again.
            m_isAsking = true;
            const bool isByProgram = window.close();
            m_isAsking = false;
            if (isByProgram)
                return false;
            if (!isClosingFresh() || m_closed == &window) {
                m_closed = &window;
                m_closing.start();
                // What a form does on closing may take its time; the user's begins after it.
                QMetaObject::invokeMethod(
                    this, [this] { m_closing.start(); }, Qt::QueuedConnection);
                return false;
            }
        }
        event.ignore();
        return true;
    }

    bool isClosingFresh() const
    {
        return m_closing.isValid() && !m_closing.hasExpired(static_cast<qint64>(interval()));
    }

    Press m_press;
    Press m_key;
    bool m_takesMouse = false;
    bool m_takesKey = false;
    bool m_isAsking = false;
    const QWindow *m_closed = nullptr;
    QElapsedTimer m_closing; ///< since the window system wanted a window closed
};

} // namespace

void WatchStrayInput()
{
    static QPointer<StrayInput> watcher;
    if (!watcher)
        watcher = new StrayInput(*QCoreApplication::instance());
}

} // namespace saldoro
