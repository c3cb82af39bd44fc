#pragma once

#include "common/program_values.h"
#include "controls/text_table.h"
#include "invoice/amount_chain.h"
#include "invoice/payment_record.h"

namespace saldoro {

/**
 * Writes what an invoice form shows: the payment's row, then one row per allocation in grid order,
 * each a write of its own, then the mandate note, which is also kept in `MandateText`. A payment
 * of that number and kind is changed, else added; an allocation of the same code is changed, else
 * added; none is deleted here.
 *
 * A text longer than its column throws FieldTooSmall before anything is written, save the
 * description of a cost item, whose stored copy is cut. Errors pass, with the
 * detail "Pagamento".
 */
void SavePagamento(ProgramValues &values, qint32 paymentNumber, const PaymentRecord &record,
                   const AmountChain &amounts, const TextTable &grid);

} // namespace saldoro
