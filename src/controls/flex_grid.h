#pragma once

#include "controls/text_table.h"

#include <QTableView>

namespace saldoro {

/**
 * A grid that shows a TextTable: row 0 as the fixed header, the rest as rows. The view holds no
 * text of its own and stays quick with tens of thousands of rows. The current cell of the table and
 * that of the view are the same: moving one moves the other, and the view keeps it in sight. While
 * the table's current row is the header, nothing is selected; when the grid then gets the focus,
 * the first row becomes current. Users can't edit header or body.
 *
 * Column widths are least widths in twips; one column may take the rest. A column grows when a text
 * would be cut. Columns of amounts grow without limit. Others grow up to half the grid, so that one
 * long text does not push the amounts out of sight. The rest column grows only for its heading. A
 * tool tip shows a text whole that is cut all the same.
 *
 * Keys: Up, Down, PgUp, PgDn, Home and End choose a row, Enter and Canc act on it; where single
 * cells are selected, Left, Right, Home and End move within the row and Ctrl+Home and Ctrl+End
 * through the grid. Tab and Shift+Tab leave it. Where rows are selected, Left and Right scroll,
 * Ctrl+C copies the current one and Ctrl+Shift+C the whole table with its headings, as text that
 * spreadsheets take; the context menu has both.
 */
class FlexGrid : public QTableView
{
    Q_OBJECT

public:
    /** @param selected what the user selects: whole rows (SelectRows), or the one current cell
     *  (SelectItems). */
    explicit FlexGrid(SelectionBehavior selected, QWidget *parent = nullptr);

    /** The content; valid as long as the grid. */
    TextTable &table() { return m_table; }
    const TextTable &table() const { return m_table; }

    /** Instead of a width: the grid's width without the other columns and a margin of 400 twips. */
    static constexpr int Rest = -1;
    /** Least widths of the columns in twips, of which one may be Rest. */
    void setWidths(const QList<int> &twips);

    /** Brings a cell into sight; where rows are selected, not sideways. */
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    /** The column in which typed letters find a row; without one they do nothing. */
    void setSearchColumn(int column) { m_searchColumn = column; }
    /** Where rows are selected, finds the row whose search column begins with @p search, the
     *  letters typed so far; else emits textTyped(). */
    void keyboardSearch(const QString &search) override;

signals:
    /** Enter was pressed on a body row, or a body cell double-clicked; the cell is current. */
    void cellActivated(int row, int column);
    /** Canc was pressed on a body row. */
    void deletePressed();
    /** Characters were typed where single cells are selected. */
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
    bool selectsRows() const { return selectionBehavior() == SelectRows; }
    void setUpLook();
    void offerCopies();
    void measureAll();
    void measureCell(int row, int column);
    void fitColumns();
    /** Makes the table's current cell the view's. */
    void followTable();

    TextTable m_table;
    QList<int> m_leastWidths; ///< pixels
    int m_restColumn = -1;
    int m_searchColumn = -1;
    QList<int> m_textWidths; ///< pixels of each column's widest text, of the rest column's heading
};

} // namespace saldoro
