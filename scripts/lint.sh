#!/usr/bin/env bash
# Formatting, and the rules of the house that a command can check. Takes seconds and needs no build.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
    printf 'lint: %s\n' "$*" >&2
    exit 1
}

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
[ ${#sources[@]} -gt 0 ] || fail 'no sources: this is not a clone of the repository'
clang-format --dry-run --Werror "${sources[@]}" \
    || fail 'clang-format reports the above; clang-format -i corrects layout'

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
    [exchange]='exchange verify store database platform common'
    [office]='office verify exchange store database controls platform common'
    [archivio]='archivio verify exchange store database platform common'
    [app]='app overview invoice store database controls platform common'
)
for path in src/*/; do
    folder=$(basename "$path")
    allowed=${below[$folder]:-}
    [ -n "$allowed" ] || fail "src/$folder has no floor of its own: scripts/lint.sh names them all"
    if git grep -nE '^#include "[a-z]+/' -- "src/$folder" | grep -vE "#include \"(${allowed// /|})/"; then
        fail "src/$folder includes a floor that it must not know"
    fi
done

if git grep -nE '^ *# *(if|ifdef|ifndef|elif)\b' -- src | grep -vE '^src/(platform|app)/'; then
    fail 'conditional compilation belongs to src/platform and src/app'
fi
if git grep -nE 'sqlite3(_|\.h)' -- src | grep -vE '^src/database/'; then
    fail 'only the database layer knows the database engine'
fi

# The files that the documents speak of are there.
tree=$(git ls-files)
for name in $(grep -hoE '`[a-z_./-]+/[a-z_.-]+`' README.md CONTRIBUTING.md docs/architecture.md \
    | tr -d '`' | grep -vE '^build/|\*' | sort -u); do
    grep -qE "(^|/)${name%/}(/|\.|$)" <<<"$tree" || fail "a document speaks of $name, which is not there"
done
echo 'lint: clean'
