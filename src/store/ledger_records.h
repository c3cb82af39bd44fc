#pragma once

#include "database/database.h"

#include <QString>

namespace saldoro {

/** The number that the next new payment gets: payments are counted, numbers that are free or taken
 *  do not matter. */
inline qint32 NextPaymentNumber(qsizetype payments)
{
    return static_cast<qint32>(payments) + 1;
}

/** What finds the payments of a number in a set of payments. */
QString PaymentCriterion(qint32 number);

/** Makes the first payment of that number the current record; true when there is one. */
bool FindPayment(RecordSet &payments, qint32 number);

/** What finds the allocations of a payment in a set of allocations. */
QString AllocationsCriterion(qint32 paymentNumber);

/** The ledger's allocations of one payment, updatable. */
RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber);

/**
 * Makes the first allocation of that cost item the current record; true when there is one. An
 * empty code stands for a null one, as it is stored, so that such a row is found again too.
 */
bool FindAllocation(RecordSet &allocations, const QString &code);

} // namespace saldoro
