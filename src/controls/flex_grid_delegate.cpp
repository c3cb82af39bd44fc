#include "controls/flex_grid_delegate.h"

#include "controls/application_look.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr int slack = 4; ///< pixels that keep captions clear of the lines between them

} // namespace

int FlexGridDelegate::spaceAroundText(const QWidget &view)
{
    constexpr int gridLine = 1;
    const int margin = view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1;
    return 2 * margin + gridLine + slack;
}

bool FlexGridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QString text = index.data(Qt::DisplayRole).toString();
    const int room = option.rect.width() - spaceAroundText(*view) + slack;
    if (event->type() != QEvent::ToolTip || option.fontMetrics.horizontalAdvance(text) <= room)
        return false;
    // As rich text a long line is broken; its characters stand for themselves.
    QToolTip::showText(event->globalPos(), u"<p>%1</p>"_s.arg(text.toHtmlEscaped()),
                       view->viewport(), option.rect);
    return true;
}

void FlexGridDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const auto *view = static_cast<const QAbstractItemView *>(option->widget);
    if (view->selectionBehavior() == QAbstractItemView::SelectRows)
        option->state &= ~QStyle::State_HasFocus;
    constexpr int paleness = 65;
    QPalette &palette = option->palette;
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
                     MixedColor(palette.color(QPalette::Active, QPalette::Highlight),
                                palette.color(QPalette::Active, QPalette::Base), paleness));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
                     palette.color(QPalette::Active, QPalette::Text));
}

} // namespace saldoro
