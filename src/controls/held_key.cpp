#include "controls/held_key.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPointer>

namespace saldoro {

namespace {

/** Sees every key event before it is handled; the same press may come by several times, on its way
 *  from shortcuts to the control and on to what the control stands on. */
class KeyWatcher : public QObject
{
public:
    explicit KeyWatcher(QObject &application)
        : QObject(&application)
    {
        m_clock.start();
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
    void pressed(const QKeyEvent &press)
    {
        constexpr qint64 onItsWay = 5;         // milliseconds that one press takes
        constexpr qint64 longestPause = 1'100; // before the first repetition
        const qint64 now = m_clock.elapsed();
        const qint64 pause = now - m_lastPress;
        const bool isMarked = press.isAutoRepeat();
        const bool isSameKey = press.key() == m_key;
        if (!isSameKey || isMarked != m_wasMarked || pause >= onItsWay) {
            const bool lacksMark = press.timestamp() != 0 && press.timestamp() == m_lastRelease;
            m_isHeld = isSameKey && ((isMarked && pause < longestPause) || lacksMark);
        }
        m_key = press.key();
        m_wasMarked = isMarked;
        m_lastPress = now;
    }

    void released(const QKeyEvent &release)
    {
        if (!release.isAutoRepeat() && release.key() == m_key)
            m_lastRelease = release.timestamp();
    }

    QElapsedTimer m_clock;
    int m_key = 0;
    qint64 m_lastPress = 0;
    quint64 m_lastRelease = 0; ///< the window system's own time of the key's last release
    bool m_wasMarked = false;
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
