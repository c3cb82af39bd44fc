#!/usr/bin/env bash
# Random input against slow references, for so many seconds: number and amount texts, criteria and
# Like patterns, finds and queries, dates, INI files, documents.
#
#   scripts/fuzz.sh [SECONDS] [--target NAME] [--seed N]     default 300 seconds, a seed of chance
#
# A failure prints the case that shows it again: saldoro_fuzz --target NAME --case SEED.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

seconds=${1:-300}
[ $# -gt 0 ] && shift
need_packages "${BUILD_PACKAGES[@]}"
mkdir -p build
cmake --preset dev >build/dev.configure.log 2>&1 || {
    cat build/dev.configure.log
    exit 1
}
cmake --build --preset dev --target saldoro_fuzz
build/dev/fuzz/saldoro_fuzz --seconds "$seconds" "$@"
