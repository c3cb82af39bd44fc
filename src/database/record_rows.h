#pragma once

#include "database/cell_table.h"
#include "database/column_info.h"
#include "database/criterion.h"
#include "database/equality_index.h"
#include "database/like_pattern.h"

#include <QByteArray>

#include <map>
#include <utility>
#include <vector>

namespace saldoro {

/**
 * The records of a record set as read from the file, with what was changed through the set since.
 * Records are numbered from 0 in their order; a removed one keeps its number and is passed over.
 */
class RecordRows
{
public:
    static constexpr int NoRow = EqualityIndex::NoRow;

    explicit RecordRows(std::vector<ColumnInfo> columns);

    const std::vector<ColumnInfo> &columns() const { return m_columns; }
    /** Replaces what is known of the columns; their number and order stay. */
    void setColumns(std::vector<ColumnInfo> columns) { m_columns = std::move(columns); }
    const ColumnInfo &column(int column) const { return m_columns[static_cast<size_t>(column)]; }
    const CellTable &cells() const { return m_cells; }

    /** Where the rows of a query are read into; every row is followed by noteRow(). */
    CellTable &incoming() { return m_cells; }
    void noteRow(qint64 rowId);

    qint64 rowId(int row) const { return m_rowIds[static_cast<size_t>(row)]; }
    int liveCount() const { return m_liveCount; }

    /** The first record after @p row (NoRow for the very first) that was not removed, or NoRow. */
    int nextLive(int row) const;
    /** The last record that was not removed, or NoRow. */
    int lastLive() const;

    /** Follows what was written: a new record comes last, a changed one stays in its place. */
    void append(const CellTable &row, qint64 rowId);
    void replace(int row, const CellTable &values, qint64 rowId);
    void remove(int row);

    /** The first record after @p row whose field equals @p number, which counts ten-thousandths
     *  where the column does. Texts are passed over. */
    int findNumber(int column, qint64 number, int row);
    /** The first record after @p row whose field, as text, equals @p text in UTF-8. */
    int findText(int column, const QByteArray &text, int row);
    /** The first record after @p row whose field, as text, meets @p pattern. */
    int findLike(int column, const LikePattern &pattern, int row) const;

private:
    enum class Comparison
    {
        AsNumber,
        AsText
    };
    using IndexKey = std::pair<int, Comparison>;

    bool isLive(int row) const { return m_live[static_cast<size_t>(row)]; }
    QByteArrayView textOf(const Cell &cell, int column, QByteArray &buffer) const;
    EqualityIndex &indexOf(int column, Comparison comparison);
    void enter(EqualityIndex &index, const IndexKey &key, int row) const;
    void enterEverywhere(int row);

    std::vector<ColumnInfo> m_columns;
    CellTable m_cells;
    std::vector<qint64> m_rowIds;
    std::vector<bool> m_live;
    int m_liveCount = 0;
    std::map<IndexKey, EqualityIndex> m_indexes; ///< built when first asked for
};

} // namespace saldoro
