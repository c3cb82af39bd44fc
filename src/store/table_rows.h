#pragma once

#include "database/database.h"

#include <QList>
#include <QString>

#include <optional>
#include <variant>

namespace saldoro {

/** A row of a table: a value for each field of its definition, null where there is none. An invalid
 *  day stands for what could not be read, or could not be given back as it is. */
using TableRow = QList<NewValue>;
using TableRows = QList<TableRow>;

/** How a stored value is taken that can't be given back exactly. */
enum class Reading
{
    Exact,    ///< as an invalid day
    AsProgram ///< a value of another kind as its text, a day without its time
};

/** The rows of a table, or of a stored query, in stored order, with Progress. Throws DatabaseError,
 *  also for a field that the database lacks, and what the watcher of Progress throws. */
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

/** What to write where a table takes null but no empty text. */
NewValue TextOrNull(const QString &text);

/** The first row whose first field has an equal text, as the databases compare; their searches find
 *  the same one. -1 for none. @p text is not empty. */
qsizetype FirstRow(const TableRows &rows, const QString &text);

} // namespace saldoro
