#pragma once

#include "verify/project_data.h"

namespace saldoro {

/*
 * The rules of the check, one subject each. They look only at what was read and leave out what
 * could not be; none of them stops at a value.
 */

/** Values that a payment must have, its kind, sums beyond the range, payments of a kind that are
 *  more than the documents can count. */
void CheckPayments(const ProjectData &data, Findings &findings);

/** Duplicate and missing numbers, rows of the list that stand for another number, and the number
 *  that the next new payment gets. */
void CheckNumbering(const ProjectData &data, Findings &findings);

/** Allocations of no payment or no cost item, without amount, or made twice; totals that are not
 *  those of the invoices. */
void CheckAllocations(const ProjectData &data, Findings &findings);

/** Codes and descriptions of the cost items and what the screens make of them. */
void CheckBudget(const ProjectData &data, Findings &findings);

/** The internal codes that the program needs and what they are mapped to. */
void CheckCodes(const ProjectData &data, Findings &findings);

/** Mandate notes and the contractor's item in the contract sheet. */
void CheckContract(const ProjectData &data, Findings &findings);

} // namespace saldoro
