#pragma once

#include "database/record_set.h"
#include "database/table_def.h"

#include <QString>

#include <memory>
#include <optional>

namespace saldoro {

class Connection;

/**
 * One open database file, which is closed when it and the last record set opened from it are gone.
 * Not copied, only moved. Tables are made from definitions; everything else goes through record
 * sets.
 *
 * Paths are archive paths (backslashes, any letter case), turned into paths of the machine here.
 * Every failure is a DatabaseError naming the file. The other programs of the suite use the same
 * files: a file that is locked for a moment is waited for (LockWaitMilliseconds), then reported.
 */
class Database
{
public:
    /** How long an action waits for a file that another program has locked. */
    static constexpr int LockWaitMilliseconds = 5000;

    /** Creates an empty database. @p locale is the engine's locale text and is kept for engines
     *  that need one. Throws FileExists, FileMissing (no such folder), ReadOnly. */
    static Database create(const QString &path, const QString &locale);

    /** Opens an existing file for reading and writing; a file on a read-only medium opens too and
     *  only refuses changes. Never creates one. Throws FileMissing, NotADatabase, Locked, the last
     *  after @p lockWait milliseconds, as every action later on. */
    static Database open(const QString &path, int lockWait = LockWaitMilliseconds);

    /** As open(), but no change can reach the file through it. */
    static Database openReadOnly(const QString &path);

    /** Adds an empty table with the fields of @p table in their order. Throws Other when the file
     *  has a table of that name. */
    void appendTableDef(const TableDef &table);

    /** The definition of a table that the file holds, by its name in any letter case: in tables of
     *  other programs as far as the words of their types tell. No value when there is no such
     *  table; a stored query is none. */
    std::optional<TableDef> tableDef(const QString &name) const;

    /** Whether @p name, in any letter case, is a stored query of the file. */
    bool isStoredQuery(const QString &name) const;

    /** Deletes all records of a table, in one statement. Throws TableMissing, Locked, ReadOnly,
     *  DiskFull. */
    void deleteAll(const QString &table);

    /**
     * Opens a record set on @p sql, which is taken as it stands, trailing and doubled blanks
     * included. "SELECT * FROM one-table ..." gives an updatable key set; joins and stored queries
     * are read-only. The records are those of the moment of first use. Throws SyntaxError,
     * TableMissing, FieldMissing.
     */
    RecordSet openRecordSet(const QString &sql) const;

    /** Writes a whole copy of the file beside it, as it stands between two changes of other
     *  programs, and flushes it to the disk. It gets a name with date and time that no file has
     * yet, "Saldoro copia 2026-03-31 10.15.00.mdb". Throws Locked, ReadOnly, DiskFull; a copy that
     * fails is taken away again.
     *  @return the copy's path of the machine. */
    QString backUpBeside() const;

    /** The path of the machine, for messages. */
    QString path() const;

private:
    friend class Transaction;
    explicit Database(std::shared_ptr<Connection> file);
    std::shared_ptr<Connection> m_file;
};

/**
 * Several changes of one file that reach it together or not at all: everything that is written
 * through the Database from the construction on, tables that are made included. A process that is
 * killed before the end of commit() leaves the file as it was.
 */
class Transaction
{
public:
    /** Takes the file's write lock, so that no other program writes until the end. Throws Locked,
     *  ReadOnly. */
    explicit Transaction(Database &database);
    /** Takes back what was not committed. */
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /** Puts the changes on the disk. Throws Locked, DiskFull; then nothing is changed. */
    void commit();

private:
    std::shared_ptr<Connection> m_file;
    bool m_isOpen = false;
};

} // namespace saldoro
