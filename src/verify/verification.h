#pragma once

#include "verify/project_files.h"

namespace saldoro {

/** Reads the databases of a project and applies every check. Throws as ReadProject() does. */
Findings VerifyProject(const ProjectFiles &files);

} // namespace saldoro
