#pragma once

#include <QStyledItemDelegate>

namespace saldoro {

/** Draws the cells of a grid: the selection turns paler while the grid has no focus, and a text
 *  that does not fit its cell is shown whole in a tool tip. */
class FlexGridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /** Whether the current cell carries the toolkit's focus mark. */
    enum class FocusMark
    {
        Cell,
        None
    };

    explicit FlexGridDelegate(FocusMark mark, QObject *parent);

    /** Pixels of a cell's width that are not for its text, in @p view's style. */
    static int spaceAroundText(const QWidget &view);

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    FocusMark m_mark;
};

} // namespace saldoro
