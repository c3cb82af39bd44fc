#include "database/record_rows.h"

#include "database/stored_text.h"
#include "database/text_collation.h"

#include <bit>
#include <utility>

namespace saldoro {

namespace {

bool isNumber(const Cell &cell)
{
    return cell.type == CellType::Whole || cell.type == CellType::Real;
}

bool equalsNumber(const Cell &cell, qint64 number)
{
    if (cell.type == CellType::Whole)
        return cell.whole() == number;
    return cell.type == CellType::Real && cell.real() == static_cast<double>(number);
}

/** Whole and floating numbers of the same value share a hash. */
quint32 hashOfNumber(double value)
{
    const auto bits = std::bit_cast<quint64>(value + 0.0);
    return static_cast<quint32>((bits * 0x9E3779B97F4A7C15U) >> 32U);
}

quint32 hashOfNumber(const Cell &cell)
{
    return hashOfNumber(cell.type == CellType::Real ? cell.real()
                                                    : static_cast<double>(cell.whole()));
}

} // namespace

RecordRows::RecordRows(std::vector<ColumnInfo> columns)
    : m_columns(std::move(columns))
    , m_cells(static_cast<int>(m_columns.size()))
{
}

void RecordRows::noteRow(qint64 rowId)
{
    m_rowIds.push_back(rowId);
    m_live.push_back(true);
    ++m_liveCount;
}

int RecordRows::nextLive(int row) const
{
    const int end = static_cast<int>(m_live.size());
    for (int candidate = row + 1; candidate < end; ++candidate) {
        if (isLive(candidate))
            return candidate;
    }
    return NoRow;
}

int RecordRows::lastLive() const
{
    int row = static_cast<int>(m_live.size()) - 1;
    while (row >= 0 && !isLive(row))
        --row;
    return row < 0 ? NoRow : row;
}

void RecordRows::append(const CellTable &row, qint64 rowId)
{
    m_cells.appendRow(row);
    noteRow(rowId);
    enterEverywhere(static_cast<int>(m_rowIds.size()) - 1);
}

void RecordRows::replace(int row, const CellTable &values, qint64 rowId)
{
    for (auto &[key, index] : m_indexes)
        index.remove(row);
    m_cells.replaceRow(row, values);
    m_rowIds[static_cast<size_t>(row)] = rowId;
    enterEverywhere(row);
}

void RecordRows::remove(int row)
{
    for (auto &[key, index] : m_indexes)
        index.remove(row);
    m_live[static_cast<size_t>(row)] = false;
    --m_liveCount;
}

int RecordRows::findNumber(int column, qint64 number, int row)
{
    return indexOf(column, Comparison::AsNumber)
        .firstAfter(row, hashOfNumber(static_cast<double>(number)), [&](int candidate) {
            return equalsNumber(m_cells.cell(candidate, column), number);
        });
}

int RecordRows::findText(int column, const QByteArray &text, int row)
{
    QByteArray buffer;
    return indexOf(column, Comparison::AsText).firstAfter(row, HashText(text), [&](int candidate) {
        return CompareText(textOf(m_cells.cell(candidate, column), column, buffer), text) == 0;
    });
}

int RecordRows::findLike(int column, const LikePattern &pattern, int row) const
{
    QByteArray buffer;
    for (row = nextLive(row); row != NoRow; row = nextLive(row)) {
        const Cell &cell = m_cells.cell(row, column);
        if (cell.type != CellType::Null && pattern.matches(textOf(cell, column, buffer)))
            return row;
    }
    return NoRow;
}

QByteArrayView RecordRows::textOf(const Cell &cell, int column, QByteArray &buffer) const
{
    if (cell.type == CellType::Text && this->column(column).kind != ColumnKind::Date)
        return m_cells.text(cell);
    buffer = StoredText(m_cells, cell, this->column(column)).toUtf8();
    return buffer;
}

EqualityIndex &RecordRows::indexOf(int column, Comparison comparison)
{
    const IndexKey key(column, comparison);
    const auto [place, isNew] = m_indexes.try_emplace(key);
    if (isNew) {
        // From the last row to the first: the first entry sizes the table for all of them.
        for (int row = static_cast<int>(m_live.size()) - 1; row >= 0; --row)
            enter(place->second, key, row);
    }
    return place->second;
}

void RecordRows::enter(EqualityIndex &index, const IndexKey &key, int row) const
{
    const Cell &cell = m_cells.cell(row, key.first);
    if (!isLive(row) || cell.type == CellType::Null)
        return;
    if (key.second == Comparison::AsNumber) {
        if (isNumber(cell))
            index.add(row, hashOfNumber(cell));
        return;
    }
    QByteArray buffer;
    index.add(row, HashText(textOf(cell, key.first, buffer)));
}

void RecordRows::enterEverywhere(int row)
{
    for (auto &[key, index] : m_indexes)
        enter(index, key, row);
}

} // namespace saldoro
