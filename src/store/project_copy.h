#pragma once

#include <QString>

#include <functional>

namespace saldoro {

/** Copies the databases of the project in @p folder, each as it stands between two changes of other
 * programs, into a new folder below @p target that is named for the project and the time. Gives the
 * folder; a copy that fails is taken away again. @p step is called with the name of each file
 * before it is copied. Throws FileError, DatabaseError, and what @p step throws. */
QString CopyProject(const QString &folder, const QString &target,
                    const std::function<void(const QString &)> &step);

} // namespace saldoro
