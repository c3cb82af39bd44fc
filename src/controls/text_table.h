#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/** What a view on a TextTable is told. All calls come after the change. */
class TextTableObserver
{
public:
    virtual ~TextTableObserver() = default;
    /** Columns or many cells changed; everything is to be read anew. */
    virtual void tableReset() = 0;
    /** Empty rows were appended or the last rows dropped; the rest stays as it was. The current row
     *  may have moved with them. */
    virtual void rowsChanged() = 0;
    /** One cell has a new text. */
    virtual void cellChanged(int row, int column) = 0;
    /** The current cell moved. */
    virtual void currentChanged() = 0;
};

/**
 * The content of a grid as plain texts: it serves both as what is shown and as working storage,
 * from which amounts are parsed back. Row 0 is the header; body rows start at 1. There is always a
 * current row and column; both are 0 in a new table. Indexes out of range throw BoundsError.
 */
class TextTable
{
public:
    explicit TextTable(int columns = 0);
    ~TextTable() = default;
    /** A copy has the texts and the current cell, not the view. */
    TextTable(const TextTable &other);
    TextTable &operator=(const TextTable &other);

    int rows() const { return static_cast<int>(m_cells.size()); }
    int columns() const { return m_columns; }
    /** Appends empty rows or drops the last ones. The current row moves to the last row when its
     *  own is dropped. The header always stays: less than one row throws BoundsError. */
    void setRows(int rows);
    /** Sets the number of columns; existing rows keep the texts of the columns that stay. The
     *  current column moves to the last one when its own is dropped. */
    void setColumns(int columns);

    /** Cuts the table down to its header, one column for each of @p headings. */
    void setHeader(const QStringList &headings);

    QString text(int row, int column) const;
    /** Writes a cell; the current cell stays where it is. */
    void setText(int row, int column, const QString &text);
    /** Text of the current cell. */
    QString currentText() const { return text(m_row, m_column); }
    void setCurrentText(const QString &text) { setText(m_row, m_column, text); }

    int row() const { return m_row; }
    int column() const { return m_column; }
    /** Makes a row current, 0 being the header. */
    void setRow(int row);
    void setColumn(int column);

    /** The one view that is kept up to date; nullptr for none. Not owned. */
    void setObserver(TextTableObserver *observer) { m_observer = observer; }

    /** While one of these lives the view is told nothing; at the end of the outermost one it is
     *  told once to read everything anew. */
    class BulkChange
    {
    public:
        explicit BulkChange(TextTable &table);
        ~BulkChange();
        BulkChange(const BulkChange &) = delete;
        BulkChange &operator=(const BulkChange &) = delete;

    private:
        TextTable &m_table;
    };

private:
    void checkRow(int row) const;
    void checkColumn(int column) const;
    TextTableObserver *listener() const { return m_bulkDepth == 0 ? m_observer : nullptr; }

    QList<QList<QString>> m_cells;
    int m_columns = 0;
    int m_row = 0;
    int m_column = 0;
    int m_bulkDepth = 0;
    TextTableObserver *m_observer = nullptr;
};

} // namespace saldoro
