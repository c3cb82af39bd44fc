#pragma once

#include <QList>

#include <set>

namespace saldoro {

struct CellColumns;
struct CellRow;
struct ExchangedTable;

/** How amounts and days are written. */
enum class Notation
{
    Italian,      ///< 1.234,56 and 31/12/2024
    International ///< 1,234.56 and 2024-12-31
};

/** The notations that amounts and days in the rows behind the header tell, each by a cell that the
 *  other can't read. What one cell is worth: exchange/cell_values. PastedTable rewrites the cells.
 */
std::set<Notation> ToldNotations(const QList<CellRow> &rows, const CellColumns &columns,
                                 const ExchangedTable &table);

} // namespace saldoro
