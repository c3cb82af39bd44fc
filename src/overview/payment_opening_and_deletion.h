#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"

#include <optional>

namespace saldoro {

/*
 * What is done with the payment of a list row, whose number is NumberOfListRow(). A row is "stale"
 * when no payment has that number (any more).
 */

/**
 * Makes @p number the current payment number and returns the kind of form to open the payment with;
 * no value for a payment of any other kind. For a stale row the kind is that of the first payment
 * in the ledger. Throws DatabaseError: NullValue for a payment without kind, NoCurrentRecord for a
 * ledger without payments; the number is current then, too.
 */
std::optional<CreditorKind> OpenPayment(ProgramValues &values, qint32 number);

/**
 * Deletes a payment, each record on its own: first its mandate note in the contract database, then
 * all payments of that number, then all allocations with that number. Of a stale row, the mandate
 * note and the allocations of that number go, if there are any. The remaining payments keep their
 * numbers. Throws DatabaseError; what was deleted before stays deleted.
 */
void DeletePayment(const ProgramValues &values, qint32 number);

} // namespace saldoro
