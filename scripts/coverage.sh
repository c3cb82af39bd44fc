#!/usr/bin/env bash
# Builds with coverage counters, runs all tests and reports which lines no test reaches. Takes about
# four minutes on two processors, because whole folders are compiled at once.
#
#   scripts/coverage.sh           report in build/coverage/report.txt, uncovered lines listed
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh
need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${ALL_TEST_PACKAGES[@]}" \
    "${COVERAGE_PACKAGES[@]}"
configure coverage
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage --parallel "$(nproc)" --output-on-failure
gcovr --root . --object-directory build/coverage --filter 'src/' --exclude '.*autogen.*' \
    --exclude-unreachable-branches --exclude-throw-branches --sort-uncovered \
    --output build/coverage/report.txt
cat build/coverage/report.txt
