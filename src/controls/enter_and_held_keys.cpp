#include "controls/enter_and_held_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMessageBox>

#include <optional>

namespace saldoro {

namespace {

/** Sees every key event before it is handled. The same press may come by several times, on its way
 *  from shortcuts to the control and on to what the control stands on. */
class KeyWatcher : public QObject
{
public:
    bool isHeld() const { return m_isHeld; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isPress =
            event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
        if (!isPress && event->type() != QEvent::KeyRelease)
            return false;
        const auto &key = *static_cast<QKeyEvent *>(event);
        const Told told{key.key(), key.timestamp(), key.isAutoRepeat()};
        if (!isPress)
            m_release = told;
        else if (told != m_press || m_release)
            notePress(told);
        if (!isPress || !m_isHeld || !isOfMessageBox(watched))
            return false;
        event->accept(); // or its shortcut would be tried
        return true;
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

    void notePress(const Told &press)
    {
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

    /** A key that has been held down since before a box came would answer it unread. */
    static bool isOfMessageBox(QObject *watched)
    {
        const auto *control = qobject_cast<QWidget *>(watched);
        return control != nullptr && qobject_cast<QMessageBox *>(control->window()) != nullptr;
    }

    Told m_press;
    std::optional<Told> m_release; ///< since the last press
    bool m_isAgain = false;        ///< the last press came right behind a release of its own
    bool m_isHeld = false;
};

KeyWatcher &watcher()
{
    static KeyWatcher watcher;
    return watcher;
}

} // namespace

void WatchKeyPresses()
{
    QCoreApplication::instance()->installEventFilter(&watcher());
}

Q_COREAPP_STARTUP_FUNCTION(WatchKeyPresses)

bool IsEnter(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool IsKeyHeld()
{
    return watcher().isHeld();
}

} // namespace saldoro
