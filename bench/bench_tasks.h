#pragma once

#include <benchmark/benchmark.h>

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
    const auto add = [name](const char *side, Task task) {
        benchmark::RegisterBenchmark((std::string(name) + side).c_str(), task)
            ->Arg(100)
            ->Arg(1000)
            ->Arg(10000)
            ->Arg(30000)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    add("/program", program);
    add("/bare", bare);
}

} // namespace saldoro
