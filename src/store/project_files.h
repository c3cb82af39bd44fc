#pragma once

#include "store/suite_tables.h"

#include <QString>

#include <functional>

namespace saldoro {

/*
 * The databases of a project that is named by its folder, a path of the machine.
 */

/** The folder as it was given, or whatever its letter case. Throws FileError when there is none. */
QString ExistingFolder(const QString &given);

/** A database of the project, found in any letter case; the code map lies beside the projects. One
 *  that is not there keeps its usual name. */
QString ArchiveFilePath(ArchiveFile file, const QString &folder);

/** Copies the databases of the project, each as it stands between two changes of other programs,
 *  into a new folder below @p target that is named for the project and the time. Gives the folder;
 *  a copy that fails is taken away again. @p step is called with the name of each file before it is
 *  copied. Throws FileError, DatabaseError, and what @p step throws. */
QString CopyProject(const QString &folder, const QString &target,
                    const std::function<void(const QString &)> &step);

} // namespace saldoro
