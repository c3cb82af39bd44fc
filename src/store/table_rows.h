#pragma once

#include "database/database.h"

#include <QList>
#include <QString>

#include <optional>
#include <variant>

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

/** What a value is of that type; none for a null and for a value of another type. */
template <typename Value>
std::optional<Value> ValueAs(const NewValue &value)
{
    const auto *own = std::get_if<Value>(&value);
    return own == nullptr ? std::nullopt : std::optional(*own);
}

/** The text of a value; empty for any other. */
QString TextOf(const NewValue &value);

} // namespace saldoro
