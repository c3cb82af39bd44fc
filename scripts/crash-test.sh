#!/usr/bin/env bash
# Lets every call of the system that changes a file go wrong in each work of the program: it fails
# once, for good, for want of room, or the program is killed in it. Looks at what is left: sound
# databases, a state that the order of writes allows, whole documents, a report that names the file,
# and a program that brings the work to its end when it is started again.
#
#   scripts/crash-test.sh
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh

need_packages "${BUILD_PACKAGES[@]}"
configure dev
cmake --build --preset dev --target saldoro_faults
build/dev/crash/saldoro_faults
