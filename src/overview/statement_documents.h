#pragma once

#include "common/program_values.h"

namespace saldoro {

struct FrmElab;

/**
 * Writes the statements of all payments, companies first, then professionals: those of a kind
 * except the last into one document, each after a line break, the last one into another; registers
 * both and writes the total of the kind, at the end that of both kinds.
 *
 * The boxes of @p form are used as they come, and the last-payment box is not emptied in between:
 * where a kind has no payments, its document repeats what was there. The form is of no
 * further use. More than 32,767 payments of one kind throw OverflowError; other errors pass, and
 * what was written before stays.
 */
void ScriviProspettoRtf(ProgramValues &values, FrmElab &form);

} // namespace saldoro
