#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"

namespace saldoro {

/*
 * What is done with the payment of a list row. It goes by the row's index in the list (1 for the
 * first payment), not by the number shown in it: they are the same as long as no payment was
 * deleted. A row whose index is no payment number (any more) is "stale".
 */

/**
 * Makes the list row @p row the current payment number and returns the kind of form to open the
 * payment with; no value for a payment of any other kind. For a stale row the kind is that of the
 * first payment in the ledger. Throws DatabaseError: NullValue for a payment without kind,
 * NoCurrentRecord for a ledger without payments.
 */
std::optional<CreditorKind> OpenPayment(ProgramValues &values, qint32 row);

/**
 * Deletes a payment, each record on its own: first its mandate note in the contract database, then
 * all payments of that number, then all allocations with that number. A stale row loses its mandate
 * note, and allocations that no payment has. The remaining payments keep their numbers. Throws
 * DatabaseError; what was deleted before stays deleted.
 */
void DeletePayment(const ProgramValues &values, qint32 row);

} // namespace saldoro
