#pragma once

#include "database/database.h"

#include <QList>
#include <QString>

namespace saldoro {

/** A row of a table: a value for each field of its definition, null where there is none. */
using TableRow = QList<NewValue>;
using TableRows = QList<TableRow>;

/** How stored values are taken that are not of their field's kind. */
enum class Reading
{
    Exact,    ///< what can't be given back exactly becomes an invalid day
    AsProgram ///< it becomes its text; texts and days are taken as the program takes them
};

/** The rows of a table, or of a stored query, in stored order, with Progress. Throws DatabaseError,
 *  also for a field that the database lacks. */
TableRows StoredRows(const Database &database, const TableDef &table,
                     Reading reading = Reading::Exact);

/** The text of a value; empty for any other. */
QString TextOf(const NewValue &value);

} // namespace saldoro
