#include "controls/window_size.h"

#include <QEvent>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QStyle>
#include <QWidget>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString &keptIn()
{
    static QString fileName;
    return fileName;
}

/** Writes down the size of a window whenever it goes from the screen. */
class SizeKeeper : public QObject
{
public:
    explicit SizeKeeper(QWidget &window)
        : QObject(&window)
        , m_window(window)
        , m_first(window.size())
    {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Hide && !event->spontaneous() && m_window.size() != m_first &&
            !m_window.isMaximized() && !m_window.isFullScreen())
            QSettings(keptIn(), QSettings::IniFormat)
                .setValue(m_window.objectName(), m_window.size());
        return false;
    }

private:
    QWidget &m_window;
    QSize m_first;
};

} // namespace

QString WindowSizesFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/saldoro/finestre.ini"_s;
}

void KeepWindowSizes(const QString &fileName)
{
    keptIn() = fileName;
}

void SizeWindow(QWidget &window, QSize first)
{
    QSize wanted = first;
    if (!keptIn().isEmpty())
        wanted =
            QSettings(keptIn(), QSettings::IniFormat).value(window.objectName(), first).toSize();
    const QStyle *style = window.style();
    const int frame = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    const int title = style->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const QSize room = window.screen()->availableSize() - QSize(2 * frame, title + 2 * frame);
    window.resize((wanted.isEmpty() ? first : wanted).boundedTo(room));
    if (!keptIn().isEmpty())
        new SizeKeeper(window);
}

} // namespace saldoro
