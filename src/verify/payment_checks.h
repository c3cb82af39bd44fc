#pragma once

#include "verify/findings.h"
#include "verify/project_rows.h"

namespace saldoro {

/** Values that a payment lacks, its kind and its sum. */
void CheckPayments(const CheckedProject &project, Findings &findings);

/** Numbers that several payments have, rows of the list that stand for another number, and the
 *  number that the next new payment gets. */
void CheckNumbering(const CheckedProject &project, Findings &findings);

} // namespace saldoro
