#pragma once

#include "exchange/cell_values.h"
#include "exchange/header_row.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace saldoro {

/** Rows for a table, wherever they come from. */
struct GivenTable
{
    const ExchangedTable *table = nullptr;
    QStringList fields;  ///< of the table that the rows name; the others are null
    QString source = {}; ///< name of a file, or of what else the rows come from
    TableRows rows = {};
    QList<int> lines = {}; ///< of the source that the rows begin on

    /** "Spese.csv, riga 12"; without lines the rows count from 1. */
    QString rowName(qsizetype row) const;
};

/**
 * Reads the rows behind the header; those without any value are passed over. @p stored is the
 * table as the archive defines it. A cell that can't be read, or whose value @p stored can't hold,
 * is a fault; in the row an invalid day stands for it (see TableRow). A short row is accepted if
 * the missing fields may be null and the last row has all its cells, a longer one in the Italian
 * notation if the cells too many are blank. Without a notation values are read in Italian. An
 * amount that both notations may mean, but differently, is a fault, see SureValueOfCell(). Codes
 * that clash are left to the check (verify/contract_checks).
 *
 * Throws FieldMissing when @p stored lacks one of the table's fields, and what the watcher of
 * Progress throws.
 */
GivenTable TypedRowsOf(QList<CellRow> rows, const CellColumns &columns, const ExchangedTable &table,
                       const TableDef &stored, std::optional<Notation> notation,
                       QList<CellFault> &faults);

} // namespace saldoro
