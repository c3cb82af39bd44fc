# shellcheck shell=bash
# Sourced by the other scripts: steps that several of them take.

# configure PRESET [ARGUMENT...]: quiet unless it fails; then all that was said is shown.
configure() {
    local said
    said=$(cmake --preset "$@" 2>&1) && return
    printf '%s\n' "$said" >&2
    return 1
}

# set_archives_root SETTINGS ROOT: the archives root of a program that is run with XDG_CONFIG_HOME
# set to SETTINGS.
set_archives_root() {
    mkdir -p "$1/saldoro" || return
    printf '[Software\\Dornvale\\ZELT]\ndrivers=%s\n' "$2" >"$1/saldoro/registro.ini"
}
