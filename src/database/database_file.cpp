#include "database/database_file.h"

#include "common/errors.h"
#include "database/engine_error.h"
#include "database/sql_text.h"
#include "database/text_collation.h"

#include <QFileInfo>

#include <sqlite3.h>

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

DatabaseFile::DatabaseFile(const QString &path, FileAccess access, int lockWaitMilliseconds)
    : m_path(QFileInfo(path).absoluteFilePath())
{
    if (access != FileAccess::Create)
        refuseWhatIsNoDatabase(m_path);
    try {
        connect(access, lockWaitMilliseconds);
    } catch (...) {
        close();
        throw;
    }
}

DatabaseFile::~DatabaseFile()
{
    close();
}

void DatabaseFile::connect(FileAccess access, int lockWaitMilliseconds)
{
    const int mode = access == FileAccess::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    int code = sqlite3_open_v2(m_path.toUtf8().constData(), &m_handle, mode | SQLITE_OPEN_NOMUTEX,
                               nullptr);
    if (code != SQLITE_OK)
        fail(code, {});
    setLockWait(lockWaitMilliseconds);
    sqlite3_extended_result_codes(m_handle, 1);
    code = sqlite3_create_collation_v2(m_handle, TextCollationName, SQLITE_UTF8, nullptr, collate,
                                       nullptr);
    // Opening reads nothing: it is the list of tables that shows whether this is a database. A new
    // file gets its header by the first change of anything.
    const char *look = access == FileAccess::Create ? "PRAGMA user_version = 1"
                                                    : "SELECT count(*) FROM sqlite_master";
    for (const char *sql : {"PRAGMA synchronous = FULL", look}) {
        if (code == SQLITE_OK)
            code = sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr);
    }
    if (code != SQLITE_OK)
        fail(code, {});
}

sqlite3 *DatabaseFile::handle() const
{
    if (!isOpen())
        throw DatabaseError(DatabaseFault::Other, m_path, {}, {},
                            u"l'archivio è già stato chiuso"_s);
    return m_handle;
}

void DatabaseFile::setLockWait(int milliseconds)
{
    sqlite3_busy_timeout(handle(), milliseconds);
}

void DatabaseFile::copyTo(DatabaseFile &copy) const
{
    sqlite3_backup *backup = sqlite3_backup_init(copy.handle(), "main", handle(), "main");
    if (backup == nullptr)
        copy.fail(sqlite3_errcode(copy.m_handle), {});
    constexpr int AllPages = -1;
    const int step = sqlite3_backup_step(backup, AllPages); // waits for a locked file
    const int code = sqlite3_backup_finish(backup);
    if (step != SQLITE_DONE)
        copy.fail(code == SQLITE_OK ? step : code, {});
}

void DatabaseFile::close()
{
    sqlite3_close_v2(m_handle);
    m_handle = nullptr;
}

void DatabaseFile::fail(int code, const QString &table) const
{
    const QString message = m_handle == nullptr ? QString::fromUtf8(sqlite3_errstr(code))
                                                : QString::fromUtf8(sqlite3_errmsg(m_handle));
    ThrowEngineError(code, message, m_path, table);
}

} // namespace saldoro
