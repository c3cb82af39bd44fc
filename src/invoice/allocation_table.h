#pragma once

#include "common/program_values.h"
#include "controls/text_table.h"

#include <QString>

namespace saldoro {

/*
 * The allocation of one payment over cost items, worked on the grid's own table of code,
 * description and amount.
 */

/** Columns of the grid. */
namespace AllocationColumn {
inline constexpr int Cod = 0;
inline constexpr int Descrizione = 1;
inline constexpr int Importo = 2;
inline constexpr int Count = 3;
} // namespace AllocationColumn

/** Three columns and the header row alone. */
void PrepareAllocations(TextTable &grid);

/** True when no row holds the code yet: trimmed texts, compared exactly. */
bool CekCodCaricato(const TextTable &grid, const QString &code);

/** Writes an amount, in display form, from what was typed in plain form. Throws OverflowError. */
void WriteAmount(TextTable &grid, int row, const QString &typed);

/** The sum of the amounts in display form. Throws OverflowError, with the details "Voce" and
 *  "Riga". */
QString AllocationTotal(const TextTable &grid);

/** Deletes the current row, which is not the header: at once from the ledger, whether or not the
 *  payment is saved later, and from the grid. Database errors pass. */
void DeleteCurrentRow(TextTable &grid, const ProgramValues &values, qint32 paymentNumber);

} // namespace saldoro
