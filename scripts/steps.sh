# shellcheck shell=bash
# Sourced by the other scripts: steps that several of them take.

# configure PRESET [ARGUMENT...]: quiet unless it fails; then all that was said is shown.
configure() {
    local said
    said=$(cmake --preset "$@" 2>&1) && return
    printf '%s\n' "$said" >&2
    return 1
}

# make_demo ARCHIVE FOLDER PROGRAM...: the example in FOLDER as two projects of an archive, by the
# companion program: its own, and the one that the main program opens by itself.
make_demo() {
    local archive=$1 folder=$2 code
    shift 2
    for code in 00112 00039; do
        "$@" importa --nuovo "$folder" "$archive/ARCHIVI.QX/ZELT/LAVORI/APPALTI/$code" >/dev/null \
            || return
    done
}

# set_archives_root SETTINGS ROOT: the archives root of a program that is run with XDG_CONFIG_HOME
# set to SETTINGS.
set_archives_root() {
    mkdir -p "$1/saldoro" || return
    printf '[Software\\Dornvale\\ZELT]\ndrivers=%s\n' "$2" >"$1/saldoro/registro.ini"
}
