#pragma once

#include "database/database.h"
#include "store/archive_paths.h"

namespace saldoro {

/** Whether the program adds records to a table. */
bool IsWrittenBySaldoro(const QString &table);

/** Adds records to @p copy, the copy of a database in memory, as the next payments and the work at
 *  closing will. Throws the DatabaseError of the first record that can't be added: a rule of the
 *  file forbids it, or its format can only be read. Verification makes the copy and words the
 *  finding. */
void TryWriting(const Database &copy, ArchiveFile file);

} // namespace saldoro
