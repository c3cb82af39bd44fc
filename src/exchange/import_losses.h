#pragma once

#include "exchange/budget_changes.h"
#include "exchange/import_outcome.h"
#include "exchange/table_change.h"
#include "verify/project_rows.h"

namespace saldoro {

/** Adds what a project loses with the rows that an import drops: to the errors of @p outcome items
 *  that the program itself has written, to its refusals payments, and cost items with payments.
 *  Values in fields that are unknown or not given are no part of it: ChangeOf() finds those.
 *
 *  @param project the tables as they will be
 *  @return all changes of the budget; none for another table and where there was none */
QList<BudgetChange> AddLosses(const GivenTable &given, const TableChange &change,
                              const ProjectTables &project, ImportOutcome &outcome);

} // namespace saldoro
