#include "database/connection.h"

#include "database/criterion.h"
#include "database/engine_error.h"
#include "database/text_order.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <chrono>
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

void refuseWhatIsNoDatabase(const QString &path)
{
    if (const auto fault = FileFault(path))
        throw DatabaseError(*fault, path);
}

/** The engine would play a log into a database that it does not belong to, such as a copy that was
 *  put back in the place of its own. */
void refuseLogOfOther(const QString &path)
{
    const QFileInfo log(path + u"-wal"_s);
    if (log.isFile() && log.size() > 0 && Database::hasPlainJournal(path))
        throw FileError(log.filePath(),
                        u"Il file non è dell'archivio a cui sta accanto, e lo cambierebbe."_s,
                        u"Spostarlo altrove e riprovare."_s);
}

} // namespace

void CreateEmptyFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        if (IsTaken(path))
            throw DatabaseError(DatabaseFault::FileExists, path);
        throw DatabaseError(QFileInfo(path).absoluteDir().exists() ? DatabaseFault::ReadOnly
                                                                   : DatabaseFault::FileMissing,
                            path);
    }
}

/** The engine's connection, and what all its files share. */
struct Connection::Engine
{
    sqlite3 *handle = nullptr;
    QStringList paths;
    std::chrono::steady_clock::time_point end; ///< when the read under way has to be done
    int looks = 0;                             ///< at the clock, each after many steps of the read

    Engine() = default;
    Engine(const Engine &) = delete;
    Engine &operator=(const Engine &) = delete;
    ~Engine() { sqlite3_close(handle); }

    /** A statement that waits for a slow disk makes few steps, and so few looks. */
    static int isTooLate(void *reading)
    {
        constexpr int leastLooks = 1000;
        auto &engine = *static_cast<Engine *>(reading);
        return ++engine.looks > leastLooks && std::chrono::steady_clock::now() > engine.end ? 1 : 0;
    }
};

Connection::Connection(const QString &path, FileAccess access, int lockWait)
    : m_path(QFileInfo(path).absoluteFilePath())
    , m_schema(u"main"_s)
    , m_engine(std::make_shared<Engine>())
{
    const bool isInMemory = access == FileAccess::InMemory;
    if (access != FileAccess::Create)
        refuseWhatIsNoDatabase(m_path);
    refuseLogOfOther(m_path);
    m_engine->paths.append(m_path);
    const int mode = access == FileAccess::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    int code = sqlite3_open_v2(isInMemory ? ":memory:" : m_path.toUtf8().constData(),
                               &m_engine->handle, mode | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK)
        fail(code, {});
    sqlite3_busy_timeout(handle(), lockWait);
    sqlite3_extended_result_codes(handle(), 1);
    constexpr int stepsBetweenLooks = 100'000; // of the engine's machine; a few milliseconds
    sqlite3_progress_handler(handle(), stepsBetweenLooks, Engine::isTooLate, m_engine.get());
    startClock();
    code = sqlite3_create_collation_v2(handle(), TextOrderName, SQLITE_UTF8, nullptr, collate,
                                       nullptr);
    if (code != SQLITE_OK)
        fail(code, {});
    execute(u"PRAGMA trusted_schema = OFF"_s); // views and triggers may come from anywhere
    // Large changes stay in memory until they are complete: the file is read undisturbed meanwhile,
    // and its journal flushed once.
    execute(u"PRAGMA cache_spill = OFF"_s);
    // A new file needs no journal. Setting user_version only makes the engine write the header,
    // which the next change flushes.
    if (access == FileAccess::Create)
        execute(
            u"PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; PRAGMA user_version = 1"_s);
    execute(u"PRAGMA synchronous = EXTRA"_s); // also flushes the folder's entry
    // Opening reads nothing: only the list of tables shows whether this is a database.
    execute(u"SELECT count(*) FROM sqlite_master"_s);
}

Connection::Connection(const Connection &first, const QString &path)
    : m_path(QFileInfo(path).absoluteFilePath())
    , m_schema(u"file%1"_s.arg(first.m_engine->paths.size()))
    , m_engine(first.m_engine)
{
    refuseWhatIsNoDatabase(m_path);
    refuseLogOfOther(m_path);
    startClock();
    execute(u"ATTACH '%1' AS "_s.arg(RaddoppiaApici(m_path)) + m_schema);
    m_engine->paths.append(m_path);
    execute(u"PRAGMA %1.synchronous = EXTRA"_s.arg(m_schema));
}

sqlite3 *Connection::handle() const
{
    return m_engine->handle;
}

Connection Connection::ofAllFiles() const
{
    Connection all = *this;
    all.m_path = m_engine->paths.join(u", "_s);
    return all;
}

QStringList Connection::superJournals() const
{
    const QFileInfo first(m_engine->paths.first());
    QStringList paths;
    for (const QFileInfo &file :
         first.dir().entryInfoList({first.fileName() + u"-mj*"_s}, QDir::Files))
        paths.append(file.filePath());
    return paths;
}

void Connection::removeSuperJournalsBut(const QStringList &others) const
{
    for (const QString &path : std::as_const(m_engine->paths)) {
        if (QFileInfo::exists(Database::journalPath(path)))
            return;
    }
    for (const QString &path : superJournals()) {
        if (!others.contains(path))
            QFile::remove(path);
    }
}

void Connection::execute(const QString &sql) const
{
    const int code = sqlite3_exec(handle(), sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(code, {});
}

bool Connection::isReadOnly() const
{
    return sqlite3_db_readonly(handle(), m_schema.toLatin1().constData()) == 1;
}

qint64 Connection::lastRowId() const
{
    return sqlite3_last_insert_rowid(handle());
}

void Connection::startClock() const
{
    constexpr std::chrono::seconds longestRead{20};
    m_engine->end = std::chrono::steady_clock::now() + longestRead;
    m_engine->looks = 0;
}

void Connection::copyTo(Connection &copy) const
{
    sqlite3_backup *backup =
        sqlite3_backup_init(copy.handle(), copy.m_schema.toLatin1(), handle(), m_schema.toLatin1());
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
    const QString message = handle() == nullptr ? QString::fromUtf8(sqlite3_errstr(code))
                                                : QString::fromUtf8(sqlite3_errmsg(handle()));
    ThrowEngineError(code, message, m_path, table);
}

} // namespace saldoro
