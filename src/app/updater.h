#pragma once

#include "common/program_values.h"

namespace saldoro {

/** Starts the suite's updater for this program and does not wait for it. When it can't be started
 *  a message says so; either way the caller is to end the program. */
void RunUpdater(const ProgramValues &values);

} // namespace saldoro
