#pragma once

#include "common/program_values.h"
#include "controls/text_table.h"
#include "database/record_set.h"

namespace saldoro {

/** Columns of the list. */
namespace PaymentColumn {
inline constexpr int Nr = 0;
inline constexpr int Creditore = 1;
inline constexpr int Data = 2;
inline constexpr int Importo = 3;
inline constexpr int Euro = 4;
} // namespace PaymentColumn

/** Cuts the table down to its header: five columns with their headings. frm_principale sets
 *  their widths. */
void PreparePaymentsList(TextTable &payments);

/** The payments of the ledger in the order of their numbers. A ledger that can't be opened, or
 *  lacks a table, throws DatabaseError before anything on the screen has changed. */
RecordSet OpenPaymentsList(const ProgramValues &values);

/**
 * Appends one row for each payment to a prepared table; the current row is the last one afterwards.
 * The amount is gross: with the VAT and, of a professional only, the other amounts.
 *
 * Throws DatabaseError for a null number, creditor, day, amount or VAT, and OverflowError; details
 * "Pagamento", and "Riga" and "Creditore" of a payment without number. The rows before stay.
 */
void FillPaymentsList(TextTable &list, RecordSet payments);

} // namespace saldoro
