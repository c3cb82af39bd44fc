#pragma once

#include "database/database.h"
#include "store/archive_paths.h"

namespace saldoro {

/** Whether the program adds records to a table. */
bool IsAddedTo(const QString &table);

/** Adds to @p copy, the copy of a database in memory, records such as the next payments and the
 *  work at closing add. Throws the DatabaseError that stops the first one: a rule of the file, or a
 *  format that can only be read. */
void TryWriting(const Database &copy, ArchiveFile file);

} // namespace saldoro
