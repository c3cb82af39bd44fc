#pragma once

#include "common/currency.h"

#include <QDate>
#include <QString>

namespace saldoro {

/** What the list of contracts tells of one. Which folders are contracts: ContractCodes(). */
struct ListedContract
{
    int items = 0;   ///< of the budget
    Currency budget; ///< sum of the items, a missing amount being 0
    int payments = 0;
    Currency paid;     ///< sum of the payments as the main screen lists them
    QDate lastPayment; ///< the latest day of a payment; invalid without one

    /** What the payments leave of the budget. The overview goes by the allocations instead: the
     *  sums agree only when all payments are allocated in full to items of the budget. Throws
     *  OverflowError. */
    Currency available() const { return budget - paid; }
};

/**
 * Reads what the list tells of the contract whose project lies in @p folder, a path of the machine.
 * A ledger that is not there yet, the program having never opened the project, counts as empty.
 * Throws DatabaseError, Locked after @p lockWait milliseconds; OverflowError.
 */
ListedContract ReadListedContract(const QString &folder, int lockWait);

} // namespace saldoro
