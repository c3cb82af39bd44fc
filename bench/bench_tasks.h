#pragma once

#include <benchmark/benchmark.h>
#include <string>

namespace saldoro {

/*
 * Each registers a task twice for every number of payments: "task/program/n" is what the program
 * does, "task/bare/n" its floor, the same rows and bytes with the engine's and the system's own
 * calls. Both leave the archive as it was.
 */

/** Load of the main screen. */
void AddLoad();
/** Save of a confirmed new payment with 20 allocations. */
void AddSave();
/** Deletion of a payment with 3 allocations and a mandate note. */
void AddDelete();
/** The documents, entries and totals written when the main screen closes, n payments of each kind.
 */
void AddClose();
/** From the start of the process to the painted main screen. */
void AddStartUp();

using Task = void (*)(benchmark::State &);

/** Registers both sides of a task. */
inline void AddTask(const char *name, Task program, Task bare)
{
    const auto add = [name](const char *side, Task task, int payments) {
        benchmark::RegisterBenchmark((std::string(name) + side).c_str(), task)
            ->Arg(payments)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    // One after the other, so that a busy moment of the machine falls on both sides.
    for (const int payments : {100, 1000, 10000, 30000}) {
        add("/program", program, payments);
        add("/bare", bare, payments);
    }
}

} // namespace saldoro
