#!/usr/bin/env bash
# Measures the program beside its floor, the same rows and bytes with bare calls, in one run:
# start-up, load, save, deletion and closing with 10,000 and 30,000 payments, and the list of
# contracts. Installs what is missing, builds, and prints a table of medians, which is also left in
# build/bench/table.md.
#
#   scripts/bench.sh [--check] [TASK...]
#
# TASK is start-up, load, save, delete, close or contracts; all of them when none is named. With
# --check the exit status is not zero when a target is missed. SALDORO_BENCH_ROUNDS (default 9) is
# the number of rounds that each median is taken from. The archives go to build/bench/archives, so
# the project has to lie on a real disk. On a machine that is busy otherwise the figures say little.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh

check=()
if [ "${1:-}" = --check ]; then
    check=(--check)
    shift
fi
tasks=$(tr ' ' '|' <<<"${*:-.*}")
results=build/bench/results

need_packages "${BUILD_PACKAGES[@]}" "${BENCH_PACKAGES[@]}"
# Only now: what installs packages needs a folder that is there.
export TMPDIR=$PWD/build/bench/archives
mkdir -p "$TMPDIR"
configure bench
cmake --build --preset bench --target saldoro_bench

case $(stat -f -c %T "$TMPDIR") in
tmpfs | ramfs) printf 'No disk below %s: writes cost nothing there and tell nothing.\n' "$TMPDIR" >&2 ;;
esac
rm -rf "$results"
mkdir -p "$results"
for ((round = 1; round <= ${SALDORO_BENCH_ROUNDS:-9}; ++round)); do
    build/bench/bench/saldoro_bench --benchmark_filter="^($tasks)/" --benchmark_min_time=0.05 \
        --benchmark_out_format=json --benchmark_out="$results/$round.json" \
        >"$results/$round.txt" 2>&1 || {
        cat "$results/$round.txt"
        exit 1
    }
done

status=0
python3 bench/table.py "${check[@]}" "$results"/*.json >build/bench/table.md || status=$?
cat build/bench/table.md
printf '\n%s processors, %s\n' "$(nproc)" \
    "$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1)"
exit "$status"
