#pragma once

#include <QList>

#include <optional>

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

/** The notation in which all amounts and days in the rows behind the header are written: no value
 *  where some cells are in one and some in the other, or none tells. Cells that are no values
 *  do not count. What one cell is worth: exchange/cell_values. PastedTable rewrites the cells. */
std::optional<Notation> ToldNotation(const QList<CellRow> &rows, const CellColumns &columns,
                                     const ExchangedTable &table);

} // namespace saldoro
