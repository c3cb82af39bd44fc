#include "invoice/popup_list.h"

#include "controls/held_key.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace saldoro {

namespace {

bool isRestOfDoubleClick(const QMouseEvent &press)
{
    return press.button() == Qt::LeftButton &&
           (press.type() == QEvent::MouseButtonDblClick ||
            press.flags().testFlag(Qt::MouseEventCreatedDoubleClick));
}

} // namespace

PopupList::PopupList(QWidget *form)
    : QListWidget(form)
{
    setUniformItemSizes(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    hide();
    connect(this, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem *line) { emit answered(row(line)); });
}

void PopupList::open(const QStringList &lines, const QWidget &control, int down)
{
    const QPoint corner = control.mapTo(window(), QPoint(0, down));
    clear();
    addItems(lines);
    const int shownLines = std::max(1, static_cast<int>(lines.size()));
    const int lineHeight = std::max(sizeHintForRow(0), fontMetrics().height());
    int wanted = shownLines * lineHeight + 2 * frameWidth();
    if (sizeHintForColumn(0) + 2 * frameWidth() > control.width())
        wanted += horizontalScrollBar()->sizeHint().height();
    setGeometry(corner.x(), corner.y(), control.width(),
                std::min(wanted, window()->height() - corner.y()));
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
        if (count() > 0)
            emit answered(currentRow());
        break;
    case Qt::Key_Escape:
        emit answered(-1);
        break;
    default:
        QListWidget::keyPressEvent(event);
    }
}

void PopupList::mouseReleaseEvent(QMouseEvent *event)
{
    QListWidget::mouseReleaseEvent(event);
    if (isHidden())
        window()->windowHandle()->installEventFilter(this);
}

// The rest of a double click is taken away from what its first click has uncovered, where the
// window gets its events, before any control is given the focus for a press.
bool PopupList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != window()->windowHandle())
        return QListWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_takesRest = isRestOfDoubleClick(*static_cast<QMouseEvent *>(event));
        if (!m_takesRest)
            watched->removeEventFilter(this);
        return m_takesRest;
    case QEvent::MouseMove:
        return m_takesRest;
    case QEvent::MouseButtonRelease:
        if (m_takesRest)
            watched->removeEventFilter(this);
        return std::exchange(m_takesRest, false);
    default:
        return false;
    }
}

} // namespace saldoro
