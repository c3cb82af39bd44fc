#!/usr/bin/env bash
# Formatting, static analysis and the rules of the house that a command can check.
#
#   scripts/lint.sh [BUILD_FOLDER]     default build/dev, which must be configured and built
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}

fail() {
    printf 'lint: %s\n' "$*" >&2
    exit 1
}

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
clang-format --dry-run --Werror "${sources[@]}" || fail 'run clang-format -i on the files above'

# Floors: a folder includes only those below it.
declare -A below=(
    [common]='common'
    [platform]='platform common'
    [store]='store platform common'
    [overview]='overview store platform common'
    [invoice]='invoice store platform common'
    [verify]='verify store platform common'
    [app]='app overview invoice store platform common'
)
for folder in "${!below[@]}"; do
    allowed=$(tr ' ' '|' <<<"${below[$folder]}")
    if git grep -nE '^#include "[a-z]+/' -- "src/$folder" | grep -vE "#include \"($allowed)/"; then
        fail "src/$folder includes a floor that it must not know"
    fi
done

if git grep -nE '^ *# *(if|ifdef|ifndef|elif)\b' -- src | grep -vE '^src/(platform|app)/'; then
    fail 'conditional compilation belongs to src/platform and src/app'
fi
if git grep -nE 'sqlite3(_|\.h)' -- src | grep -vE '^src/platform/'; then
    fail 'only the platform layer knows the database engine'
fi

# A result is kept per file and left out while neither it nor any header changed.
mapfile -t units < <(git ls-files 'src/*.cpp' 'tools/*.cpp')
mkdir -p "$build/tidy"
headers=$(git ls-files '*.h' .clang-tidy | xargs cat | sha256sum | cut -c1-16)
export build headers
tidy_one() {
    local stamp
    stamp="$build/tidy/$(tr / _ <<<"$1").$(sha256sum "$1" | cut -c1-16).$headers"
    [ -e "$stamp" ] && return 0
    clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option "$1" 2>/dev/null && touch "$stamp"
}
export -f tidy_one
printf '%s\n' "${units[@]}" | xargs -P "$(nproc)" -I{} bash -c 'tidy_one {}' \
    || fail 'clang-tidy has findings'
echo 'lint: clean'
