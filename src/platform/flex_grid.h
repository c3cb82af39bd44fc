#pragma once

#include "platform/text_table.h"

#include <QTableView>

#include <memory>

namespace saldoro {

class FlexGridModel;

/**
 * A grid that shows a TextTable: row 0 as the fixed header, the rest as rows. The view holds no
 * text of its own and stays quick with tens of thousands of rows. The table's current cell and the
 * view's are one: moving either moves the other. Header and body are read-only for the user.
 *
 * Column widths are least widths in twips; one column may take the rest. A column grows when a text
 * that it shows would be cut.
 */
class FlexGrid : public QTableView
{
    Q_OBJECT

public:
    /** What the user selects: whole rows, or the one current cell. */
    enum class Selection
    {
        Rows,
        Cell
    };

    explicit FlexGrid(Selection selection, QWidget *parent = nullptr);
    ~FlexGrid() override;

    /** The content; owned by the grid, valid as long as it. */
    TextTable &table() { return m_table; }
    const TextTable &table() const { return m_table; }

    /** Least width of a column in twips. */
    void setLeastWidth(int column, int twips);
    /** The column that takes the grid's width minus the others' and minus a margin of 400 twips. */
    void setRestColumn(int column);
    /** Columns whose body texts stand to the right, for amounts. */
    void setRightAligned(const QList<int> &columns);

    /** Geometry of the table's current cell in this widget's coordinates, for an in-place editor.
     */
    QRect currentCellRect() const;

signals:
    /** Enter on a body row, or a double click on a body cell; the cell is current by then. */
    void activated(int row, int column);
    /** Canc pressed on a body row. */
    void deletePressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class FlexGridModel;
    void fitColumns();

    TextTable m_table;
    std::unique_ptr<FlexGridModel> m_model;
    QList<int> m_leastTwips;
    int m_restColumn = -1;
};

} // namespace saldoro
