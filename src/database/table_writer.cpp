#include "database/table_writer.h"

#include "common/errors.h"
#include "database/database_file.h"
#include "database/sql_text.h"

#include <QStringList>

#include <optional>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Runs a writing statement to its end and gives the row it returned, if any. */
std::optional<WrittenRow> run(Statement &statement, size_t columnCount)
{
    std::optional<WrittenRow> row;
    while (statement.step()) {
        row = WrittenRow{statement.whole(0), CellTable(static_cast<int>(columnCount))};
        statement.appendRow(row->cells, 1);
    }
    return row;
}

} // namespace

TableWriter::TableWriter(std::shared_ptr<DatabaseFile> file, QString table,
                         const std::vector<ColumnInfo> *columns)
    : m_file(std::move(file))
    , m_table(std::move(table))
    , m_columns(columns)
{
}

QString TableWriter::columnName(int column) const
{
    return QuotedName((*m_columns)[static_cast<size_t>(column)].name);
}

QString TableWriter::returning() const
{
    QStringList names{QString(RowIdName)};
    for (const ColumnInfo &column : *m_columns)
        names.append(QuotedName(column.name));
    return u" RETURNING "_s + names.join(u", "_s);
}

WrittenRow TableWriter::insert(const RecordChanges &values) const
{
    QStringList names;
    QStringList marks;
    for (const auto &[column, value] : values) {
        names.append(columnName(column));
        marks.append(u"?"_s);
    }
    const QString comma = u", "_s;
    const QString written =
        values.empty() ? u" DEFAULT VALUES"_s
                       : u'(' + names.join(comma) + u") VALUES ("_s + marks.join(comma) + u')';
    Statement statement(m_file, u"INSERT INTO "_s + QuotedName(m_table) + written + returning(),
                        m_table);
    int position = 0;
    for (const auto &[column, value] : values)
        statement.bind(++position, value);
    std::optional<WrittenRow> row = run(statement, m_columns->size());
    if (!row)
        throw DatabaseError(DatabaseFault::Other, m_file->path(), m_table);
    return std::move(*row);
}

WrittenRow TableWriter::update(qint64 rowId, const RecordChanges &changes) const
{
    QStringList settings;
    for (const auto &[column, value] : changes)
        settings.append(columnName(column) + u" = ?"_s);
    Statement statement(m_file,
                        u"UPDATE "_s + QuotedName(m_table) + u" SET "_s + settings.join(u", "_s) +
                            u" WHERE "_s + RowIdName + u" = ?"_s + returning(),
                        m_table);
    int position = 0;
    for (const auto &[column, value] : changes)
        statement.bind(++position, value);
    statement.bind(++position, rowId);
    std::optional<WrittenRow> row = run(statement, m_columns->size());
    if (!row)
        throw DatabaseError(DatabaseFault::RecordGone, m_file->path(), m_table);
    return std::move(*row);
}

void TableWriter::remove(qint64 rowId) const
{
    Statement statement(
        m_file, u"DELETE FROM "_s + QuotedName(m_table) + u" WHERE "_s + RowIdName + u" = ?"_s,
        m_table);
    statement.bind(1, rowId);
    run(statement, m_columns->size());
}

} // namespace saldoro
