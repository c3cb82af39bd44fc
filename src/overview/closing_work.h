#pragma once

#include "common/program_values.h"
#include "controls/text_table.h"
#include "overview/frm_elab.h"

namespace saldoro {

/*
 * The work of closing the main form: the documents of the project, their register entries and the
 * totals. An error passes (DatabaseError, FileError, OverflowError); what was written before it
 * stays.
 */

/** Writes and registers the document of the overview, as it stands on screen in @p overview, then
 *  runs ScriviProspettoRtf. */
void WriteProjectDocuments(ProgramValues &values, const TextTable &overview);

/**
 * Writes the statements of all payments, companies first, then professionals: those of a kind
 * except the last into one document, each after a line break, the last one into another; registers
 * both and writes the total of the kind, at the end that of both kinds.
 *
 * The boxes of @p form keep their fonts. The list box is emptied for each kind; the last-payment
 * box is not: where a kind has no payments, its document repeats what was there. So each call needs
 * a new form. More than 32,767 payments of one kind throw OverflowError.
 */
void ScriviProspettoRtf(ProgramValues &values, FrmElab &form);

} // namespace saldoro
