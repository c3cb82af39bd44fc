#!/usr/bin/env bash
# Random input against slow references, for so many seconds.
#
#   scripts/fuzz.sh [SECONDS]          default 300
#   scripts/fuzz.sh TARGET CASE        one case again, as a failure prints it
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh

need_packages "${BUILD_PACKAGES[@]}"
configure dev
cmake --build --preset dev --target saldoro_fuzz
build/dev/fuzz/saldoro_fuzz "${@:-300}"
