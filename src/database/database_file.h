#pragma once

#include <QString>

struct sqlite3;

namespace saldoro {

/** Whether changes can reach the file. */
enum class FileAccess
{
    Create, ///< as ReadWrite; the file is empty and becomes a database without tables
    ReadWrite,
    ReadOnly
};

/**
 * One open connection to a database file, shared by a Database and the record sets opened from it.
 * Every result code of the engine that stands for a failure leaves through fail().
 */
class DatabaseFile
{
public:
    /** Opens an existing file and looks into it, so that what is no database is found out here.
     *  @param path path of the machine. */
    DatabaseFile(const QString &path, FileAccess access, int lockWaitMilliseconds);
    DatabaseFile(const DatabaseFile &) = delete;
    DatabaseFile &operator=(const DatabaseFile &) = delete;
    ~DatabaseFile();

    const QString &path() const { return m_path; }

    /** The engine's handle; throws Other when the file has been closed. */
    sqlite3 *handle() const;
    bool isOpen() const { return m_handle != nullptr; }

    void setLockWait(int milliseconds);

    /** Puts the whole content of this file into @p copy and flushes that to the disk. */
    void copyTo(DatabaseFile &copy) const;

    /** Closes the connection; statements that are still prepared only can be let go. */
    void close();

    /** Throws the error that @p code stands for. */
    [[noreturn]] void fail(int code, const QString &table) const;

private:
    void connect(FileAccess access, int lockWaitMilliseconds);

    QString m_path;
    sqlite3 *m_handle = nullptr;
};

} // namespace saldoro
