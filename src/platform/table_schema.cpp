#include "platform/table_schema.h"

#include "platform/engine_error.h"
#include "platform/sql_text.h"
#include "platform/statement.h"

namespace saldoro {

namespace {

/** The statement that created the table; no text when there is no such table. */
QString definitionOf(const std::shared_ptr<DatabaseFile> &file, const QString &table)
{
    Statement query(file,
                    QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' "
                                   "AND name = ? COLLATE NOCASE"),
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
    Statement query(file,
                    QStringLiteral("SELECT name, \"notnull\", dflt_value IS NOT NULL, hidden "
                                   "FROM pragma_table_xinfo(?)"),
                    table);
    query.bind(1, table.toUtf8());
    while (query.step()) {
        const QString name = query.text(0);
        for (ColumnInfo &column : columns) {
            if (column.name != name)
                continue;
            column.hasRequiredValue = query.whole(1) != 0 && query.whole(2) != 0;
            column.isGenerated = query.whole(3) != 0;
            column.allowsZeroLength = !definition.contains(QuotedName(ZeroLengthConstraint + name));
        }
    }
}

} // namespace saldoro
