#!/usr/bin/env bash
# Builds with coverage counters, runs all tests and reports which lines no test reaches.
#
#   scripts/coverage.sh           report in build/coverage/report.txt, uncovered lines listed
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" gcovr
mkdir -p build
cmake --preset coverage >build/coverage.configure.log
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage --parallel "$(nproc)" --output-on-failure
gcovr --root . --object-directory build/coverage --filter 'src/' --exclude '.*autogen.*' \
    --exclude-unreachable-branches --exclude-throw-branches --sort-uncovered \
    --output build/coverage/report.txt
cat build/coverage/report.txt
