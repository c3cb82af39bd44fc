#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"

namespace saldoro {

/**
 * Makes the list row @p row the current payment number and returns the kind of form to open the
 * payment with; no value for a payment of any other kind. For a row whose index is no payment
 * number (any more) the kind is that of the first payment in the ledger. Throws DatabaseError,
 * NullValue for a payment without kind and NoCurrentRecord for a ledger without payments.
 */
std::optional<CreditorKind> OpenPayment(ProgramValues &values, qint32 row);

} // namespace saldoro
