#pragma once

#include "controls/text_table.h"

#include <QString>

namespace saldoro {

/** The sum of the amounts in an allocation grid, in display form. Throws OverflowError, with the
 *  details "Voce" and "Riga". */
QString AllocationTotal(const TextTable &grid);

/** The check of a payment before it is saved: true when both totals read the same, or the user
 *  wants to go on all the same. */
bool ConfirmTotals(const QString &allocationTotal, const QString &invoiceTotal);

} // namespace saldoro
