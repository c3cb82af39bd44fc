#pragma once

#include "verify/findings.h"
#include "verify/project_rows.h"

#include <QString>

namespace saldoro {

/*
 * The rules of the check, one subject each. Each adds what it finds to the findings.
 */

/** Values that are not exactly of their field's kind. @p rows have their names; rows of other
 *  tables than the three that have such are named by their number. */
void CheckValues(const ProjectTable &table, const QList<CheckedRow> &rows, Findings &findings);

/** Values that a payment lacks, its kind and its sum. */
void CheckPayments(const ProjectTable &fatture, const QList<CheckedRow> &payments,
                   Findings &findings);

/** Numbers that several payments have, rows of the list that stand for another number, and the
 *  number that the next new payment gets. */
void CheckNumbering(const QList<CheckedRow> &payments, Findings &findings);

/** A cost item twice in a payment. */
void CheckRepeated(const QList<CheckedRow> &allocations, Findings &findings);

/** Allocations of no payment, and payments whose allocations do not add up to their invoice. */
void CheckInvoices(const ProjectTable &fatture, const QList<CheckedRow> &payments,
                   const QList<CheckedRow> &allocations, Findings &findings);

/** Allocations of no cost item, of one whose code is written differently, and of one whose sum
 *  can't be formed. */
void CheckItems(const QList<CheckedRow> &allocations, const QList<CheckedRow> &budget,
                Findings &findings);

/** Codes and descriptions of the cost items, and their number. */
void CheckBudget(const ProjectTable &table, const QList<CheckedRow> &budget, Findings &findings);

/** The internal codes that the program needs. Gives the item code of the contractor; empty when
 *  there is none that can be looked for. */
QString CheckCodes(const ProjectTable &codes, Findings &findings);

/** The link of the contractor's item in the contract sheet, if there is one. */
void CheckContractor(const ProjectTable &sheet, const QString &item, Findings &findings);

/** What the payments list shows as a payment's amount; none when it lacks a value. Throws
 *  OverflowError. */
std::optional<Currency> GrossAmount(const ProjectTable &fatture, const CheckedRow &payment);

} // namespace saldoro
