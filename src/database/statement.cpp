#include "database/statement.h"

#include "common/errors.h"
#include "database/database_file.h"
#include "platform/legacy_text.h"

#include <sqlite3.h>
#include <utility>

namespace saldoro {

namespace {

void appendTextOf(CellTable &cells, sqlite3_value *value)
{
    const int type = sqlite3_value_type(value); // the next call makes a text of it
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_value_text(value));
    const QByteArrayView stored(bytes, sqlite3_value_bytes(value));
    if (stored.isValidUtf8()) {
        cells.appendText(stored.data(), static_cast<quint32>(stored.size()), type == SQLITE_TEXT);
        return;
    }
    const QByteArray readable = TextOfStoredBytes(stored).toUtf8();
    cells.appendText(readable.constData(), static_cast<quint32>(readable.size()), false);
}

} // namespace

Statement::Statement(std::shared_ptr<DatabaseFile> file, const QString &sql, const QString &table)
    : m_file(std::move(file))
    , m_table(table)
{
    const QByteArray text = sql.toUtf8();
    const char *rest = nullptr;
    const int code = sqlite3_prepare_v2(m_file->handle(), text.constData(),
                                        static_cast<int>(text.size() + 1), &m_statement, &rest);
    if (code != SQLITE_OK)
        m_file->fail(code, table);
    const QByteArrayView remainder(rest, text.constData() + text.size());
    if (m_statement == nullptr || !remainder.trimmed().isEmpty()) {
        sqlite3_finalize(m_statement);
        throw DatabaseError(DatabaseFault::SyntaxError, m_file->path(), table, {}, sql);
    }
}

Statement::Statement(Statement &&other) noexcept
    : m_file(std::move(other.m_file))
    , m_table(std::move(other.m_table))
    , m_statement(std::exchange(other.m_statement, nullptr))
{
}

Statement::~Statement()
{
    sqlite3_finalize(m_statement);
}

bool Statement::isQuery() const
{
    return sqlite3_stmt_readonly(m_statement) != 0 && columnCount() > 0;
}

int Statement::columnCount() const
{
    return sqlite3_column_count(m_statement);
}

std::vector<ColumnInfo> Statement::columns(int first) const
{
    std::vector<ColumnInfo> result;
    for (int column = first; column < columnCount(); ++column) {
        result.push_back(
            ColumnFromDeclaration(QString::fromUtf8(sqlite3_column_name(m_statement, column)),
                                  QString::fromUtf8(sqlite3_column_decltype(m_statement, column))));
    }
    return result;
}

void Statement::bind(int position, const StoredValue &value)
{
    int code = SQLITE_OK;
    if (const auto *whole = std::get_if<qint64>(&value)) {
        code = sqlite3_bind_int64(m_statement, position, *whole);
    } else if (const auto *real = std::get_if<double>(&value)) {
        code = sqlite3_bind_double(m_statement, position, *real);
    } else if (const auto *text = std::get_if<QByteArray>(&value)) {
        code = sqlite3_bind_text64(m_statement, position, text->constData(),
                                   static_cast<sqlite3_uint64>(text->size()), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    } else {
        code = sqlite3_bind_null(m_statement, position);
    }
    if (code != SQLITE_OK)
        m_file->fail(code, m_table);
}

bool Statement::step()
{
    m_file->handle(); // refuses a closed file
    const int code = sqlite3_step(m_statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        m_file->fail(code, m_table);
    return code == SQLITE_ROW;
}

void Statement::reset()
{
    sqlite3_reset(m_statement); // tells once more of a failure that step() has reported
}

qint64 Statement::whole(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

QString Statement::text(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement, column));
}

void Statement::appendRow(CellTable &cells, int first) const
{
    // One look-up of the value instead of one for each of its properties: this is the loop that
    // all reading goes through, and the connection is used by one thread only.
    const int end = first + cells.columnCount();
    for (int column = first; column < end; ++column) {
        sqlite3_value *value = sqlite3_column_value(m_statement, column);
        switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            cells.appendNull();
            break;
        case SQLITE_INTEGER:
            cells.appendWhole(sqlite3_value_int64(value));
            break;
        case SQLITE_FLOAT:
            cells.appendReal(sqlite3_value_double(value));
            break;
        default:
            appendTextOf(cells, value);
        }
    }
}

} // namespace saldoro
