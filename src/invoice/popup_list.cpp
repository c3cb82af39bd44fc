#include "invoice/popup_list.h"

#include "controls/held_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
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
    DoubleClickRest(QWindow &window, const QMouseEvent &firstRelease)
        : QObject(&window)
        , m_place(firstRelease.globalPosition())
        , m_time(firstRelease.timestamp())
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
    // A hand that moves a little makes two single clicks of its double click.
    bool isRest(const QMouseEvent &press) const
    {
        if (press.button() != Qt::LeftButton)
            return false;
        const auto interval = static_cast<quint64>(QApplication::doubleClickInterval());
        const QPointF way = press.globalPosition() - m_place;
        return press.type() == QEvent::MouseButtonDblClick ||
               press.flags().testFlag(Qt::MouseEventCreatedDoubleClick) ||
               (press.timestamp() - m_time <= interval &&
                way.manhattanLength() <= QApplication::startDragDistance());
    }

    void end(QObject &window)
    {
        window.removeEventFilter(this);
        deleteLater();
    }

    QPointF m_place;
    quint64 m_time;
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
    const int wanted = shownLines * lineHeight + 2 * frameWidth();
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
        new DoubleClickRest(*window()->windowHandle(), *event);
}

void PopupList::pick(const QListWidgetItem *chosen)
{
    if (chosen)
        emit picked(row(chosen), chosen->text());
}

} // namespace saldoro
