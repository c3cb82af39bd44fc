#pragma once

#include "database/database.h"
#include "database/field_value.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <memory_resource>

struct sqlite3;
struct sqlite3_stmt;

namespace saldoro {

/** What a connection may do with its file. */
enum class FileAccess
{
    Create, ///< as ReadWrite; the file is empty and becomes a database without tables
    ReadWrite,
    ReadOnly,
    InMemory ///< an empty database that takes the file's name in errors only
};

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
    QStringList ties() const;
    /** Deletes the ties that are not among @p others, unless a journal is left that may need one.
     */
    void removeTiesBut(const QStringList &others) const;

    /** Whether the file takes no changes, whatever the access. */
    bool isReadOnly() const;

    /** The row id of the record that was added last. */
    qint64 lastRowId() const;
    /** How many records were changed since the connection was opened, by triggers too. */
    int changesSoFar() const;

    /** Starts the time that one read may take. The engine gives up when it is over. */
    void startClock() const;

    /** Replaces the content of @p copy by that of this file and flushes it to the disk. Both are
     *  the first file of their connection. */
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

/** One prepared statement. Failures are thrown as by ThrowEngineError(), with file and table. */
class Statement
{
public:
    /** Prepares @p sql, which must hold exactly one statement. @p table is for error texts. */
    Statement(std::shared_ptr<Connection> file, const QString &sql, const QString &table = {});

    /** Whether running it gives rows and changes nothing. */
    bool isQuery() const;
    /** The columns of the result from position @p first on, as their declarations tell. */
    QList<FieldDef> fields(int first) const;

    /** Sets the parameter at @p position, counted from 1. A text is not copied: it has to live
     *  until the statement has run. */
    void bind(int position, const StoredValue &value);

    /** Runs to the next row; false at the end. A change outside a transaction is on the disk then.
     */
    bool step();
    /** Runs to the end and returns how many records an INSERT, UPDATE or DELETE changed; the number
     *  means nothing for other statements. The statement can be run again, also after a failure. */
    int run();

    int columnCount() const;
    /** A value of the current row; a text is put into @p texts. */
    StoredValue value(int column, std::pmr::memory_resource &texts) const;
    /** A value of the current row, converted by the engine: a null gives 0 or the empty text. */
    qint64 whole(int column) const;
    QString text(int column) const;

private:
    std::shared_ptr<Connection> m_file;
    QString m_table;
    std::shared_ptr<sqlite3_stmt> m_statement;
};

} // namespace saldoro
