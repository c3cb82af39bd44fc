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
    /** For each row the place of the stored one that it takes over from what it does not name. */
    QList<std::optional<qsizetype>> formers = {};
    bool isNeeded = true; ///< false: the table is so already
};

/**
 * Puts rows in the place of those of a table; rows pair by their key, where neither side has it
 * twice. Stored rows whose fields that are unknown here, or not named by @p given, would lose their
 * values are added to @p losses, a line each. Throws DatabaseError.
 */
TableChange ChangeOf(const Database &database, const GivenTable &given, QStringList &losses);

/** The key of a row, "A|3". */
QString KeyOf(const ExchangedTable &table, const TableRow &row);

/** The stored rows whose key is that of no row to come. */
TableRows DroppedRows(const ExchangedTable &table, const TableChange &change);

/** Writes the change within a transaction. Throws DatabaseError. */
void WriteChange(const Database &database, const GivenTable &given, const TableChange &change);

/** Whether a table that was written holds what it was given, in whatever order; rules of the file
 *  may have changed it. */
bool IsWritten(const GivenTable &given, const TableRows &stored);

} // namespace saldoro
