#pragma once

#include "verify/findings.h"
#include "verify/project_rows.h"

namespace saldoro {

/** A cost item twice in a payment. */
void CheckRepeated(const CheckedProject &project, Findings &findings);

/** Allocations of no payment, and payments whose allocations do not add up to their invoice. */
void CheckAllocatedTotals(const CheckedProject &project, Findings &findings);

/** Allocations to an unknown cost item, to one in other letter case, and without a readable
 *  amount. */
void CheckItems(const CheckedProject &project, Findings &findings);

} // namespace saldoro
