#!/usr/bin/env bash
# Static analysis (clang-tidy) of src and tools: what is delivered and what makes its archives. It
# takes ten seconds a unit, so that tests, crash and bench are left to the compiler's warnings
# and to being run; and a build that compiles whole folders at once has a quarter of the units.
#
#   scripts/analyse.sh [BUILD_FOLDER]     default build/dev, which must be built
set -euo pipefail
cd "$(dirname "$0")/.."
export build=${1:-build/dev}

# Of all units in the compiler's list those that people wrote, or that include such files.
mapfile -t units < <(sed -n 's|^ *"file": "\(.*\)",\{0,1\}$|\1|p' "$build/compile_commands.json" \
    | sed "s|^$PWD/||" | grep -E '(^|/)(src|tools)/' \
    | grep -vE '_autogen/|\.rcc/' | sort -u)
[ ${#units[@]} -gt 0 ] || { printf '%s has no list of units: build it first\n' "$build" >&2; exit 1; }

# What the tool says is shown only when it fails: otherwise it is a count of what it passed over.
# A unit of a whole folder includes source files, which is what one check calls suspicious.
analyse() { # UNIT
    local said
    said=$(clang-tidy -p "$build" --quiet --checks=-bugprone-suspicious-include \
        --header-filter="^$PWD/(src|tools)/" --extra-arg=-Wno-unknown-warning-option "$1" 2>&1) && return
    printf '%s\n' "$said"
    return 1
}
export -f analyse
# shellcheck disable=SC2016 # the inner shell's own argument
printf '%s\n' "${units[@]}" | xargs -P "$(nproc)" -I{} bash -c 'analyse "$1"' analyse {}
echo 'analysis: clean'
