#include "invoice/popup_list.h"

#include <QKeyEvent>

#include <algorithm>

namespace saldoro {

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

void PopupList::pick(const QListWidgetItem *chosen)
{
    if (chosen)
        emit picked(row(chosen), chosen->text());
}

} // namespace saldoro
