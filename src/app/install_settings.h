#pragma once

#include "common/program_values.h"

#include <QString>

namespace saldoro {

/** A program's version, its parts as plain numbers. */
struct ProgramVersion
{
    int major = 0;
    int minor = 0;
    int revision = 0;
};

/** The build text of a version: major and minor as they are, then the last three digits of the
 *  revision, padded with zeros. 1.0.167 gives 10167. */
QString BuildText(const ProgramVersion &version);

/** The version that this program was built as. */
ProgramVersion OwnVersion();

/** Sets ProgramBuild from the program's own version and ArchiveRoot from the per-user settings;
 *  without the setting, or when it can't be read, ArchiveRoot is empty. Throws nothing. */
void InitInstallSettings(ProgramValues &values);

} // namespace saldoro
