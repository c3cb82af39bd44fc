#pragma once

#include "fault_trial.h"

namespace saldoro {

/** Lets every single call that changes a file go wrong, in every way that CallFault knows, until
 * the work passes untouched. Returns the number of faults; throws std::runtime_error. */
int TryCallFaults(FaultTrial &trial);

/** Files and folders that accept no change, a database locked for the whole time-out, a document
 *  whose place is taken. Returns the number of faults; throws std::runtime_error. */
int TrySystemFaults(FaultTrial &trial);

} // namespace saldoro
