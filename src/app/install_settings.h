#pragma once

#include "common/program_values.h"
#include "platform/program_version.h"

#include <QString>

namespace saldoro {

/** The build text of a version: major and minor as they are, then the last three digits of the
 *  revision, padded with zeros. 1.0.167 gives 10167. */
QString BuildText(const ProgramVersion &version);

/** The version of this program: what its file says of itself, or where files say nothing the one it
 *  was built as. */
ProgramVersion OwnVersion();

/** Sets ProgramBuild from the program's own version and ArchiveRoot from the per-user settings;
 *  without the setting ArchiveRoot is empty. Throws nothing. */
void InitInstallSettings(ProgramValues &values);

} // namespace saldoro
