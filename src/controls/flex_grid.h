#pragma once

#include "controls/text_table.h"

#include <QTableView>

namespace saldoro {

/**
 * A grid that shows a TextTable: row 0 as the fixed header, the rest as rows. The view holds no
 * text of its own and stays quick with tens of thousands of rows. The table's current cell and the
 * view's are one: moving either moves the other, and the view keeps it in sight. While the table's
 * current row is the header nothing is selected; coming into the grid then makes the first row
 * current. Header and body are read-only for the user.
 *
 * Column widths are least widths in twips; one column may take the rest. A column grows when a text
 * would be cut: columns of amounts without bound, others to half the grid, so that one long text
 * does not push the amounts out of sight, and the rest column for its heading only. A text that is
 * cut all the same is shown whole in a tool tip.
 *
 * Keys: Up, Down, PgUp, PgDn, Home and End choose a row, Enter and Canc act on it; where single
 * cells are selected, Left, Right, Home and End move within the row and Ctrl+Home and Ctrl+End
 * through the grid. Tab and Shift+Tab leave it. Where rows are selected, Ctrl+C copies the current
 * one and Ctrl+Shift+C the whole table with its headings, as text that spreadsheets take; a menu
 * has both.
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

    /** The content; owned by the grid, valid as long as it. */
    TextTable &table() { return m_table; }
    const TextTable &table() const { return m_table; }

    /** In place of a column's width: it takes the grid's width minus the others' and minus a margin
     *  of 400 twips. */
    static constexpr int Rest = -1;
    /** Least widths of the columns in twips, of which one may be Rest. */
    void setWidths(const QList<int> &twips);

    /** Brings a cell into sight; where rows are selected, without moving sideways. */
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    /** The column in which typed letters find a row; without one they do nothing. */
    void setSearchColumn(int column) { m_searchColumn = column; }
    /** What is typed into the grid comes here. */
    void keyboardSearch(const QString &search) override;

signals:
    /** Enter on a body row, or a double click on a body cell; the cell is current by then. */
    void cellActivated(int row, int column);
    /** Canc pressed on a body row. */
    void deletePressed();
    /** Characters typed where single cells are selected. */
    void textTyped(const QString &text);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    void setUpLook();
    void offerCopies();
    /** Takes over the sizes of the fonts and the texts of the whole table. */
    void measureAll();
    void measureCell(int row, int column);
    void fitColumns();
    /** Makes the table's current cell the view's. */
    void followTable();

    Selection m_selection;
    TextTable m_table;
    QList<int> m_leastWidths; ///< pixels
    int m_restColumn = -1;
    int m_searchColumn = -1;
    QList<int> m_textWidths; ///< pixels of each column's widest text, of the rest column's heading
};

} // namespace saldoro
