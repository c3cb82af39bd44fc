#pragma once

#include <benchmark/benchmark.h>

namespace saldoro {

/** The documents, entries and totals written when the main screen closes, so many payments of each
 *  kind. Counters, in MB: size of the documents, memory taken at most. */
void CloseMainScreen(benchmark::State &state);

/** The same reads, and the same bytes to the disk, with bare calls. */
void CloseBare(benchmark::State &state);

} // namespace saldoro
