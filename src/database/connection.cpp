#include "database/connection.h"

#include "common/errors.h"
#include "database/database.h"
#include "database/engine_error.h"
#include "database/text_order.h"

#include <QFileInfo>

#include <sqlite3.h>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

int collate(void * /*context*/, int leftSize, const void *left, int rightSize, const void *right)
{
    return CompareText({static_cast<const char *>(left), leftSize},
                       {static_cast<const char *>(right), rightSize});
}

/** The engine takes an empty file for an empty database and a folder for a file it can't open. */
void refuseWhatIsNoDatabase(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        throw DatabaseError(DatabaseFault::FileMissing, path);
    if (!file.isFile() || file.size() == 0)
        throw DatabaseError(DatabaseFault::NotADatabase, path);
}

} // namespace

Connection::Connection(const QString &path, FileAccess access, int lockWait)
    : m_path(QFileInfo(path).absoluteFilePath())
{
    if (access != FileAccess::Create)
        refuseWhatIsNoDatabase(m_path);
    const int mode = access == FileAccess::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    sqlite3 *file = nullptr;
    int code =
        sqlite3_open_v2(m_path.toUtf8().constData(), &file, mode | SQLITE_OPEN_NOMUTEX, nullptr);
    m_handle.reset(file, sqlite3_close);
    if (code != SQLITE_OK)
        fail(code, {});
    sqlite3_busy_timeout(file, lockWait);
    sqlite3_extended_result_codes(file, 1);
    code = sqlite3_create_collation_v2(file, TextOrderName, SQLITE_UTF8, nullptr, collate, nullptr);
    // Opening reads nothing: it is the list of tables that shows whether this is a database. A new
    // file gets its header by the first change of anything.
    const char *look = access == FileAccess::Create ? "PRAGMA user_version = 1"
                                                    : "SELECT count(*) FROM sqlite_master";
    for (const char *sql : {"PRAGMA synchronous = FULL", look}) {
        if (code == SQLITE_OK)
            code = sqlite3_exec(file, sql, nullptr, nullptr, nullptr);
    }
    if (code != SQLITE_OK)
        fail(code, {});
}

bool Connection::isReadOnly() const
{
    return sqlite3_db_readonly(handle(), "main") == 1;
}

qint64 Connection::lastRowId() const
{
    return sqlite3_last_insert_rowid(handle());
}

void Connection::copyTo(Connection &copy) const
{
    sqlite3_backup *backup = sqlite3_backup_init(copy.handle(), "main", handle(), "main");
    if (backup == nullptr)
        copy.fail(sqlite3_errcode(copy.handle()), {});
    constexpr int allPages = -1;
    const int step = sqlite3_backup_step(backup, allPages); // waits for a locked file
    const int code = sqlite3_backup_finish(backup);
    if (step != SQLITE_DONE)
        copy.fail(code == SQLITE_OK ? step : code, {});
}

void Connection::fail(int code, const QString &table) const
{
    const QString message = m_handle == nullptr ? QString::fromUtf8(sqlite3_errstr(code))
                                                : QString::fromUtf8(sqlite3_errmsg(handle()));
    ThrowEngineError(code, message, m_path, table);
}

Statement::Statement(std::shared_ptr<Connection> file, const QString &sql, const QString &table)
    : m_file(std::move(file))
    , m_table(table)
{
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
                                   static_cast<sqlite3_uint64>(text->size()), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    else
        code = sqlite3_bind_null(m_statement.get(), position);
    if (code != SQLITE_OK)
        m_file->fail(code, m_table);
}

bool Statement::step()
{
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
    // One look-up of the value instead of one for each of its properties: this is the loop that
    // all reading goes through, and the connection is used by one thread only.
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
