#pragma once

#include "invoice/payment_record.h"

namespace saldoro {

/**
 * Reads the first payment of the number in @p record into it, whatever that payment's kind. The
 * record holds what the form shows now (for a company the contractor's name as creditor), @p grid
 * its header alone.
 *
 * A number that the ledger does not hold is a new payment: it takes the notes of the last payment
 * stored and keeps everything else. Allocations and mandate note are read in both cases. An amount
 * that is null shows as the empty text and counts as 0 in the totals. Errors pass, with
 * the detail "Pagamento".
 */
void LoadPagamento(const ProgramValues &values, PaymentRecord &record, TextTable &grid);

} // namespace saldoro
