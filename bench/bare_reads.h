#pragma once

#include "common/program_values.h"

namespace saldoro {

/** Reads what the main screen stands on with bare calls: payments, cost items, allocations. The
 *  result only proves that it was read. */
qint64 ReadMainScreenRows(const ProgramValues &values);

} // namespace saldoro
