#pragma once

#include "exchange/import.h"

namespace saldoro {

/** Fills tables of a project with the CSV files of a folder (of the machine), each named for its
 *  table. Other files with such a name are told, unless their table has its CSV file. Throws as
 *  ImportTables(), and FileError for files that can't be read. */
ImportOutcome ImportFiles(const QString &projectFolder, const QString &csvFolder,
                          const ImportOptions &options);

} // namespace saldoro
