#pragma once

#include "database/database.h"

#include <QString>
#include <QStringList>

#include <memory>

struct sqlite3;

namespace saldoro {

/** What a connection may do with its file. */
enum class FileAccess
{
    Create, ///< as ReadWrite; the file is empty and becomes a database without tables
    ReadWrite,
    ReadOnly,
    InMemory ///< an empty database; errors name the file, which must exist and not be empty
};

/** Makes a new, empty file, to become a database by FileAccess::Create. Throws FileExists, also
 *  for a link that leads nowhere, FileMissing (no such folder), ReadOnly. */
void CreateEmptyFile(const QString &path);

/**
 * One database file on an open connection of the engine. Files that are attached and record sets
 * that are opened share the connection. Every failure that the engine reports leaves by fail().
 */
class Connection
{
public:
    /** Opens an existing file and looks into it, so that a file that is no database is found here.
     *  @param path path of the machine
     *  @param lockWait how many milliseconds every action waits for a locked file */
    Connection(const QString &path, FileAccess access,
               int lockWait = Database::LockWaitMilliseconds);
    /** Opens one more file on the connection of @p first, with the same access. */
    Connection(const Connection &first, const QString &path);

    const QString &path() const { return m_path; }
    /** The name of the file in SQL, which precedes those of its tables. */
    const QString &schema() const { return m_schema; }
    sqlite3 *handle() const;

    /** The same connection, for actions on all its files: errors name all of them. */
    Connection ofAllFiles() const;

    /** Paths of the files by which the engine ties the journals of several files together. They lie
     *  beside the first file. The engine leaves one behind when it can't commit. */
    QStringList superJournals() const;
    /** Deletes the super-journals that are not among @p others, unless a journal is left that may
     *  need one. */
    void removeSuperJournalsBut(const QStringList &others) const;

    /** Whether the file takes no changes, whatever the access. */
    bool isReadOnly() const;

    /** The row id of the record that was added last. */
    qint64 lastRowId() const;

    /** Starts the time that one statement may take. The engine gives up when it is over, unless
     *  the disk took most of it. */
    void startClock() const;

    /** Replaces the content of @p copy by that of this file and flushes it to the disk. */
    void copyTo(Connection &copy) const;

    /** Throws the error that @p code stands for. */
    [[noreturn]] void fail(int code, const QString &table) const;

private:
    struct Engine;
    void execute(const QString &sql) const;

    QString m_path;
    QString m_schema;
    std::shared_ptr<Engine> m_engine;
};

} // namespace saldoro
