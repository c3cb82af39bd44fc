#pragma once

#include "database/database.h"

#include <QString>

namespace saldoro {

/** The ledger's allocations of one payment, updatable. What a payment's save writes into them, cut
 * to what the columns hold, is decided in invoice/payment_save. */
RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber);

/**
 * Makes the first allocation of that cost item the current record; true when there is one. An
 * empty code finds the row whose code is null: that is how an empty code is stored.
 */
bool FindAllocation(RecordSet &allocations, const QString &code);

} // namespace saldoro
