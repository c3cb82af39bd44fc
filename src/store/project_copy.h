#pragma once

#include <QString>

namespace saldoro {

/**
 * Copies the databases of the project in @p folder, the code map included, into a new folder below
 * @p target that is named for the project and the time. Both are paths of the machine. Only the
 * contract database must exist; a link in the place of another one must lead to a file. The copies
 * show one moment: no other program can change the databases until the end. Returns the copy's
 * folder. The copy of one database that is left beside it before a change: Database::backUpBeside()
 * in database/database_copies.
 *
 * Throws DatabaseError, FileError, also for a database without a plain journal, and what the
 * watcher of Progress throws; then nothing of the copy stays.
 */
QString CopyProject(const QString &folder, const QString &target);

} // namespace saldoro
