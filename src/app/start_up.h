#pragma once

#include "common/program_values.h"
#include "database/database.h"

#include <QString>

#include <optional>

namespace saldoro {

/** Sets ProgramBuild from the program's own version and ArchiveRoot from the per-user settings;
 *  without the setting, or when it can't be read, ArchiveRoot is empty. Throws nothing. */
void InitInstallSettings(ProgramValues &values);

/** The project code in a command-line tail: all that follows the launch token, verbatim; the
 *  default project's code when the tail does not begin with it. AsksForManifest() knows "/INI". */
QString ProjectCodeFromTail(const QString &tail);

/**
 * What comes before the main form: settings, update check, project, ledger, in this order.
 *
 * @param tail the command line behind the program's name, verbatim
 * @param createdLedger gets the ledger if it was missing; to be kept as long as the program runs
 * @return whether the main form is to be shown. If not, an update is waiting, RunUpdater() has run,
 * and the program is to end. Errors of the ledger's creation (no project folder, no right to write)
 * pass through.
 */
bool StartUp(ProgramValues &values, const QString &tail, std::optional<Database> &createdLedger);

} // namespace saldoro
