#pragma once

#include "invoice/invoice_notices.h"

namespace saldoro {

/** Adds what there is to tell of the invoice's amounts and totals, and what the text that is being
 *  typed is worth. Amounts count as they will once the field that has the focus is left. Throws
 *  OverflowError when leaving it would, and for amounts so large that they can't be compared. */
void TellAmounts(const InvoiceState &state, Notices &all);

} // namespace saldoro
