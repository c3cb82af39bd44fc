#include "controls/held_key.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

#include <optional>

namespace saldoro {

namespace {

/** Sees every key event before it is handled. The same press may come by several times, on its way
 *  from shortcuts to the control and on to what the control stands on. */
class KeyWatcher : public QObject
{
public:
    explicit KeyWatcher(QObject &application)
        : QObject(&application)
    {
        application.installEventFilter(this);
    }

    bool isHeld() const { return m_isHeld; }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)
            pressed(*static_cast<QKeyEvent *>(event));
        else if (event->type() == QEvent::KeyRelease)
            released(*static_cast<QKeyEvent *>(event));
        return false;
    }

private:
    /** A key event, apart from which object it comes to. */
    struct Told
    {
        int key = 0;
        quint64 time = 0; ///< the window system's own; 0 when it gives none
        bool isMarked = false;
        bool operator==(const Told &) const = default;
    };

    void pressed(const QKeyEvent &event)
    {
        const Told press{event.key(), event.timestamp(), event.isAutoRepeat()};
        if (press == m_press && !m_release)
            return;
        const bool isAgain =
            m_release && m_release->key == press.key &&
            (m_release->isMarked || (press.time != 0 && m_release->time == press.time));
        // Some systems mark presses and tell of no release in between.
        const bool isMarkedAlone =
            press.isMarked && !m_release && m_press.key == press.key && !m_isAgain;
        m_isHeld = isAgain || isMarkedAlone;
        m_isAgain = isAgain;
        m_press = press;
        m_release.reset();
    }

    void released(const QKeyEvent &event)
    {
        m_release = {event.key(), event.timestamp(), event.isAutoRepeat()};
    }

    Told m_press;
    std::optional<Told> m_release; ///< since the last press
    bool m_isAgain = false;        ///< the last press came right behind a release of its own
    bool m_isHeld = false;
};

QPointer<KeyWatcher> &watcher()
{
    static QPointer<KeyWatcher> watcher;
    return watcher;
}

} // namespace

void WatchHeldKeys()
{
    if (!watcher())
        watcher() = new KeyWatcher(*QCoreApplication::instance());
}

bool IsKeyHeld()
{
    const KeyWatcher *const keys = watcher().data();
    return keys != nullptr && keys->isHeld();
}

bool IsRepeatedEnter(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto &press = static_cast<const QKeyEvent &>(event);
    return IsKeyHeld() && (press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter);
}

} // namespace saldoro
