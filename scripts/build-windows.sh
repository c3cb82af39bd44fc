#!/usr/bin/env bash
# Cross-builds a stand-alone 64-bit Saldoro.exe on Debian 12, runs the tests under Wine off screen,
# and packs a zip and an installer.
#
#   scripts/build-windows.sh [FOLDER]     default build/windows; the toolkit is kept beside it
#
# The first run builds the toolkit too (about a quarter of an hour); later ones take minutes.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
mkdir -p "${1:-build/windows}"
build=$(cd "${1:-build/windows}" && pwd)
toolkit=$PWD/build/windows-toolkit

step() { printf '\n== %s\n' "$*"; }
fail() {
    printf 'build-windows: %s\n' "$*" >&2
    exit 1
}

step 'packages'
need_packages "${BUILD_PACKAGES[@]}" "${WINDOWS_PACKAGES[@]}"

step 'toolkit'
scripts/windows-toolkit.sh "$toolkit"
export SALDORO_WINDOWS_TOOLKIT=$toolkit/qt

step 'configure and build'
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/windows-toolchain.cmake" \
    -DCMAKE_PREFIX_PATH="$toolkit/qt" -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DCMAKE_CROSSCOMPILING_EMULATOR="$(command -v wine)" -Wno-dev
cmake --build "$build"

step 'only system libraries are needed'
imports=$(x86_64-w64-mingw32-objdump -p "$build/src/app/Saldoro.exe" \
    | sed -n 's/.*DLL Name: //p')
printf '%s\n' "$imports"
if grep -iE 'qt6|libstdc|libgcc|winpthread|sqlite' <<<"$imports"; then
    fail 'Saldoro.exe needs a library that Windows does not have'
fi

step 'tests under Wine'
export WINEPREFIX=$build/wine WINEDEBUG=-all WINEARCH=win64
scripts/wine-prefix.sh "$WINEPREFIX"
ctest --test-dir "$build" --output-on-failure --no-tests=error --parallel 2
wineserver -k || true

step 'zip and installer'
rm -f "$build"/Saldoro-*.zip "$build"/Saldoro-*.exe
(cd "$build" && cpack)
makensis -V2 "$build/installer.nsi"

# Qt's licence lets users put another Qt into the programs: what they are linked from, and how.
programs=(src/app/Saldoro.exe src/office/saldoro-appalti.exe src/archivio/saldoro-archivio.exe)
delivered=$(echo "$build"/Saldoro-*-win64.zip)
(cd "$build" && ninja -t commands -s "${programs[@]}" >collegamento.txt
    ninja -t inputs "${programs[@]}" | grep -E '^[^/].*\.(obj|a)$' | sort -u \
        | xargs cmake -E tar cf "${delivered%.zip}-oggetti.zip" --format=zip collegamento.txt)
ls -l "$build"/Saldoro-*.zip "$build"/Saldoro-*.exe

step 'the whole program, beside the Linux one'
cmake --preset release
cmake --build --preset release --target Saldoro saldoro-appalti saldoro-archivio
scripts/wine-check.sh "$build" build/release

step 'done'
