#pragma once

#include "controls/flex_grid.h"

#include <QStyledItemDelegate>

namespace saldoro {

/** Draws the cells of a grid: the selection turns paler while the grid has no focus, only where
 *  single cells are selected the current one carries the toolkit's focus mark, and a text that does
 *  not fit its cell is shown whole in a tool tip. */
class FlexGridDelegate : public QStyledItemDelegate
{
public:
    FlexGridDelegate(FlexGrid::Selection selection, QObject *parent);

    /** Pixels of a cell's width that are not for its text, in @p view's style. */
    static int spaceAroundText(const QWidget &view);

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    FlexGrid::Selection m_selection;
};

} // namespace saldoro
