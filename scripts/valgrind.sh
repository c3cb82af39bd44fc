#!/usr/bin/env bash
# Runs the test programs under valgrind: invalid reads and writes, uninitialised values, and memory
# that nothing points to any more. All of them take about 25 minutes; not part of scripts/test.sh.
#
#   scripts/valgrind.sh [TEST...]     default: every test program of build/dev
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh
need_packages "${BUILD_PACKAGES[@]}" "${VALGRIND_PACKAGES[@]}"
mkdir -p build/valgrind
configure dev
cmake --build --preset dev
# Machine code that regular expressions are compiled to at run time is beyond what valgrind can judge.
export QT_ENABLE_REGEXP_JIT=0
export SALDORO_PATIENCE=50 # how many times longer timed tests may take
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 XDG_CONFIG_HOME=$PWD/build/valgrind/settings

if [ $# -eq 0 ]; then
    for program in build/dev/tests/test_*; do
        if [ -f "$program" ] && [ -x "$program" ]; then
            set -- "$@" "${program#build/dev/tests/test_}"
        fi
    done
fi
failed=0
for name in "$@"; do
    log=build/valgrind/$name.log
    if valgrind --quiet --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite \
        --suppressions=scripts/valgrind.supp --log-file="$log" \
        "build/dev/tests/test_$name" >"build/valgrind/$name.out" 2>&1; then
        printf 'clean   %s\n' "$name"
    else
        printf 'FAILED  %s (see %s)\n' "$name" "$log"
        failed=1
    fi
done
exit "$failed"
