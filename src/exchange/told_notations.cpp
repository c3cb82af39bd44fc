#include "exchange/told_notations.h"

#include "exchange/header_row.h"

#include <algorithm>

namespace saldoro {

std::set<Notation> ToldNotations(const QList<CellRow> &rows, const CellColumns &columns,
                                 const ExchangedTable &table)
{
    std::set<Notation> told;
    for (qsizetype row = columns.firstRow; row < rows.size(); ++row) {
        const QStringList &cells = rows[row].cells;
        for (qsizetype cell = 0; cell < std::min(cells.size(), columns.fieldOfCell.size());
             ++cell) {
            if (columns.fieldOfCell[cell] < 0)
                continue;
            const FieldType type = table.definition.fields()[columns.fieldOfCell[cell]].type;
            const bool isItalian = ValueOfCell(cells[cell], type, Notation::Italian).has_value();
            if (isItalian != ValueOfCell(cells[cell], type, Notation::International).has_value())
                told.insert(isItalian ? Notation::Italian : Notation::International);
        }
    }
    return told;
}

} // namespace saldoro
