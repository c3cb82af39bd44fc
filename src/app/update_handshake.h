#pragma once

#include "common/program_values.h"

#include <QString>
#include <QVersionNumber>

namespace saldoro {

/*
 * Programs and updater of the suite meet in the update folder: each program can describe itself in
 * a manifest, and hands over to the updater when the manifest there states a newer build. What
 * reads or writes a manifest, or starts the updater, needs the application object.
 */

/** The version that this program was built as. */
QVersionNumber OwnVersion();

/** The build text of a version of three parts: major and minor as they are, then the last three
 *  digits of the revision, padded with zeros. 1.0.167 gives 10167. */
QString BuildText(const QVersionNumber &version);

/** Whether the command line behind the program's name asks for the manifest and nothing else:
 *  "/INI", in any letter case. */
bool AsksForManifest(const QString &tail);

/** Writes the manifest of the running program, <name>.ini, into the current working directory, over
 *  an earlier one, in the system's encoding. Needs no display, settings or project. Throws
 *  FileError when it can't be written. */
void WriteUpdateManifest();

/** Whether the update folder has a manifest with a newer build than this program's. Builds are
 *  compared as numbers: 9999 is older than 10167. */
bool UpdateIsWaiting(const ProgramValues &values);

/** Starts the suite's updater for this program and does not wait for it; a message says so when it
 *  can't be started. Either way the caller then ends the program. */
void RunUpdater(const ProgramValues &values);

} // namespace saldoro
