#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

namespace saldoro {

/**
 * The content of a grid as plain texts. It is both what is shown and the working storage from which
 * amounts are parsed back. Row 0 is the header; body rows start at 1. There is always a current row
 * and column; both are 0 in a new table. Indexes out of range throw BoundsError.
 *
 * For the toolkit's views it is a model: row 0 is their horizontal header, body row n their row
 * n - 1. It needs no view and no window.
 */
class TextTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit TextTable(int columns = 0);

    int rows() const { return static_cast<int>(m_cells.size()); }
    int columns() const { return static_cast<int>(m_cells.first().size()); }
    /** Appends empty rows or drops the last ones. When the current row is dropped, the last one
     *  becomes current. The header always stays: less than one row throws BoundsError. A view reads
     *  everything again, so long tables are best filled within a BulkChange. */
    void setRows(int rows);
    /** Cuts the table down to its header, with a column for each of @p headings. The header becomes
     *  the current row, and the first column current if the current one is gone. */
    void setHeader(const QStringList &headings);

    QString text(int row, int column) const;
    /** Writes a cell; the current cell stays where it is. */
    void setText(int row, int column, const QString &text);
    /** Text of the current cell. */
    QString currentText() const { return text(m_row, m_column); }

    /** The rows @p first to @p last as spreadsheets take them: a line for each row, a tab between
     *  cells, quotes around a cell that holds a tab, a line end or a quote. Both must be rows: that
     *  is not checked. */
    QString tabText(int first, int last) const;

    int row() const { return m_row; }
    int column() const { return m_column; }
    /** Makes a row current, 0 being the header. */
    void setRow(int row) { setCurrentCell(row, m_column); }
    void setColumn(int column) { setCurrentCell(m_row, column); }
    void setCurrentCell(int row, int column);

    /** Columns whose texts and headings stand to the right, for amounts. */
    void setRightAligned(const QList<int> &columns);
    const QList<int> &rightAligned() const { return m_rightAligned; }

    /** While one of these lives the views are told nothing; when the outermost one ends they read
     *  everything again. */
    class BulkChange
    {
    public:
        explicit BulkChange(TextTable &table);
        ~BulkChange();
        Q_DISABLE_COPY_MOVE(BulkChange)

    private:
        TextTable &m_table;
    };

    /** The current cell as the views know it; invalid while that is in the header. */
    QModelIndex currentIndex() const { return index(m_row - 1, m_column); }
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /** The current cell is another one. Not sent by setRows(), setHeader() and within a BulkChange:
     *  there modelReset() tells that it may be another one. */
    void currentMoved();

private:
    void checkCell(int row, int column) const;
    QVariant cellData(int row, int column, int role) const;

    QList<QStringList> m_cells;
    QList<int> m_rightAligned;
    int m_row = 0;
    int m_column = 0;
    int m_bulkDepth = 0;
};

} // namespace saldoro
