#pragma once

#include "database/record_set.h"
#include "database/table_def.h"

#include <QString>
#include <QStringList>

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

    Database(Database &&other) noexcept = default;
    Database &operator=(Database &&other) noexcept = default;
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;
    ~Database() = default;

    /** Creates an empty database. @p locale is the engine's locale text, which the engine that is
     *  in use does without. Throws FileExists, FileMissing (no such folder), ReadOnly. */
    static Database create(const QString &path, const QString &locale);

    /** Opens an existing file for reading and writing; a file on a read-only medium opens too and
     *  only refuses changes. Never creates one. Throws FileMissing, NotADatabase, Locked, the last
     *  after @p lockWait milliseconds, as every action later on. */
    static Database open(const QString &path, int lockWait = LockWaitMilliseconds);

    /** As open(), but no change can reach the file through it. */
    static Database openReadOnly(const QString &path);

    /** Opens one more existing file on the connection of this one, no transaction being open there:
     *  a transaction on either covers both. Queries through the result are about its own file, and
     *  the connection lives until all its Databases and record sets are gone. Throws as open(). */
    Database attach(const QString &path) const;

    /** Adds an empty table with the fields of @p table in their order. Throws Other when the file
     *  has a table of that name. */
    void appendTableDef(const TableDef &table);

    /** The definition of a table that the file holds, by its name in any letter case: in tables of
     *  other programs as far as the words of their types tell. No value when there is no such
     *  table; a stored query is none. */
    std::optional<TableDef> tableDef(const QString &name) const;

    /** Whether @p name, in any letter case, is a stored query of the file. */
    bool isStoredQuery(const QString &name) const;

    /** Deletes all records of a table, in one statement. Throws NotStored when a trigger kept some,
     *  TableMissing, Locked, ReadOnly, DiskFull. */
    void deleteAll(const QString &table);

    /**
     * Opens a record set on @p sql, which is taken as it stands, trailing and doubled blanks
     * included. "SELECT * FROM one-table ..." gives an updatable set; joins, stored queries and
     * tables whose records have no position are read-only. The records are those of the moment of
     * first use, which throws Endless when a stored query goes on for more than some 20 seconds or
     * gives more than memory should take. Throws SyntaxError, TableMissing, FieldMissing.
     */
    RecordSet openRecordSet(const QString &sql) const;

    /** Writes a whole copy of the file as it stands on the disk, between two changes of other
     *  programs, and flushes it. Only when it is complete it gets its name, with date and time,
     *  that no file has yet: "Saldoro copia 2026-03-31 10.15.00.mdb", beside the file. Until then,
     *  and when the process dies, it is "Saldoro.mdb.copia", which the next copy replaces. In a
     *  transaction of this connection: before the first change. Throws Locked, ReadOnly, DiskFull,
     *  FileError; nothing is left then.
     *  @return the copy's path of the machine. */
    QString backUpBeside() const;

    /** The same in another file of the machine, which is not there yet. */
    void copyTo(const QString &copyPath) const;

    /** What the engine finds first when it looks through the whole file, in its own words; empty
     *  when the file is sound. Throws NotADatabase when it can't even be looked through. */
    QString damage() const;

    /** Whether the file at @p path goes with an ordinary rollback journal, thus has no companions
     *  between two changes that must be copied with it; also for what is no database. Opens none,
     *  since that would make the companions. */
    static bool hasPlainJournal(const QString &path);

    /** The path of the machine, for messages. */
    QString path() const;

private:
    friend class TableRefill;
    friend class Transaction;
    explicit Database(std::shared_ptr<Connection> file);
    std::shared_ptr<Connection> m_file;
};

/** What is kept together. */
enum class TransactionKind
{
    Reading,
    Writing
};

/**
 * Writing: several changes that reach the disk together or not at all, in all files of the
 * connection (see attach()): everything that is written from the construction on, tables that are
 * made included. A process that is killed, or a machine that stops, before the end of commit()
 * leaves every file as it was.
 *
 * Reading: all record sets that are first used until its end see a file as it was when the first of
 * them was. No other program can change the file meanwhile, so it should be short.
 */
class Transaction
{
public:
    /** For writing it takes the write locks of all files, so that no other program writes until
     *  the end. Throws Locked, ReadOnly. */
    explicit Transaction(const Database &database, TransactionKind kind = TransactionKind::Writing);
    /** Takes back what was not committed. */
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /** Puts the changes on the disk. Throws Locked, DiskFull; then nothing is changed. */
    void commit();

private:
    std::shared_ptr<Connection> m_files;
    QStringList m_tiesOfOthers;
    bool m_isOpen = false;
};

} // namespace saldoro
