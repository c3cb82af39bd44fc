#pragma once

#include "common/currency.h"
#include "exchange/archive_tables.h"

#include <QList>
#include <QString>

#include <optional>

namespace saldoro {

/** A cost item that only one of two budgets has, or that has another amount or another
 *  description than the one it had. */
struct BudgetChange
{
    QString code;
    QString description;    ///< the new one where there is one
    bool isNew = false;     ///< not in the budget before
    bool isDropped = false; ///< not in the budget after
    // Amounts; no value for a null or an item that is not there.
    std::optional<Currency> before = {};
    std::optional<Currency> after = {};
    bool isPaid = false;            ///< payments are allocated to it
    QString formerDescription = {}; ///< where it is another one

    /** "A1 (Scavi): da 1.000,00 a 1.200,00", "A1 (Ponti): era «Scavi», ed è già pagata". */
    QString text() const;
};

/**
 * Compares two budgets, rows of `UltimaPerVariante`; codes that differ in letter case only are the
 * same. @p allocations are the rows of `Spese`. Dropped items that are paid come first, then the
 * other dropped ones, then those of @p after in their order. What an import refuses of them:
 * AddLosses().
 */
QList<BudgetChange> BudgetChanges(const TableRows &before, const TableRows &after,
                                  const TableRows &allocations);

/** As BudgetChanges(), from what the project in @p projectFolder (of the machine) holds to
 *  @p budget; writes nothing. A ledger that is not there yet counts as empty. Throws DatabaseError,
 *  and what the watcher of Progress throws. */
QList<BudgetChange> CompareBudget(const QString &projectFolder, const TableRows &budget);

} // namespace saldoro
