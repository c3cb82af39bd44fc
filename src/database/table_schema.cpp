#include "database/table_schema.h"

#include "database/engine_error.h"
#include "database/sql_text.h"
#include "database/statement.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The statement that created the table; no text when there is no such table. */
QString definitionOf(const std::shared_ptr<DatabaseFile> &file, const QString &table)
{
    Statement query(file,
                    u"SELECT sql FROM sqlite_master WHERE type = 'table' "
                    "AND name = ? COLLATE NOCASE"_s,
                    table);
    query.bind(1, table.toUtf8());
    return query.step() ? query.text(0) : QString();
}

} // namespace

bool HasTable(const std::shared_ptr<DatabaseFile> &file, const QString &table)
{
    return !definitionOf(file, table).isEmpty();
}

void CompleteColumns(const std::shared_ptr<DatabaseFile> &file, const QString &table,
                     std::vector<ColumnInfo> &columns)
{
    const QString definition = definitionOf(file, table);
    for (ColumnInfo &column : columns) {
        const QString constraint = QuotedName(ZeroLengthConstraint + column.name);
        column.allowsZeroLength = !definition.contains(constraint);
    }
}

} // namespace saldoro
