#!/usr/bin/env python3
"""Turns rounds of saldoro_bench into a table: the program, its floor, their ratio, and how much
longer the program takes than with the number of payments in the line above. All are medians; the
ratios are taken within each round, where both sides met the same machine.

    table.py [--check] ROUND.json... >table.md

With --check the exit status is 1 when a target is missed; the misses go to the error output.
"""

import json
import statistics
import sys

TITLES = {
    "start-up": "start to painted main screen",
    "load": "load of the main screen",
    "save": "save, 20 allocations",
    "delete": "deletion",
    "close": "closing, so many of each kind",
}
MOST_RATIO = {"load": (10000, 3.0), "save": (None, 2.0), "close": (10000, 3.0)}
MOST_GROWTH = {"load": (30000, 3.5)}


def read_rounds(paths):
    """{task: {payments: {side: [run of each round]}}}"""
    rounds = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            runs = json.load(file)["benchmarks"]
        for run in runs:
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run['error_message']}")
            task, side, payments = run["run_name"].split("/")[:3]
            sizes = rounds.setdefault(task, {})
            sizes.setdefault(int(payments), {}).setdefault(side, []).append(run)
    return rounds


def times(runs):
    return [run["real_time"] for run in runs]


def median_ratio(upper, lower):
    return statistics.median(a / b for a, b in zip(times(upper), times(lower), strict=True))


def milliseconds(runs):
    value = statistics.median(times(runs))
    return f"{value:,.1f}" if value < 100 else f"{value:,.0f}"


def target(table, task, payments):
    """The most that is allowed there, or None."""
    where, most = table.get(task, (0, None))
    return most if where in (None, payments) else None


def cell(value, most, what, misses):
    if most is None:
        return f"{value:.2f}"
    if value > most:
        misses.append(f"{what}: {value:.2f}, at most {most}")
    return f"{value:.2f} (≤ {most:g})"


def rows_of(task, sizes, misses):
    before = None
    for payments, sides in sorted(sizes.items()):
        program, bare = sides["program"], sides["bare"]
        what = f"{task} with {payments} payments"
        ratio = cell(median_ratio(program, bare), target(MOST_RATIO, task, payments), f"{what}, ratio", misses)
        growth = "" if before is None else cell(
            median_ratio(program, before), target(MOST_GROWTH, task, payments), f"{what}, growth", misses)
        before = program
        yield (f"| {TITLES[task]} | {payments:,} | {milliseconds(program)} "
               f"| {milliseconds(bare)} | {ratio} | {growth} |")


def print_memory(sizes):
    print("\n| closing, payments of each kind | documents, MB | memory taken at most, MB |")
    print("| --: | --: | --: |")
    for payments, sides in sorted(sizes.items()):
        runs = sides["program"]
        size, memory = (statistics.median(run[name] for run in runs)
                        for name in ("documents", "memory"))
        print(f"| {payments:,} | {size:.2f} | {memory:.1f} |")


def main():
    check = "--check" in sys.argv[1:]
    rounds = read_rounds([name for name in sys.argv[1:] if name != "--check"])
    misses = []
    print("| task | payments | program, ms | floor, ms | ratio | growth |")
    print("| --- | --: | --: | --: | --: | --: |")
    for task in TITLES:
        for row in rows_of(task, rounds.get(task, {}), misses):
            print(row)
    if "close" in rounds:
        print_memory(rounds["close"])
    for miss in misses:
        print(f"target missed: {miss}", file=sys.stderr)
    sys.exit(1 if check and misses else 0)


if __name__ == "__main__":
    main()
