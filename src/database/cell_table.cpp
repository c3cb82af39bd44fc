#include "database/cell_table.h"

namespace saldoro {

Cell CellTable::copied(const CellTable &source, int column)
{
    Cell cell = source.cell(0, column);
    if (cell.type == CellType::Text) {
        const QByteArrayView bytes = source.text(cell);
        cell.bits = m_bytes.size();
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    }
    return cell;
}

void CellTable::appendRow(const CellTable &source)
{
    for (int column = 0; column < columnCount(); ++column)
        m_cells.push_back(copied(source, column));
}

void CellTable::replaceRow(int row, const CellTable &source)
{
    for (int column = 0; column < columnCount(); ++column)
        m_cells[index(row, column)] = copied(source, column);
}

} // namespace saldoro
