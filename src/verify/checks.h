#pragma once

#include "database/record_set.h"
#include "store/cost_item_rules.h"
#include "verify/findings.h"
#include "verify/project_rows.h"

#include <QString>

namespace saldoro {

/*
 * The rules of the check, one subject each. None of them stops at a value; what can't be read has
 * been found when the rows were.
 */

/** Numbers that several payments have, rows of the list that stand for another number, and the
 *  number that the next new payment gets. */
void CheckNumbering(const QList<PaymentRow> &payments, Findings &findings);

/** Allocations of no payment. */
void CheckOwners(const QList<AllocationRow> &allocations, const QList<PaymentRow> &payments,
                 Findings &findings);

/** Allocations of no cost item, or of one whose code is written differently. */
void CheckItems(const QList<AllocationRow> &allocations, const QList<CostItem> &budget,
                Findings &findings);

/** A cost item twice in a payment. */
void CheckRepeated(const QList<AllocationRow> &allocations, Findings &findings);

/** Allocations that do not add up to their invoice. */
void CheckInvoices(const QList<AllocationRow> &allocations, const QList<PaymentRow> &payments,
                   Findings &findings);

/** Codes and descriptions of the cost items, and their number. */
void CheckBudget(const QList<CostItem> &budget, Findings &findings);

/** The internal codes that the program needs, looked up in the code map. Gives the item code of
 *  the contractor; empty when it is not mapped. */
QString CheckCodes(RecordSet &codes, Findings &findings);

/** The link of the contractor's item in the contract sheet, if there is one. */
void CheckContractor(RecordSet &sheet, const QString &item, Findings &findings);

} // namespace saldoro
