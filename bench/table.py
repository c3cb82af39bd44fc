#!/usr/bin/env python3
"""Turns rounds of saldoro_bench into a table, one line a task: the program and its floor with 10,000
payments, their ratio, how many times longer the program takes with 30,000, and that growth beside
the floor's own. All are medians; ratios are taken within each round, where both sides met the same
machine.

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
    "contracts": "list of 200 contracts, or 600",
}
FEW, MANY = 10000, 30000
MOST_RATIO = {"load": 3.0, "save": 2.0, "close": 3.0}
MOST_GROWTH = {"load": 1.15}
MOST_TIME = {"contracts": 200.0}


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


def quotients(upper, lower):
    return [a / b for a, b in zip(upper, lower, strict=True)]


def milliseconds(values):
    value = statistics.median(values)
    return f"{value:,.1f}" if value < 100 else f"{value:,.0f}"


def cell(values, most, what, misses):
    value = statistics.median(values)
    if most is None:
        return f"{value:.2f}"
    if value > most:
        misses.append(f"{what}: {value:.2f}, at most {most}")
    return f"{value:.2f} (≤ {most:g})"


def time(task, values, misses):
    most = MOST_TIME.get(task)
    if most is None:
        return milliseconds(values)
    if statistics.median(values) > most:
        misses.append(f"{task}: {milliseconds(values)} ms, at most {most:g}")
    return f"{milliseconds(values)} (≤ {most:g})"


def row(task, sizes, misses):
    few, many = ({side: [run["real_time"] for run in runs] for side, runs in sizes[payments].items()}
                 for payments in (FEW, MANY))
    ratios = quotients(few["program"], few["bare"])
    growth = quotients(many["program"], few["program"])
    beside = quotients(quotients(many["program"], many["bare"]), ratios)
    cells = [TITLES[task], time(task, few["program"], misses), milliseconds(few["bare"]),
             cell(ratios, MOST_RATIO.get(task), f"{task}, ratio", misses),
             cell(growth, None, task, misses),
             cell(beside, MOST_GROWTH.get(task), f"{task}, growth beside the floor's", misses)]
    return f"| {' | '.join(cells)} |"


def memory(sizes):
    size, most = (statistics.median(run[name] for run in sizes[MANY]["program"])
                  for name in ("documents", "memory"))
    return (f"\nClosing with {MANY:,} payments of each kind writes documents of {size:.0f} MB and takes"
            f" at most\n{most:.0f} MB of memory for it.")


def main():
    check = "--check" in sys.argv[1:]
    rounds = read_rounds([name for name in sys.argv[1:] if name != "--check"])
    misses = []
    print("| task | program, ms | floor, ms | ratio | growth | beside the floor's |")
    print("| --- | --: | --: | --: | --: | --: |")
    for task in TITLES:
        if task in rounds:
            print(row(task, rounds[task], misses))
    if "close" in rounds:
        print(memory(rounds["close"]))
    for miss in misses:
        print(f"target missed: {miss}", file=sys.stderr)
    sys.exit(1 if check and misses else 0)


if __name__ == "__main__":
    main()
