#pragma once

#include "common/program_values.h"
#include "controls/text_table.h"

namespace saldoro {

class FrmElab;

/*
 * The documents that the other programs of the suite read: rich-text files in the project folder,
 * named by the external code of an internal one followed by ".rtf", each with a register entry in
 * the contract database (tag 0, the description of the same internal code, the bare file name).
 *
 * There is no way back: an error leaves the documents, entries and totals of the steps before it
 * in place and passes on (DatabaseError, FileError, OverflowError).
 */

/**
 * The work of closing the main form: writes and registers "QDP", the availability overview, then
 * runs ScriviProspettoRtf. @p overview is the overview's table as it stands on screen: a header
 * and five columns. Each of its body rows becomes one line of exactly 93 characters.
 */
void WriteProjectDocuments(ProgramValues &values, const TextTable &overview);

/**
 * Writes the statements of all payments, companies first, then professionals: those of a kind
 * except the last into one document ("P98", "P98P"), each after a line break, the last one into
 * another ("P99", "P99P"); registers them and writes the totals "QS1A", "QS1P" and "QS1T".
 *
 * The boxes of @p form are used as they come, and the last-payment box is not emptied in between:
 * where a kind has no payments, its document repeats what was there. The form is spent
 * afterwards. More than 32,767 payments of one kind throw OverflowError.
 */
void ScriviProspettoRtf(ProgramValues &values, FrmElab &form);

} // namespace saldoro
