#pragma once

#include "database/database.h"
#include "store/archive_paths.h"

#include <QString>

namespace saldoro {

/**
 * Creates an empty payment ledger, ArchiveFileName::Ledger in @p projectFolder (an archive path
 * without a trailing backslash). The folder must exist. Tables `Fatture` and `Spese`, no keys, no
 * indexes. Returns the open ledger, which the program keeps until it ends; everyone else opens the
 * file again. Throws FileExists, FileMissing (no such folder), ReadOnly, DiskFull, and FileError
 * when the journal of a ledger that is missing lies there; a failure in between leaves the file
 * with the tables made so far.
 */
Database CreateLedgerDatabase(const QString &projectFolder);

/** Creates a database with all its tables, which are empty. A journal that lies there is the
 *  caller's to look for. Throws FileExists, FileMissing (no such folder), ReadOnly, DiskFull; a
 *  failure in between leaves the file without tables. */
Database CreateArchiveFile(const QString &path, ArchiveFile file);

} // namespace saldoro
