#pragma once

#include <QString>

namespace saldoro {

/** Copies the databases of the project in @p folder, the code map included, all as they stand at
 *  one moment, into a new folder below @p target that is named for the project and the time. Both
 *  are paths of the machine. Only the contract database must exist. No other program can change the
 *  databases until the end. Returns the copy's folder; a copy that fails, or that the watcher of
 *  Progress breaks off, is taken away again. Throws FileError, also for a database without a plain
 *  journal, and DatabaseError. */
QString CopyProject(const QString &folder, const QString &target);

} // namespace saldoro
