#pragma once

#include "store/suite_tables.h"

#include <QString>

namespace saldoro {

/*
 * The databases of a project that is named by its folder, a path of the machine.
 */

/** The folder as it was given, or whatever its letter case. Throws FileError when there is none. */
QString ExistingFolder(const QString &given);

/** A database of the project, found in any letter case; the code map lies beside the projects. One
 *  that is not there keeps its usual name. */
QString ArchiveFilePath(ArchiveFile file, const QString &folder);

} // namespace saldoro
