#!/usr/bin/env bash
# Builds Saldoro, makes the demo archive where it is not there yet, and starts the program on it.
# Installs what is missing first. Without a display the same windows are opened off screen and shown
# as pictures and text.
#
#   scripts/demo.sh           starts on the archive as the last run left it
#   scripts/demo.sh --nuovo   makes the archive anew first
set -uo pipefail

fail() { # WHAT WHAT_TO_DO
    printf '\nLa dimostrazione si ferma: %s\n%s\n' "$1" "$2" >&2
    exit 1
}

cd "$(dirname "$0")/.." || fail 'la cartella del progetto non è raggiungibile.' \
    'Controllare i permessi della cartella.'
. scripts/packages.sh || fail 'manca scripts/packages.sh.' 'Scaricare di nuovo il progetto.'
. scripts/steps.sh || fail 'manca scripts/steps.sh.' 'Scaricare di nuovo il progetto.'

build=$PWD/build/release
demo=$PWD/build/demo
log=$demo/costruzione.log
project=00112

mkdir -p "$demo" || fail "la cartella $demo non può essere creata." \
    'Controllare i permessi e lo spazio libero sul disco.'

packages() {
    local wanted=("${BUILD_PACKAGES[@]}" "${TRANSLATION_PACKAGES[@]}")
    [ -n "${WAYLAND_DISPLAY:-}" ] && [ -z "${DISPLAY:-}" ] && wanted+=(qt6-wayland)
    if ! command -v dpkg-query >/dev/null; then
        printf 'Sistema senza pacchetti Debian: compilatore, CMake, Ninja, Qt 6 e SQLite devono esserci già.\n'
        return
    fi
    need_packages "${wanted[@]}" || fail 'mancano i programmi che servono per costruire Saldoro.' \
        "Installare questi pacchetti e riprovare: ${wanted[*]}"
}

logged() { # COMMAND...
    "$@" >>"$log" 2>&1 && return
    tail -n 30 "$log" >&2
    return 1
}

build_program() {
    : >"$log"
    if [ ! -e "$build/build.ninja" ]; then
        printf 'Preparazione della costruzione...\n'
        logged cmake --preset release || fail 'la costruzione non può essere preparata.' \
            "Leggere i messaggi qui sopra (tutti in $log); se si parla di una cartella diversa, cancellare build/release."
    fi
    printf 'Costruzione del programma (la prima volta servono alcuni minuti)...\n'
    logged cmake --build --preset release --target Saldoro saldoro-archivio saldoro_demo_tour \
        || fail 'il programma non si costruisce.' \
            "Leggere i messaggi qui sopra (tutti in $log) e riprovare; se continua, cancellare build/release."
}

make_archive() {
    [ -d "$demo/archivio" ] && return
    # Made aside and put in place whole: an archive that is there is complete.
    rm -rf "$demo/archivio.nuovo"
    if ! make_demo "$demo/archivio.nuovo" demo "$build/src/archivio/saldoro-archivio" \
        || ! mv "$demo/archivio.nuovo" "$demo/archivio"; then
        fail "l'archivio dimostrativo non può essere creato." \
            "Controllare lo spazio libero in $demo e riprovare."
    fi
    printf 'Archivio dimostrativo creato in %s\n' "$demo/archivio"
}

# The setting of this run alone; the user's own is neither read nor changed.
make_setting() {
    export XDG_CONFIG_HOME=$demo/impostazioni
    set_archives_root "$XDG_CONFIG_HOME" "$demo/archivio" \
        || fail "l'impostazione di questa esecuzione non può essere scritta." \
            "Controllare i permessi di $demo."
}

tour() {
    "$build/tools/saldoro_demo_tour" "$project" "$demo/immagini" \
        || fail 'il giro delle finestre non è arrivato alla fine.' \
            "Leggere il messaggio qui sopra; con scripts/demo.sh --nuovo si riparte da un archivio nuovo."
}

packages
build_program
[ "${1:-}" = --nuovo ] && rm -rf "$demo/archivio"
make_setting
make_archive

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    printf 'Nessuno schermo: le finestre vengono aperte fuori video.\n\n'
    tour
    exit
fi
printf 'Avvio di Saldoro sul progetto %s.\n' "$project"
"$build/src/app/Saldoro" "TUSMQDE7W$project"
status=$?
if [ "$status" -eq 134 ]; then
    # Aborted: the way the toolkit gives up when the display does not answer.
    printf 'Lo schermo non risponde (uscita %s): le finestre vengono aperte fuori video.\n\n' "$status"
    tour
elif [ "$status" -ne 0 ]; then
    fail "il programma è terminato con un errore (uscita $status)." \
        'Il messaggio è stato mostrato a video; con scripts/demo.sh --nuovo si riparte da un archivio nuovo.'
fi
