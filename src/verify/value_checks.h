#pragma once

#include "verify/findings.h"
#include "verify/project_rows.h"

namespace saldoro {

/** Finds values of any table that are not exactly of their field's kind. */
void CheckValues(const CheckedProject &project, Findings &findings);

} // namespace saldoro
