#pragma once

#include <QString>

namespace saldoro {

/** The name under which the order of texts is known to the engine. */
inline constexpr const char *TextCollationName = "SALDORO";

/** The position of a record in its table, as the engine calls it. */
inline constexpr QLatin1StringView RowIdName("_rowid_");

/** A query as it goes to the engine. */
struct EngineQuery
{
    /** The query with the order of texts named wherever a text literal is compared in a condition
     *  and for every term of ORDER BY. */
    QString text;
    /** For "SELECT * FROM name ..." on nothing but that one name: the name. Otherwise empty. */
    QString singleTable;
    /** For a single table: the same query with the row's position as its first column. */
    QString textWithRowId;
};

/** Prepares @p sql for the engine. Never fails: what can't be read goes on as it is, and the
 *  engine says what is wrong with it. */
EngineQuery EngineQueryFor(const QString &sql);

/** @p name as a quoted identifier. */
QString QuotedName(const QString &name);

} // namespace saldoro
