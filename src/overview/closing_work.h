#pragma once

#include "common/program_values.h"
#include "controls/text_table.h"

namespace saldoro {

/**
 * The work of closing the main form: writes and registers the document of the availability
 * overview, then runs ScriviProspettoRtf. @p overview is the overview's table as it stands on
 * screen: a header and five columns. Each of its body rows becomes one line of exactly 93
 * characters.
 *
 * An error passes on (DatabaseError, FileError, OverflowError); the documents, entries and totals
 * written before it stay.
 */
void WriteProjectDocuments(ProgramValues &values, const TextTable &overview);

} // namespace saldoro
