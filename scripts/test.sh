#!/usr/bin/env bash
# Everything that must hold before a change goes in: installs what is missing, builds with warnings
# as errors, runs the tests twice (plain, and under address and undefined-behaviour sanitizers) and
# checks formatting, static analysis and the rules of the house.
#
#   scripts/test.sh            all of it
#   scripts/test.sh --quick    plain build and tests only
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh

started=$SECONDS
step() { printf '\n== %s (%d s)\n' "$1" "$((SECONDS - started))"; }

step 'packages'
need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
launcher=()
if command -v ccache >/dev/null; then
    export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi

# Whole folders are compiled at once here: the same code in a third of the time, in folders of their
# own beside those of daily work.
build_and_test() { # PRESET
    local build=build/check-$1
    # Little debug information: nobody steps through these builds, and it takes a third of the time.
    configure "$1" -B "$build" -DCMAKE_UNITY_BUILD=ON "${launcher[@]}" \
        "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O2 -DNDEBUG" "-DCMAKE_CXX_FLAGS_DEBUG=-g1"
    cmake --build "$build"
    ctest --test-dir "$build" --parallel "$(nproc)" --output-on-failure
}

step 'build and tests'
build_and_test dev
[ "${1:-}" = --quick ] && exit 0

step 'build and tests under sanitizers'
build_and_test sanitize

step 'lint'
scripts/lint.sh build/check-dev

step 'done'
