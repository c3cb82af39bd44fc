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

/** Whether changes can reach the file. */
enum class FileAccess
{
    Create, ///< as ReadWrite; the file is empty and becomes a database without tables
    ReadWrite,
    ReadOnly
};

/**
 * One database file on an open connection of the engine, which it shares with other files that are
 * attached, and with the record sets opened from it. Every result code of the engine that stands
 * for a failure leaves through fail().
 */
class Connection
{
public:
    /** Opens an existing file and looks into it, so that what is no database is found out here.
     *  @param path path of the machine
     *  @param lockWait milliseconds for which every action waits for a file that is locked */
    Connection(const QString &path, FileAccess access,
               int lockWait = Database::LockWaitMilliseconds);
    /** The same for one more file on the connection of @p first, with the access that that has. */
    Connection(const Connection &first, const QString &path);

    const QString &path() const { return m_path; }
    /** The name of the file in SQL, which stands before those of its tables. */
    const QString &schema() const { return m_schema; }
    sqlite3 *handle() const;

    /** The same connection; errors name all its files, since it can't be told which is meant. */
    Connection ofAllFiles() const;

    /** Paths of the files beside the first file with which the engine ties the journals of several
     *  files together. It leaves one behind when it can't commit. */
    QStringList ties() const;
    /** Deletes those that are not among @p others, unless a journal is left that may need one. */
    void removeTiesBut(const QStringList &others) const;

    /** Whether the file takes no changes, however it was opened. */
    bool isReadOnly() const;

    /** The row id of the record that was added last. */
    qint64 lastRowId() const;
    /** How many records were changed since the connection was opened, by triggers too. */
    int changesSoFar() const;

    /** From now on the engine works for as long as one read may take, then gives up. */
    void startClock() const;

    /** Puts the whole content of this file into @p copy and flushes that to the disk. */
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

/** One prepared statement. Every failure is thrown as by ThrowEngineError(), with the file and the
 *  table. */
class Statement
{
public:
    /** Prepares @p sql, which must hold exactly one statement. @p table is for error texts. */
    Statement(std::shared_ptr<Connection> file, const QString &sql, const QString &table = {});

    /** Whether running it gives rows and changes nothing. */
    bool isQuery() const;
    /** The columns of the result, from position @p first on, as far as their declarations tell. */
    QList<FieldDef> fields(int first) const;

    /** Sets the parameter at @p position, counted from 1. */
    void bind(int position, const StoredValue &value);

    /** Runs to the next row; false at the end, when a change has reached the disk. */
    bool step();
    /** Runs to the end; then, or after a failure, it can be run again. The number of records that
     *  it changed. */
    int run();

    int columnCount() const;
    /** A value of the current row, a text being put into @p texts. */
    StoredValue value(int column, std::pmr::memory_resource &texts) const;
    /** A value of the current row, converted as the engine does; 0 and the empty text for a null.
     */
    qint64 whole(int column) const;
    QString text(int column) const;

private:
    std::shared_ptr<Connection> m_file;
    QString m_table;
    std::shared_ptr<sqlite3_stmt> m_statement;
};

} // namespace saldoro
