#pragma once

#include "common/program_values.h"

namespace saldoro {

/*
 * The payment of a list row goes by the row's index in the list (1 for the first payment), not by
 * the number shown in it: they are the same as long as no payment was deleted, and a row whose
 * index is no payment number any more is "stale".
 */

/** Asks whether the payment of @p row is to be deleted. */
bool ConfirmDeletion(qint32 row);

/**
 * Deletes a payment, each record on its own: first its mandate note in the contract database, then
 * all payments of that number, then all their allocations. A stale row loses its mandate note only.
 * The remaining payments keep their numbers. Throws DatabaseError; what was deleted before stays
 * deleted.
 */
void DeletePayment(const ProgramValues &values, qint32 row);

} // namespace saldoro
