#!/usr/bin/env bash
# Kills the program at random instants of random sessions and checks what it left: sound databases,
# a state that the order of writes allows, nothing confirmed lost, whole documents, and a program
# that starts again. Then lets every write fail in turn.
#
#   scripts/crash-test.sh [KILLS] [SEED]     default 1000 kills, a seed of chance
#
# A failure prints the seed of its round and what the session had done.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh

need_packages "${BUILD_PACKAGES[@]}"
configure dev
cmake --build --preset dev --target saldoro_crash saldoro_faults
build/dev/crash/saldoro_crash --kills "${1:-1000}" ${2:+--seed "$2"}
build/dev/crash/saldoro_faults
