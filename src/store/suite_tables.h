#pragma once

#include "database/database.h"
#include "database/table_def.h"

#include <QList>
#include <QString>

#include <array>

namespace saldoro {

/** The databases of a project. */
enum class ArchiveFile
{
    Codes, ///< shared by all projects
    Contract,
    Companies,
    Ledger
};
inline constexpr std::array ArchiveFileList{ArchiveFile::Codes, ArchiveFile::Contract,
                                            ArchiveFile::Companies, ArchiveFile::Ledger};

/** The tables of a database with the fields that the program relies on. Where the suite has made
 *  the database its tables may hold more fields, in another order. */
QList<TableDef> TablesOf(ArchiveFile file);

/** Creates a database with all its tables, which are empty. Throws FileExists, FileMissing (no such
 *  folder), ReadOnly, DiskFull. */
Database CreateArchiveFile(const QString &path, ArchiveFile file);

} // namespace saldoro
