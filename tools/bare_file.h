#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace saldoro {

/** What stands behind a write when it returns. */
enum class Durability
{
    Full, ///< as the program writes: every statement is on the disk
    None  ///< for rows that can be made again
};

/** A prepared statement and nothing around it. Failures throw std::runtime_error. */
class BareStatement
{
public:
    /** Runs a change with these values, whole numbers or texts, in their order. */
    template <typename... Values>
    void run(const Values &...values)
    {
        int position = 0;
        (bind(++position, values), ...);
        finish();
    }

    /** Reads every column of every row; the sum of numbers and text sizes, so that none of the
     *  reading can be left out. */
    qint64 readAll();

private:
    friend class BareFile;
    BareStatement(sqlite3 *file, const char *sql);
    void bind(int position, qint64 value);
    void bind(int position, const QByteArray &utf8);
    void bind(int position, const QString &text) { bind(position, text.toUtf8()); }
    void finish();
    void check(bool worked) const;

    sqlite3 *m_file;
    std::shared_ptr<sqlite3_stmt> m_statement;
};

/** One connection to a database file with nothing but the engine's own calls, as another program
 *  would have it: the only way past the database layer for tests, benchmarks and tools. */
class BareFile
{
public:
    /** @p archivePath is an archive path (backslashes). Throws std::runtime_error. */
    explicit BareFile(const QString &archivePath, Durability durability = Durability::Full);

    /** Runs @p sql, one statement or several; gives the rows one a line, cells joined by "|": a
     *  null reads "-", a currency value its count of ten-thousandths, a date as stored. */
    QString rows(const QString &sql);
    BareStatement prepare(const char *sql) { return {m_file.get(), sql}; }
    void run(const char *sql) { prepare(sql).run(); }
    qint64 readAll(const char *sql) { return prepare(sql).readAll(); }
    /** Row id of the row that was inserted last. */
    qint64 lastRowId() const;

private:
    std::shared_ptr<sqlite3> m_file;
};

} // namespace saldoro
