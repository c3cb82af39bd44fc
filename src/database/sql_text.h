#pragma once

#include "database/table_def.h"

#include <QString>
#include <QStringList>

namespace saldoro {

/** A query as it goes to the engine. */
struct EngineQuery
{
    /** The query, with the text order added to every literal and every term of ORDER BY, and the
     *  schema to every table. */
    QString text;
    /** For "SELECT * FROM name" with nothing but a condition and an order behind it: the name,
     *  which may be that of a stored query. Otherwise empty. */
    QString singleTable;
    qsizetype columns = 0; ///< for a single table: where the list of columns begins in the text

    /** For a single table: the same query with the row's position as its first column. */
    QString textWithRowId(const QString &rowIdName) const;
};

/** Prepares @p sql for the engine, with tables of the file that is called @p schema. Knows the
 *  forms that queries have here: no comments, no lists of tables but joins, nothing behind the
 *  terms of ORDER BY. Never fails: what it can't read stays as it is, and the engine says what is
 *  wrong. */
EngineQuery EngineQueryFor(const QString &sql, const QString &schema);

/** A name by which the engine knows the position of a record in a table of these fields; empty when
 *  fields have all such names. */
QString RowIdName(const QList<FieldDef> &fields);

/** @p name as a quoted identifier. */
QString QuotedName(const QString &name);

/** The quoted name of a table behind that of its file's schema. */
QString QualifiedName(const QString &schema, const QString &table);

/** The names of constraints that refuse empty texts begin so; the name of the field follows. */
inline constexpr QLatin1StringView ZeroLengthConstraint("ZeroLength ");

/** The statement that makes a table in the file that is called @p schema. */
QString CreateTableSql(const TableDef &table, const QString &schema);

/** The statements on single records of a table by its QualifiedName(); the parameters are the
 *  values of the fields, then the id of the row. The table's own rules for conflicts do not count:
 *  a row that is in the way stays. */
QString InsertSql(const QString &table, const QStringList &fields);
QString UpdateSql(const QString &table, const QStringList &fields, const QString &rowIdName);
QString DeleteSql(const QString &table, const QString &rowIdName);

} // namespace saldoro
