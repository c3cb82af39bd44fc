#include "invoice/popup_list.h"

#include "controls/held_key.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>

namespace saldoro {

namespace {

/**
 * Takes the rest of a double click away from what its first click has uncovered. It does so where
 * the window gets its events, before any control is given the focus for a press.
 */
class DoubleClickRest : public QObject
{
public:
    explicit DoubleClickRest(QWindow &window)
        : QObject(&window)
    {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *window, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            m_taken = isRest(*static_cast<QMouseEvent *>(event));
            if (!m_taken)
                end(*window);
            return m_taken;
        case QEvent::MouseMove:
            return m_taken;
        case QEvent::MouseButtonRelease:
            if (m_taken)
                end(*window);
            return m_taken;
        default:
            return false;
        }
    }

private:
    static bool isRest(const QMouseEvent &press)
    {
        return press.button() == Qt::LeftButton &&
               (press.type() == QEvent::MouseButtonDblClick ||
                press.flags().testFlag(Qt::MouseEventCreatedDoubleClick));
    }

    void end(QObject &window)
    {
        window.removeEventFilter(this);
        deleteLater();
    }

    bool m_taken = false;
};

} // namespace

PopupList::PopupList(QWidget *form)
    : QListWidget(form)
{
    setUniformItemSizes(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    hide();
    connect(this, &QListWidget::itemClicked, this, &PopupList::pick);
}

void PopupList::open(const QStringList &lines, const QRect &area)
{
    clear();
    addItems(lines);
    const int shownLines = std::max(1, static_cast<int>(lines.size()));
    const int lineHeight = std::max(sizeHintForRow(0), fontMetrics().height());
    int wanted = shownLines * lineHeight + 2 * frameWidth();
    if (sizeHintForColumn(0) + 2 * frameWidth() > area.width())
        wanted += horizontalScrollBar()->sizeHint().height();
    setGeometry(area.x(), area.y(), area.width(), std::min(wanted, area.height()));
    setCurrentRow(0);
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
}

void PopupList::keyPressEvent(QKeyEvent *event)
{
    if (IsRepeatedEnter(*event))
        return; // of the press that opened the list
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pick(currentItem());
        break;
    case Qt::Key_Escape:
        emit dismissed();
        break;
    default:
        QListWidget::keyPressEvent(event);
    }
}

void PopupList::mouseReleaseEvent(QMouseEvent *event)
{
    QListWidget::mouseReleaseEvent(event);
    if (isHidden())
        new DoubleClickRest(*window()->windowHandle());
}

void PopupList::pick(const QListWidgetItem *chosen)
{
    if (chosen)
        emit picked(row(chosen), chosen->text());
}

} // namespace saldoro
