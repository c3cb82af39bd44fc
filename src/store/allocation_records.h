#pragma once

#include "common/currency.h"
#include "database/database.h"

#include <QString>

namespace saldoro {

/** The ledger's allocations of one payment, updatable. */
RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber);

/*
 * Of several allocations of one cost item the first counts. An empty code stands for the row whose
 * code is null: that is how an empty code is stored.
 */

/** Writes an amount into the allocation of that cost item, which is added when the payment has
 *  none. An added one gets the description, cut to LedgerSize::Descrizione; the others keep theirs.
 */
void SaveAllocation(RecordSet &allocations, qint32 paymentNumber, const QString &code,
                    const QString &description, Currency amount);

/** Deletes the allocation of that cost item, if the payment has one. */
void DeleteAllocation(RecordSet &allocations, const QString &code);

} // namespace saldoro
