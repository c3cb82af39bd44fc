#!/usr/bin/env bash
# Formatting, static analysis and the rules of the house that a command can check.
#
#   scripts/lint.sh [BUILD_FOLDER]     default build/dev, which must be configured and built once
#
# Formatting and the rules of the house look at every file. The static analysis reads src and tools:
# what is delivered and what makes its archives. It takes about ten seconds a file, so that tests,
# crash, fuzz and bench are left to the compiler's warnings and to being run.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}

fail() {
    printf 'lint: %s\n' "$*" >&2
    exit 1
}

for tool in git clang-format clang-tidy; do
    command -v "$tool" >/dev/null || fail "$tool is missing"
done

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
[ ${#sources[@]} -gt 0 ] || fail 'no sources: this is not a clone of the repository'
clang-format --dry-run --Werror "${sources[@]}" \
    || fail 'clang-format says the above; what is layout, clang-format -i mends'

# Floors: a folder includes only those below it.
declare -A below=(
    [common]='common'
    [platform]='platform common'
    [database]='database platform common'
    [controls]='controls platform common'
    [store]='store database platform common'
    [overview]='overview store database controls platform common'
    [invoice]='invoice store database controls platform common'
    [verify]='verify store database platform common'
    [app]='app overview invoice store database controls platform common'
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
if git grep -nE 'sqlite3(_|\.h)' -- src | grep -vE '^src/database/'; then
    fail 'only the database layer knows the database engine'
fi

# The analysis reads the compiler's own list of units. Where whole folders are compiled at once, their
# generated units include source files, which is what one check calls suspicious.
mapfile -t units < <(sed -n "s|^ *\"file\": \"\(.*\)\",\{0,1\}\$|\1|p" "$build/compile_commands.json" \
    | sed "s|^$PWD/||" | grep -E '(^|/)(src|tools)/' \
    | grep -vE 'CMakeFiles/[^/]*_autogen|sqlite3\.c$' | sort -u)
[ ${#units[@]} -gt 0 ] || fail "$build has no list of units: configure it first"

# What the tool says is shown only when it fails: otherwise it is a count of what it passed over.
analyse() { # UNIT
    local said
    said=$(clang-tidy -p "$build" --quiet --checks=-bugprone-suspicious-include \
        --header-filter="^$PWD/(src|tools)/" --extra-arg=-Wno-unknown-warning-option "$1" 2>&1) && return
    printf '%s\n' "$said"
    return 1
}
export -f analyse
export build
# shellcheck disable=SC2016 # the inner shell's own argument
printf '%s\n' "${units[@]}" | xargs -P "$(nproc)" -I{} bash -c 'analyse "$1"' analyse {} \
    || fail 'clang-tidy says the above'
echo 'lint: clean'
