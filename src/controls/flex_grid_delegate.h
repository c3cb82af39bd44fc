#pragma once

#include <QStyledItemDelegate>

namespace saldoro {

/** Draws the cells of a grid. The selection is paler while the grid has no focus; the current
 *  cell has the toolkit's focus mark only where single cells are selected; a tool tip shows a text
 *  whole that does not fit its cell. */
class FlexGridDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /** Pixels that a column is to be wider than its text, in the style of @p view. */
    static int spaceAroundText(const QWidget &view);

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace saldoro
