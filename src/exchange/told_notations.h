#pragma once

#include "exchange/cell_values.h"

#include <QList>

#include <set>

namespace saldoro {

struct CellColumns;
struct CellRow;
struct ExchangedTable;

/** The notations that amounts and days in the rows behind the header tell, each by a cell that the
 *  other can't read. What one cell is worth: cell_values. Who rewrites pasted cells: PastedTable.
 */
std::set<Notation> ToldNotations(const QList<CellRow> &rows, const CellColumns &columns,
                                 const ExchangedTable &table);

} // namespace saldoro
