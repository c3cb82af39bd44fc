#pragma once

#include "exchange/typed_rows.h"
#include "store/table_rows.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace saldoro {

/** What an import makes of one table. */
struct TableChange
{
    TableRows stored = {}; ///< as it is
    TableRows rows = {};   ///< as it will be
    /** For each of @ref rows the index of its partner in @ref stored, from which it takes the
     *  fields that are not given; no value without a partner. */
    QList<std::optional<qsizetype>> formers = {};
    bool isNeeded = true; ///< false when the table holds these rows already
};

/**
 * Works out how given rows replace the stored ones; writes nothing. A new row and a stored one are
 * a pair when they share a key that no other row has, new or stored. @p errors gets a line for a
 * table that can't be replaced, and one for each stored row without a partner that would lose
 * something: values of unknown fields and, if a new row has its key, of fields that @p given does
 * not name. Throws DatabaseError, and what the watcher of Progress throws.
 */
TableChange ChangeOf(const Database &database, const GivenTable &given, QStringList &errors);

/** The key of a row, "A|3". */
QString KeyOf(const ExchangedTable &table, const TableRow &row);

/** The stored rows whose key none of the new rows has. */
TableRows DroppedRows(const ExchangedTable &table, const TableChange &change);

/** Writes the change; to be called within a transaction. Throws DatabaseError, and what the watcher
 *  of Progress throws. */
void WriteChange(const Database &database, const GivenTable &given, const TableChange &change);

/** Whether a table that was written holds what it was given, in whatever order; rules of the file
 *  may have changed it. */
bool IsWritten(const GivenTable &given, const TableRows &stored);

} // namespace saldoro
