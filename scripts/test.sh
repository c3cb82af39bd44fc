#!/usr/bin/env bash
# What must hold before a change goes in: installs what is missing, builds with warnings as errors,
# runs the tests and checks formatting and the rules of the house. Under five minutes on two cores.
#
#   scripts/test.sh          that
#   scripts/test.sh --all    also lets the program die and its disk fail at every call, reads the
#                            documents with other programs, repeats all tests under address and
#                            undefined-behaviour sanitizers, compiles each file by itself and runs
#                            the static analysis; about fifteen minutes
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh
all=${1:-}

step() { printf '\n== %s (%d s)\n' "$1" "$SECONDS"; }

# Whole folders are compiled at once here: the same code in a third of the time, in build folders of
# their own beside those of daily work. Without the debug information that nobody steps through.
build_and_test() { # PRESET [CTEST_ARGUMENT...]
    local build=build/check-$1
    configure "$1" -B "$build" -DCMAKE_UNITY_BUILD=ON \
        "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O2 -DNDEBUG" "-DCMAKE_CXX_FLAGS_DEBUG=-g1"
    cmake --build "$build"
    ctest --test-dir "$build" --parallel "$(nproc)" --output-on-failure "${@:2}" && return
    printf '\nThe tests that failed, each alone:\n' >&2
    sed "s|^[0-9]*:\(.*\)|  ctest --test-dir $build -R '^\1\$' --output-on-failure|" \
        "$build/Testing/Temporary/LastTestsFailed.log" >&2
    return 1
}

step 'packages'
need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
[ "$all" != --all ] || need_packages "${ALL_TEST_PACKAGES[@]}"

step 'formatting and rules of the house'
scripts/lint.sh

step 'build and tests'
if [ "$all" = --all ]; then
    build_and_test dev
    step 'build and tests under sanitizers'
    build_and_test sanitize
    # A file that lacks an include is hidden where whole folders are compiled at once.
    step 'each file by itself'
    configure release -B build/check-files -DBUILD_TESTING=OFF -DCMAKE_CXX_FLAGS_RELEASE=-O0
    cmake --build build/check-files
    step 'static analysis'
    scripts/analyse.sh build/check-dev
else
    build_and_test dev --label-exclude long
fi
step 'done'
