#include "controls/popup_list.h"

#include "controls/enter_and_held_keys.h"
#include "controls/screen_reader.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace saldoro {

PopupList::PopupList(QWidget *form)
    : QListWidget(form)
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    hide();
    FollowSelection(*this);
    connect(this, &QListWidget::itemClicked, this, &PopupList::choose);
}

void PopupList::open(const QStringList &lines, const QWidget &control, int down)
{
    clear();
    addItems(lines);
    setCurrentRow(0);
    const QRect room = window()->rect();
    const QPoint corner = control.mapTo(window(), QPoint(0, down));
    const int width = std::min(control.width(), room.width());
    int height = std::max(count() * sizeHintForRow(0), fontMetrics().height()) + 2 * frameWidth();
    if (sizeHintForColumn(0) + 2 * frameWidth() > width)
        height += horizontalScrollBar()->sizeHint().height();
    height = std::min(height, std::max(room.height() - corner.y(), room.height() / 2));
    setGeometry(std::clamp(corner.x(), 0, room.width() - width),
                std::clamp(corner.y(), 0, room.height() - height), width, height);
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
    TellFocus(*this);
}

void PopupList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit answered(-1);
    else if (!IsEnter(*event))
        QListWidget::keyPressEvent(event);
    else if (!IsKeyHeld()) // or the press that opened the list would choose from it
        choose(currentItem());
}

void PopupList::choose(const QListWidgetItem *line)
{
    if (line)
        emit answered(row(line));
}

} // namespace saldoro
