#pragma once

#include "database/table_def.h"

#include <QString>
#include <QStringList>

namespace saldoro {

/** A query as it goes to the engine. */
struct EngineQuery
{
    /** The query with the order of texts named behind every text literal and every term of
     *  ORDER BY. */
    QString text;
    /** For "SELECT * FROM name" with nothing but a condition and an order behind it: the name,
     * which may be a stored query's. Otherwise empty. */
    QString singleTable;
    /** For a single table: the same query with the row's position as its first column. */
    QString textWithRowId;
};

/** Prepares @p sql for the engine. Knows the forms that queries have here: no comments, and nothing
 *  behind the terms of ORDER BY. Never fails: what can't be read goes on as it is, and the engine
 *  says what is wrong with it. */
EngineQuery EngineQueryFor(const QString &sql);

/** @p name as a quoted identifier. */
QString QuotedName(const QString &name);

/** Beginning of the names of the constraints that refuse empty texts; the field's name follows. */
inline constexpr QLatin1StringView ZeroLengthConstraint("ZeroLength ");

/** The statement that makes a table. */
QString CreateTableSql(const TableDef &table);

/** The statements on single records; the parameters are the values of the fields, behind them the
 *  id of the row. A deletion has no fields, and takes them to be called like an update. */
QString InsertSql(const QString &table, const QStringList &fields);
QString UpdateSql(const QString &table, const QStringList &fields);
QString DeleteSql(const QString &table, const QStringList &none);

} // namespace saldoro
