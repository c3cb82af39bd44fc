# shellcheck shell=bash disable=SC2034 # the lists are used where this is sourced
# Sourced by the other scripts: which Debian packages each kind of work needs, and how to get those
# that are missing.

BUILD_PACKAGES=(build-essential cmake ninja-build qt6-base-dev qt6-base-dev-tools libsqlite3-dev
    fonts-dejavu-core)
TRANSLATION_PACKAGES=(qt6-translations-l10n)
TEST_PACKAGES=(git clang-format python3 imagemagick)
ALL_TEST_PACKAGES=(clang-tidy libreoffice-writer-nogui pandoc)
BENCH_PACKAGES=(libbenchmark-dev python3)
COVERAGE_PACKAGES=(gcovr)
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix "${TRANSLATION_PACKAGES[@]}" dpkg-dev tcl perl wine
    wine64 nsis pandoc fonts-dejavu-core xvfb openbox xdotool x11-utils imagemagick sqlite3)
ICON_PACKAGES=(librsvg2-bin imagemagick)
DEB_PACKAGES=(dpkg-dev fakeroot lintian pandoc appstream desktop-file-utils)

# need_packages NAME... installs those that are not there yet.
need_packages() {
    local missing=() name
    for name in "$@"; do
        [ "$(dpkg-query -W -f '${Status}' "$name" 2>/dev/null)" = 'install ok installed' ] \
            || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            printf 'Mancano i pacchetti: %s\nInstallarli come amministratore (apt-get install) e riprovare.\n' \
                "${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    printf 'Installazione dei pacchetti mancanti: %s\n' "${missing[*]}"
    if ! { "${as_root[@]}" apt-get -qq update \
        && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get -qq install -y --no-install-recommends "${missing[@]}" >/dev/null; }; then
        printf 'I pacchetti mancanti non sono stati installati: controllare la connessione e le fonti dei pacchetti.\n' >&2
        return 1
    fi
}
