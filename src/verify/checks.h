#pragma once

#include "verify/findings.h"
#include "verify/project_rows.h"

namespace saldoro {

/*
 * The rules of the check, one subject each. Each adds what it finds to the findings; what needs a
 * table that can't be read is passed over.
 */

/** Values that are not exactly of their field's kind. */
void CheckValues(const CheckedProject &project, Findings &findings);

/** Values that a payment lacks, its kind and its sum. */
void CheckPayments(const CheckedProject &project, Findings &findings);

/** Numbers that several payments have, rows of the list that stand for another number, and the
 *  number that the next new payment gets. */
void CheckNumbering(const CheckedProject &project, Findings &findings);

/** A cost item twice in a payment. */
void CheckRepeated(const CheckedProject &project, Findings &findings);

/** Allocations of no payment, and payments whose allocations do not add up to their invoice. */
void CheckInvoices(const CheckedProject &project, Findings &findings);

/** Allocations of no cost item, of one whose code is written differently, and of one whose sum
 *  can't be formed. */
void CheckItems(const CheckedProject &project, Findings &findings);

/** Codes and descriptions of the cost items, and their number. */
void CheckBudget(const CheckedProject &project, Findings &findings);

/** The internal codes that the program needs. */
void CheckCodes(const CheckedProject &project, Findings &findings);

/** The link of the contractor's item in the contract sheet, if there is one. */
void CheckContractor(const CheckedProject &project, Findings &findings);

} // namespace saldoro
