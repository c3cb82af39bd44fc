#pragma once

#include "common/program_values.h"

namespace saldoro {

/** Whether the manifest in the update folder, if there is one, states a newer build than this
 *  program's. Builds are compared as numbers: 9999 is older than 10167. */
bool UpdateIsWaiting(const ProgramValues &values);

/** Starts the suite's updater for this program and does not wait for it. When it can't be started
 *  a message says so; either way the caller is to end the program. */
void RunUpdater(const ProgramValues &values);

} // namespace saldoro
