#pragma once

#include "database/record_set.h"

#include <QString>

namespace saldoro {

/*
 * A payment is known by its number, which its allocations repeat. Nothing keeps several payments
 * from having the same.
 */

/** The number that the next new payment gets: payments are counted, numbers that are free or taken
 *  do not matter. */
inline qint32 NextPaymentNumber(qsizetype payments)
{
    return static_cast<qint32>(payments) + 1;
}

/** The number of the payment that is opened or deleted on a row of the payments list, counted from
 *  1. It is the number that the row shows as long as the numbers run 1, 2, 3 without gap or
 *  repetition. */
inline qint32 NumberOfListRow(int row)
{
    return row;
}

/** The criterion for the payments of a number, in a set of payments. */
QString PaymentCriterion(qint32 number);

/** Makes the first payment of that number the current record; true when there is one. */
bool FindPayment(RecordSet &payments, qint32 number);

/** The criterion for the allocations of a payment, in a set of allocations. */
QString AllocationsCriterion(qint32 paymentNumber);

} // namespace saldoro
