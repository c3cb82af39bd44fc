#pragma once

#include "invoice/payment_record.h"

namespace saldoro {

/**
 * Writes what an invoice form shows: the payment's row, then one row per allocation in grid order,
 * each a write of its own, then the mandate note, which is also kept in `MandateText`. A payment
 * of that number and kind, in whatever letter case, is changed, else added; an allocation of the
 * same code gets the new amount and keeps its description, else one is added; none is deleted here.
 *
 * An empty creditor, code or description of a cost item is stored as null, and so is the day
 * of the invoice while its box shows the empty mask. Every other empty text is stored as an empty
 * text.
 *
 * The stored description of a cost item is cut to its column, that of the mandate note by
 * ScriviVoceStringa(). Any other text longer than its column throws FieldTooSmall before its own
 * row is written, and the day TypeMismatch when it is none, or its column is not one of days.
 * Errors pass, with the detail "Pagamento"; rows written before stay.
 */
void SavePagamento(ProgramValues &values, const PaymentRecord &record, const TextTable &grid);

} // namespace saldoro
