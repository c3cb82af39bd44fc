#!/usr/bin/env python3
"""Turns the results of saldoro_bench into a table of medians: the program, its floor, their ratio,
and how much longer the program takes than with the number of payments in the line above.

    table.py [--check] RESULTS.json >table.md

With --check the exit status is 1 when a target is missed; the misses go to the error output.
"""

import json
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


def read_medians(path):
    """{task: {payments: {side: run}}} of the median runs."""
    with open(path, encoding="utf-8") as file:
        runs = json.load(file)["benchmarks"]
    medians = {}
    for run in runs:
        if run.get("error_occurred"):
            sys.exit(f"{run['name']}: {run['error_message']}")
        if run.get("aggregate_name") == "median":
            task, side, payments = run["run_name"].split("/")[:3]
            medians.setdefault(task, {}).setdefault(int(payments), {})[side] = run
    return medians


def milliseconds(value):
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
        program, bare = sides["program"]["real_time"], sides["bare"]["real_time"]
        what = f"{task} with {payments} payments"
        ratio = cell(program / bare, target(MOST_RATIO, task, payments), f"{what}, ratio", misses)
        growth = "" if before is None else cell(
            program / before, target(MOST_GROWTH, task, payments), f"{what}, growth", misses)
        before = program
        yield (f"| {TITLES[task]} | {payments:,} | {milliseconds(program)} | {milliseconds(bare)} "
               f"| {ratio} | {growth} |")


def print_memory(sizes):
    print("\n| closing, payments of each kind | documents, MB | memory taken at most, MB |")
    print("| --: | --: | --: |")
    for payments, sides in sorted(sizes.items()):
        run = sides["program"]
        print(f"| {payments:,} | {run['documents']:.2f} | {run['memory']:.1f} |")


def main():
    check = "--check" in sys.argv[1:]
    medians = read_medians(sys.argv[-1])
    misses = []
    print("| task | payments | program, ms | floor, ms | ratio | growth |")
    print("| --- | --: | --: | --: | --: | --: |")
    for task in TITLES:
        for row in rows_of(task, medians.get(task, {}), misses):
            print(row)
    if "close" in medians:
        print_memory(medians["close"])
    for miss in misses:
        print(f"target missed: {miss}", file=sys.stderr)
    sys.exit(1 if check and misses else 0)


if __name__ == "__main__":
    main()
