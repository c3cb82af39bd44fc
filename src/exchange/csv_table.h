#pragma once

#include "exchange/import_outcome.h"
#include "exchange/typed_rows.h"

#include <QList>
#include <QString>

namespace saldoro {

/**
 * Reads the file at @p path (of the machine) for @p table: ";" and the Italian notation, or "," and
 * the international one, below a header that names the fields. What can't be read, or can't be
 * stored in a table that is defined as @p stored, goes to the errors of @p outcome; what is passed
 * over or read by guess, to its warnings. TypedRowsOf() says which short rows are accepted. Throws
 * FileError, and FieldMissing when the definition lacks one of the table's fields, and what the
 * watcher of Progress throws.
 */
GivenTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                        ImportOutcome &outcome);

/** All rows of a file for @p table. A header, if there is one, is among them. Errors and warnings
 *  as above. Throws FileError. */
QList<CellRow> ReadCsvRows(const QString &path, const ExchangedTable &table,
                           ImportOutcome &outcome);

} // namespace saldoro
