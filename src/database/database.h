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
 * One open database file. It is closed when the object, its copies and all record sets opened from
 * it are gone. Tables are made from definitions; everything else goes through record sets.
 *
 * Paths are archive paths (backslashes, any letter case), turned into paths of the machine here.
 * Every failure is a DatabaseError that names the file, unless a function says otherwise; opening a
 * file also throws FileError when a write-ahead log of another one lies beside it. Where a function
 * of the floors above opens a file and promises DatabaseError, that FileError passes, too. Other
 * programs of the suite use the same files: every action waits for a file that is locked, up to
 * LockWaitMilliseconds, before it throws Locked. One whose statement keeps the engine at work
 * for more than some 20 seconds throws Endless.
 */
class Database
{
public:
    /** How long an action waits for a file that another program has locked. */
    static constexpr int LockWaitMilliseconds = 5000;

    /** Creates an empty database. @p locale is what other engines need to know; the present one
     *  does without. Throws FileExists, FileMissing (no such folder), ReadOnly, DiskFull. */
    static Database create(const QString &path, const QString &locale);

    /** Opens an existing file for reading and writing; one that can't be written opens too, and
     *  only refuses changes. @p lockWait replaces LockWaitMilliseconds for this and all later
     *  actions. Throws FileMissing, NotADatabase, ReadFailed, Locked, and ReadOnly when a change
     *  was broken off that it has no right to undo. */
    static Database open(const QString &path, int lockWait = LockWaitMilliseconds);

    /** As open(), but no change can reach the file through it. */
    static Database openReadOnly(const QString &path);

    /** Opens one more existing file on the connection of this one: a transaction on either covers
     *  both. To be called outside a transaction. Queries through the result are about its own
     *  file. The connection lives until all its Databases and record sets are gone. Throws as
     *  open(), and OtherEncoding when the files keep their texts in different encodings. */
    Database attach(const QString &path) const;

    /** Adds an empty table with the fields of @p table in their order. Throws Other when the file
     *  has a table of that name. */
    void appendTableDef(const TableDef &table);

    /** The definition of a table of the file, by its name in any letter case; for tables of other
     *  programs, as far as the words of their types tell. No value when there is no such table; a
     *  stored query is none. */
    std::optional<TableDef> tableDef(const QString &name) const;

    /** Whether @p name, in any letter case, is a stored query of the file. */
    bool isStoredQuery(const QString &name) const;

    /** The names of the triggers that the file has on a table. */
    QStringList triggersOf(const QString &table) const;

    /** Deletes all records of a table, in one statement. Throws NotStored when a trigger kept some,
     *  TableMissing, Locked, ReadOnly, DiskFull. */
    void deleteAll(const QString &table);

    /**
     * Opens a record set on @p sql, which is taken as it stands, trailing and doubled blanks
     * included. "SELECT * FROM one-table ..." gives an updatable set; joins, stored queries and
     * tables whose records have no position are read-only. The records are read at the first use,
     * which throws Endless also when that gives more than memory should hold. Throws SyntaxError,
     * TableMissing, FieldMissing.
     */
    RecordSet openRecordSet(const QString &sql) const;

    /** Writes a whole copy of the file beside it, as it stands on the disk between two changes of
     *  other programs, and flushes it. The copy gets a name with date and time that no file has:
     *  "Saldoro copia 2026-03-31 10.15.00.mdb"; until it is complete, also when the process dies,
     *  the name ends in ".nuovo". To be called before the first change of a transaction on this
     *  connection. After Locked, ReadOnly, DiskFull or FileError nothing is left.
     *  @return the copy's path of the machine */
    QString backUpBeside() const;

    /** The same with a name of the caller's, a path of the machine where no file is yet. */
    void copyTo(const QString &copyPath) const;

    /** A copy in memory, to try changes on. Its errors name the file. */
    Database copyInMemory() const;

    /** What a copy that is made now is called: "Saldoro copia 2026-03-31 10.15.00" of "Saldoro". */
    static QString copyName(const QString &original);

    /** That the file has lost its end, or the first fault that the engine finds when it looks
     *  through the whole file, in its own words; empty when the file is sound. Throws NotADatabase
     *  when it can't even do that. */
    QString damage() const;

    /** Whether the file at @p path has an ordinary rollback journal, and so no companion files
     *  between two changes that must be copied with it. True for what is no database. Does not open
     *  the database, since that would make the companions. */
    static bool hasPlainJournal(const QString &path);
    /** What is wrong with a file without a plain journal, in Italian, to stand behind its name. */
    static QString noPlainJournalProblem();
    /** Throws FileError for such a file. */
    static void requirePlainJournal(const QString &path);

    /** Path of the file beside a database that undoes a change which was broken off; of the machine
     *  if @p path is. */
    static QString journalPath(const QString &path) { return path + QStringLiteral("-journal"); }

    /** Throws FileError when such a file lies where a database is to be made: the engine would drop
     *  or play it, and the database that it belongs to, now missing, needs it. */
    static void requireNoJournal(const QString &path);

    /** The path of the machine, for messages. */
    QString path() const;

private:
    friend class TableRefill;
    friend class Transaction;
    explicit Database(std::shared_ptr<Connection> file);
    std::shared_ptr<Connection> m_file;
};

/** What a transaction keeps together: reads or changes. */
enum class TransactionKind
{
    Reading,
    Writing
};

/**
 * Writing: all changes from the construction on, new tables included, reach the disk together or
 * not at all, in all files of the connection (see attach()). A process that is killed, or a machine
 * that stops, before the end of commit() leaves every file as it was.
 *
 * Reading: all record sets that are first used before its end see a file as it was when the first
 * of them was. No other program can change the file meanwhile, so it should be short.
 */
class Transaction
{
public:
    /** For writing, locks all files, so that no other program writes until the end. Throws Locked,
     *  and ReadOnly when @p database is; of other files of its connection the first change tells.
     */
    explicit Transaction(const Database &database, TransactionKind kind = TransactionKind::Writing);
    /** Takes back all changes unless they were committed. */
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /** Puts the changes on the disk. Throws Locked, DiskFull; then nothing is changed. */
    void commit();

private:
    std::shared_ptr<Connection> m_files;
    std::optional<QStringList> m_superJournalsOfOthers; ///< of a transaction that writes
    bool m_isOpen = false;
};

} // namespace saldoro
