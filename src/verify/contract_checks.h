#pragma once

#include "verify/findings.h"
#include "verify/project_rows.h"

namespace saldoro {

/** The internal codes that the program needs. */
void CheckCodes(const CheckedProject &project, Findings &findings);

/** Codes and descriptions of the cost items, and their number. */
void CheckBudget(const CheckedProject &project, Findings &findings);

} // namespace saldoro
