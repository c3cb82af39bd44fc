#!/usr/bin/env bash
# Builds Saldoro, makes the demo archive where it is not there yet, and starts the program on it.
# Installs what is missing first. Without a display the same windows are opened off screen and shown
# as pictures and text.
#
#   scripts/demo.sh           starts on the archive as the last run left it
#   scripts/demo.sh --nuovo   starts on a new archive
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh
demo=$PWD/build/demo
build=$demo/programma
log=$demo/costruzione.log
project=00112

fail() { # WHAT WHAT_TO_DO
    printf '\nLa dimostrazione si ferma: %s\n%s\n' "$1" "$2" >&2
    exit 1
}

mkdir -p "$demo"
packages=("${BUILD_PACKAGES[@]}" "${TRANSLATION_PACKAGES[@]}")
[ -z "${WAYLAND_DISPLAY:-}" ] || [ -n "${DISPLAY:-}" ] || packages+=(qt6-wayland)
if command -v dpkg-query >/dev/null; then # elsewhere they have to be there already
    need_packages "${packages[@]}" || fail 'mancano i programmi che servono per costruire Saldoro.' \
        "Installare questi pacchetti e riprovare: ${packages[*]}"
fi

printf 'Costruzione del programma (la prima volta servono due minuti)...\n'
# Whole folders are compiled at once, without the tests, and without the optimisations that take the
# compiler long.
if ! { cmake --preset release -B "$build" -DCMAKE_UNITY_BUILD=ON -DBUILD_TESTING=OFF \
    "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG" \
    && cmake --build "$build" --target Saldoro saldoro-archivio saldoro_demo_tour; } \
    >"$log" 2>&1; then
    tail -n 30 "$log" >&2
    fail 'il programma non si costruisce.' \
        "Leggere i messaggi qui sopra (tutti in $log) e riprovare; se continua, cancellare $build."
fi

# The setting of this run alone; the user's own is neither read nor changed.
export XDG_CONFIG_HOME=$demo/impostazioni
set_archives_root "$XDG_CONFIG_HOME" "$demo/archivio"
[ "${1:-}" != --nuovo ] || rm -rf "$demo/archivio"
if [ ! -d "$demo/archivio" ]; then
    # Made aside and put in place whole: an archive that is there is complete.
    rm -rf "$demo/archivio.nuovo"
    make_demo "$demo/archivio.nuovo" demo "$build/src/archivio/saldoro-archivio" \
        || fail "l'archivio dimostrativo non può essere creato." "Leggere i messaggi qui sopra."
    mv "$demo/archivio.nuovo" "$demo/archivio"
    printf 'Archivio dimostrativo creato in %s\n' "$demo/archivio"
fi

status=134 # aborted: the way the toolkit gives up when no display answers
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    printf 'Avvio di Saldoro sul progetto %s.\n' "$project"
    status=0
    "$build/src/app/Saldoro" "TUSMQDE7W$project" || status=$?
fi
if [ "$status" -eq 134 ]; then
    printf 'Nessuno schermo: le finestre vengono aperte fuori video.\n\n'
    status=0
    "$build/tools/saldoro_demo_tour" "$project" "$demo/immagini" || status=$?
fi
[ "$status" -eq 0 ] || fail "il programma è terminato con un errore (uscita $status)." \
    'Leggere il messaggio; con scripts/demo.sh --nuovo si riparte da un archivio nuovo.'
