#pragma once

#include "database/database.h"

#include <QList>
#include <QString>

namespace saldoro {

/** A row of a table: a value for each field of its definition, null where there is none. An
 *  invalid day stands for a stored value that is not what the field should hold. */
using TableRow = QList<NewValue>;
using TableRows = QList<TableRow>;

/** How stored values are taken. */
enum class Reading
{
    Exact,    ///< only what a CSV file can tell: no day with a time, no bytes that are no text
    AsProgram ///< as the program takes texts and days; numbers have to be of their kind, too
};

/** The rows of a table, or of a stored query, in stored order. Throws DatabaseError, also for a
 *  field that the database lacks. */
TableRows StoredRows(const Database &database, const TableDef &table,
                     Reading reading = Reading::Exact);

/** The text of a value; empty for any other. */
QString TextOf(const NewValue &value);

} // namespace saldoro
