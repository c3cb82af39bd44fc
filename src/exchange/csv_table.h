#pragma once

#include "exchange/typed_rows.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/** What there is to say about a file, a line each. */
struct CsvRemarks
{
    QStringList errors;   ///< what can't be read, or can't be stored
    QStringList warnings; ///< what was passed over or read by guess
};

/**
 * Reads the file at @p path (of the machine) for @p table: ";" and the Italian notation, or "," and
 * the international one, below a header that names the fields. What can't be read, or can't be
 * stored in a table that is defined as @p stored, is an error, of each field the first twenty.
 * Throws FileError, and FieldMissing when the definition lacks one of the table's fields.
 */
GivenTable ReadCsvTable(const QString &path, const ExchangedTable &table, const TableDef &stored,
                        CsvRemarks &remarks);

/** The rows of cells of a file, a header among them, which may name the fields of @p table or not
 *  be there. Throws FileError. */
QList<CellRow> ReadCsvRows(const QString &path, const ExchangedTable &table, CsvRemarks &remarks);

} // namespace saldoro
