#pragma once

#include "common/overview_column.h"
#include "common/program_values.h"
#include "controls/text_table.h"

namespace saldoro {

/** Cuts the table down to its header: five columns with their headings. frm_principale sets
 *  their widths. */
void PrepareAvailabilityOverview(TextTable &overview);

/**
 * Rebuilds the rows below the header of a prepared table: one for each cost item of the contract's
 * latest variant, in the order of the codes, with its budget, what the ledger allocates to it, and
 * the rest. The current row is the last one afterwards.
 *
 * The budget that the rest is taken from is the text of "Spesa", so it has the two decimals shown.
 * Allocations to codes outside the budget count nowhere. A ledger without any allocation leaves
 * "Pagato" and "Disponibilità" blank and "Spesa" as first written, "0" for a null budget.
 *
 * Throws DatabaseError, also for a null code, description or allocated amount and, when the ledger
 * has allocations, for a code that holds an apostrophe. Throws OverflowError for a sum beyond the
 * currency range. The details are "Voce", "Riga" for a null code or description, and "Pagamento"
 * for an allocation. The rows written so far stay.
 */
void FillAvailabilityOverview(TextTable &overview, const ProgramValues &values);

} // namespace saldoro
