#pragma once

#include "exchange/budget_changes.h"
#include "exchange/table_change.h"
#include "verify/findings.h"
#include "verify/project_rows.h"

#include <QList>

namespace saldoro {

/** What a project loses with the rows that an import drops. Values in fields that are unknown or
 *  not given are no part of it: ChangeOf() finds those. */
struct ImportLosses
{
    Findings errors;            ///< items that the program itself has written
    Findings refusals;          ///< payments, and cost items with payments
    QList<BudgetChange> budget; ///< all changes of the budget, where there was one
};

/** @param project the tables as they will be. */
ImportLosses LossesOf(const GivenTable &given, const TableChange &change,
                      const ProjectTables &project);

} // namespace saldoro
