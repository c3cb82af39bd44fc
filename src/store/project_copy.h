#pragma once

#include <QString>

#include <functional>

namespace saldoro {

/** Copies the databases of the project in @p folder, all as they stand at one moment, into a new
 *  folder below @p target that is named for the project and the time. No other program can change
 *  them until the end. Returns the copy's folder; a copy that fails is taken away again. @p step is
 *  called with the name of each file before it is copied. Throws FileError, also for a database
 * without plain journal, DatabaseError, and what
 *  @p step throws. */
QString CopyProject(const QString &folder, const QString &target,
                    const std::function<void(const QString &)> &step);

} // namespace saldoro
