#pragma once

#include <QByteArrayView>

#include <bit>
#include <vector>

namespace saldoro {

enum class CellType : quint8
{
    Null,
    Whole,
    Real,
    Text
};

/** One stored value; a text lies in the byte buffer of its table. */
struct Cell
{
    quint64 bits = 0; ///< the number, or where the text begins
    quint32 length = 0;
    CellType type = CellType::Null;
    bool isExact = true; ///< whether a text is stored as just these bytes

    qint64 whole() const { return std::bit_cast<qint64>(bits); }
    double real() const { return std::bit_cast<double>(bits); }
};

/**
 * The values of many rows, packed: one array of small cells, row after row, and one buffer with
 * the bytes of all texts (UTF-8). Texts that were replaced stay in the buffer; a record set lives
 * too short for that to matter.
 */
class CellTable
{
public:
    explicit CellTable(int columnCount = 0)
        : m_columnCount(static_cast<size_t>(columnCount))
    {
    }

    int columnCount() const { return static_cast<int>(m_columnCount); }
    int rowCount() const
    {
        return m_columnCount == 0 ? 0 : static_cast<int>(m_cells.size() / m_columnCount);
    }

    const Cell &cell(int row, int column) const { return m_cells[index(row, column)]; }

    /** The bytes of a text cell; valid until the table changes. */
    QByteArrayView text(const Cell &cell) const
    {
        return {m_bytes.data() + cell.bits, static_cast<qsizetype>(cell.length)};
    }

    // The next cell, from left to right and from row to row.
    void appendNull() { m_cells.emplace_back(); }
    void appendWhole(qint64 value)
    {
        m_cells.push_back({std::bit_cast<quint64>(value), 0, CellType::Whole});
    }
    void appendReal(double value)
    {
        m_cells.push_back({std::bit_cast<quint64>(value), 0, CellType::Real});
    }
    void appendText(const char *bytes, quint32 length, bool isExact = true)
    {
        m_cells.push_back({m_bytes.size(), length, CellType::Text, isExact});
        m_bytes.insert(m_bytes.end(), bytes, bytes + length);
    }

    /** Appends a copy of the first row of @p source, which has as many columns. */
    void appendRow(const CellTable &source);
    /** Puts a copy of the first row of @p source in place of @p row. */
    void replaceRow(int row, const CellTable &source);

private:
    size_t index(int row, int column) const
    {
        return static_cast<size_t>(row) * m_columnCount + static_cast<size_t>(column);
    }
    Cell copied(const CellTable &source, int column);

    size_t m_columnCount;
    std::vector<Cell> m_cells;
    std::vector<char> m_bytes;
};

} // namespace saldoro
