#!/usr/bin/env bash
# Builds the static toolkit for Windows from Debian's own source packages: Qt (Core, Gui, Widgets,
# Test) and SQLite as one source file. Takes about a quarter of an hour on two processors and is
# kept between runs.
#
#   scripts/windows-toolkit.sh FOLDER     installs to FOLDER/qt and FOLDER/sqlite, and keeps Qt's
#                                         sources in FOLDER/sources
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$1"
folder=$(cd "$1" && pwd)
export SALDORO_WINDOWS_TOOLKIT=$folder/qt

say() { printf '== %s\n' "$*"; }

# A private apt configuration, so that the machine's own list of sources stays as it is.
private_apt() {
    local apt=$folder/apt
    mkdir -p "$apt/lists/partial" "$apt/archives/partial"
    : >"$apt/debian.sources"
    local file
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -e "$file" ] && sed 's/^Types:.*/Types: deb-src/' "$file" >>"$apt/debian.sources" \
            && printf '\n' >>"$apt/debian.sources"
    done
    : >"$apt/debian.list"
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -e "$file" ] && sed -nE 's/^[[:blank:]]*deb[[:blank:]]/deb-src /p' "$file" >>"$apt/debian.list"
    done
    apt_options=(-o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$apt"
        -o "Dir::State::lists=$apt/lists" -o "Dir::Cache::archives=$apt/archives"
        -o "APT::Get::List-Cleanup=0" -o "APT::Sandbox::User=$(id -un)")
    apt-get "${apt_options[@]}" -qq update
}

fetch_source() { # PACKAGE[=VERSION] -> its unpacked folder in $folder/source
    (cd "$folder/source" && apt-get "${apt_options[@]}" -qq source "$1" >/dev/null)
}

build_sqlite() {
    [ -e "$folder/sqlite/sqlite3.c" ] && return
    say 'SQLite in one source file'
    fetch_source sqlite3
    local source
    source=$(find "$folder/source" -maxdepth 1 -type d -name 'sqlite3-*' | head -n 1)
    (cd "$source" && ./configure --disable-tcl --disable-readline >/dev/null && make sqlite3.c >/dev/null)
    mkdir -p "$folder/sqlite"
    cp "$source/sqlite3.c" "$source/sqlite3.h" "$folder/sqlite/"
}

build_qt() {
    [ -e "$folder/qt/.complete" ] && return
    say 'Qt: source package'
    # The very version whose code generators are installed on this machine.
    fetch_source "qt6-base=$(dpkg-query -W -f '${Version}' qt6-base-dev)"
    local source
    source=$(find "$folder/source" -maxdepth 1 -type d -name 'qt6-base-*' | head -n 1)
    local off=() feature
    for feature in opengl vulkan network sql dbus printsupport concurrent xml icu glib zstd \
        pkg_config jpeg gif tuiotouch tabletevent direct2d directwrite3 system_zlib system_png \
        system_freetype system_harfbuzz system_pcre2 system_doubleconversion system_libb2 \
        system_sqlite system_textmarkdownreader; do
        off+=("-DFEATURE_$feature=OFF")
    done
    say 'Qt: configure'
    cmake -S "$source" -B "$folder/qt-build" -G Ninja -Wno-dev \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/windows-toolchain.cmake" \
        -DCMAKE_INSTALL_PREFIX="$folder/qt" -DCMAKE_BUILD_TYPE=Release \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DBUILD_SHARED_LIBS=OFF \
        -DFEATURE_static_runtime=ON -DFEATURE_testlib=ON -DQT_BUILD_EXAMPLES=OFF \
        -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no "${off[@]}" >"$folder/qt-configure.log" 2>&1 \
        || { tail -n 40 "$folder/qt-configure.log" >&2; exit 1; }
    say 'Qt: build (about a quarter of an hour)'
    cmake --build "$folder/qt-build" >"$folder/qt-build.log" 2>&1 \
        || { tail -n 40 "$folder/qt-build.log" >&2; exit 1; }
    cmake --install "$folder/qt-build" >/dev/null
    touch "$folder/qt/.complete"
    rm -rf "$folder/qt-build"
}

mkdir -p "$folder/source"
if [ ! -e "$folder/qt/.complete" ] || [ ! -e "$folder/sqlite/sqlite3.c" ]; then
    private_apt
    build_sqlite
    build_qt
    # Qt's licence wants these handed out with programs that have it in them.
    mkdir -p "$folder/sources"
    mv "$folder"/source/qt6-base_* "$folder/sources"
    rm -rf "$folder/source"
fi
say "toolkit for Windows in $folder"
