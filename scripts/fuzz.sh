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
. scripts/steps.sh

case ${1:-} in
'' | -*) seconds=300 ;;
*)
    seconds=$1
    shift
    ;;
esac
need_packages "${BUILD_PACKAGES[@]}"
configure dev
cmake --build --preset dev --target saldoro_fuzz
build/dev/fuzz/saldoro_fuzz --seconds "$seconds" "$@"
