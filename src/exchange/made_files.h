#pragma once

#include "store/archive_paths.h"

#include <QString>
#include <QStringList>

namespace saldoro {

/** Removes the folders and files that it made, unless keep() was called. A folder into which others
 *  have put something stays. Paths are of the machine. */
class MadeFiles
{
public:
    MadeFiles() = default;
    ~MadeFiles();
    Q_DISABLE_COPY_MOVE(MadeFiles)

    /** Makes a folder with those above it that are missing. Throws FileError. */
    void makeFolder(const QString &folder);
    /** Makes a database with its empty tables, which has its name only when it is complete. Throws
     *  DatabaseError, FileError. */
    void makeDatabase(const QString &path, ArchiveFile file);
    /** Takes over a file that has just been made. */
    void add(const QString &path) { m_paths.append(path); }
    /** Makes all stay. */
    void keep() { m_paths.clear(); }

private:
    QStringList m_paths;
};

} // namespace saldoro
