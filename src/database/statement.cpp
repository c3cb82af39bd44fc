#include "database/statement.h"

#include <sqlite3.h>
#include <utility>

namespace saldoro {

Statement::Statement(std::shared_ptr<Connection> file, const QString &sql, const QString &table)
    : m_file(std::move(file))
    , m_table(table)
{
    m_file->startClock(); // newer engines look at it while they prepare, too
    const QByteArray text = sql.toUtf8();
    const char *rest = nullptr;
    sqlite3_stmt *statement = nullptr;
    const int code = sqlite3_prepare_v2(m_file->handle(), text.constData(),
                                        static_cast<int>(text.size() + 1), &statement, &rest);
    if (code != SQLITE_OK)
        m_file->fail(code, table);
    m_statement.reset(statement, sqlite3_finalize);
    const QByteArrayView remainder(rest, text.constData() + text.size());
    if (statement == nullptr || !remainder.trimmed().isEmpty())
        throw DatabaseError(DatabaseFault::SyntaxError, m_file->path(), table, {}, sql);
}

bool Statement::isQuery() const
{
    return sqlite3_stmt_readonly(m_statement.get()) != 0 && columnCount() > 0;
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_statement.get());
}

QList<FieldDef> Statement::fields(int first) const
{
    QList<FieldDef> result;
    for (int column = first; column < columnCount(); ++column)
        result.append(FieldOfDeclaration(
            QString::fromUtf8(sqlite3_column_name(m_statement.get(), column)),
            QString::fromUtf8(sqlite3_column_decltype(m_statement.get(), column))));
    return result;
}

void Statement::bind(int position, const StoredValue &value)
{
    int code = SQLITE_OK;
    if (const auto *whole = std::get_if<qint64>(&value))
        code = sqlite3_bind_int64(m_statement.get(), position, *whole);
    else if (const auto *real = std::get_if<double>(&value))
        code = sqlite3_bind_double(m_statement.get(), position, *real);
    else if (const auto *text = std::get_if<QByteArrayView>(&value))
        code = sqlite3_bind_text64(m_statement.get(), position, text->data(),
                                   static_cast<sqlite3_uint64>(text->size()), SQLITE_STATIC,
                                   SQLITE_UTF8);
    else
        code = sqlite3_bind_null(m_statement.get(), position);
    if (code != SQLITE_OK)
        m_file->fail(code, m_table);
}

bool Statement::step()
{
    if (sqlite3_stmt_busy(m_statement.get()) == 0) // at its beginning
        m_file->startClock();
    const int code = sqlite3_step(m_statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        sqlite3_reset(m_statement.get()); // keeps the failure's message
        m_file->fail(code, m_table);
    }
    return code == SQLITE_ROW;
}

int Statement::run()
{
    while (step()) {
    }
    sqlite3_reset(m_statement.get());
    return sqlite3_changes(m_file->handle());
}

StoredValue Statement::value(int column, std::pmr::memory_resource &texts) const
{
    // All reading goes through here: the value is looked up once, not once for each property. That
    // is allowed because only one thread uses the connection.
    sqlite3_value *value = sqlite3_column_value(m_statement.get(), column);
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL)
        return {};
    if (type == SQLITE_INTEGER)
        return qint64{sqlite3_value_int64(value)};
    if (type == SQLITE_FLOAT)
        return sqlite3_value_double(value);
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return KeptText({bytes, sqlite3_value_bytes(value)}, texts);
}

qint64 Statement::whole(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

QString Statement::text(int column) const
{
    const auto *bytes =
        reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement.get(), column));
}

} // namespace saldoro
