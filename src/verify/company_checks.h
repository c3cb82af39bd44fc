#pragma once

#include "verify/findings.h"
#include "verify/project_rows.h"

namespace saldoro {

/** The link of the contractor's item in the contract sheet, if there is one, and its company. */
void CheckContractor(const CheckedProject &project, Findings &findings);

/** The numbers of companies: of the register, of those that take part and of members. */
void CheckCompanies(const CheckedProject &project, Findings &findings);

} // namespace saldoro
