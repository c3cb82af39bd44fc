#!/usr/bin/env bash
# Makes the Debian package, lets lintian judge it, starts the program from the installed files and
# removes them again. Says what it saw and fails at the first thing that is not as it should be.
#
#   scripts/package.sh               tries the package in a folder of its own
#   scripts/package.sh --install     installs it on this machine (as root), tries it and removes it
#   scripts/package.sh --keep        like --install, and leaves it installed
#
# The package is left in build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
. scripts/steps.sh
build=$PWD/build/release
project=00112

step() { printf '\n== %s\n' "$*"; }
fail() {
    printf 'package: %s\n' "$*" >&2
    exit 1
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

step 'packages'
need_packages "${BUILD_PACKAGES[@]}" "${DEB_PACKAGES[@]}"

step 'build'
configure release || fail 'not configured'
cmake --build --preset release --target Saldoro saldoro-appalti saldoro-archivio \
    packaging_files >"$work/log" 2>&1 || { tail -n 40 "$work/log"; fail 'not built'; }

step 'package'
rm -f "$build"/saldoro_*.deb
(cd "$build" && cpack -G DEB --config CPackConfig.cmake) >"$work/log" 2>&1 \
    || { cat "$work/log"; fail 'cpack failed'; }
package=$(echo "$build"/saldoro_*.deb)
dpkg-deb --info "$package"
dpkg-deb --contents "$package" | awk '{ print $1, $3, $6, $7, $8 }'

step 'lintian'
lintian --allow-root --tag-display-limit 0 --fail-on error "$package" || fail 'lintian has errors'

step 'install'
root=$work/root
case ${1:-} in
--install | --keep)
    root=
    apt-get -qq install -y --no-install-recommends "$package" || fail 'not installed'
    ;;
*)
    # Unpacked beside the system, whose libraries it then finds, as its dependencies ask for.
    dpkg-deb --extract "$package" "$root"
    dpkg-deb --field "$package" Depends | tr ',' '\n' | sed 's/ *(.*//; s/^ *//' >"$work/depends"
    # shellcheck disable=SC2016 # the package tool's own variables
    xargs dpkg-query -W -f '${Package} ${Version}\n' <"$work/depends" || fail 'a dependency is missing'
    ;;
esac
desktop-file-validate "$root/usr/share/applications/saldoro.desktop"
appstreamcli validate --no-net --pedantic --explain \
    "$root/usr/share/metainfo/saldoro.metainfo.xml" || fail 'the AppStream data is not valid'
for page in saldoro Saldoro saldoro-appalti saldoro-archivio; do
    man --warnings -l "$root/usr/share/man/it/man1/$page.1.gz" 2>"$work/log" >/dev/null
    [ -s "$work/log" ] && { cat "$work/log"; fail "the man page of $page has faults"; }
done

step 'start'
set_archives_root "$work/settings" "$work/archive"
XDG_CONFIG_HOME=$work/settings make_demo "$work/archive" "$root/usr/share/doc/saldoro/examples" \
    "$root/usr/bin/saldoro-archivio"
folder=$work/archive/ARCHIVI.QX/ZELT/LAVORI/APPALTI/$project
"$root/usr/bin/saldoro-archivio" verifica "$folder" || [ $? -eq 1 ] \
    || fail 'saldoro-archivio cannot check'
menu_program=$(sed -n 's/^Exec=//p' "$root/usr/share/applications/saldoro.desktop")
for command in "saldoro TUSMQDE7W$project" "$menu_program"; do
    status=0
    # shellcheck disable=SC2086 # words of a command
    XDG_CONFIG_HOME=$work/settings QT_QPA_PLATFORM=offscreen \
        timeout 5 "$root/usr/bin/"$command 2>"$work/log" || status=$?
    [ "$status" -eq 124 ] || { cat "$work/log"; fail "$command ended by itself, status $status"; }
    echo "The window of $command stays open."
done
(cd "$work" && XDG_CONFIG_HOME=$work/settings QT_QPA_PLATFORM=offscreen \
    "$root/usr/bin/saldoro" /INI 2>/dev/null)
grep -qx $'Autorun = Saldoro.exe\r' "$work/Saldoro.ini" || fail 'the manifest has another name'
echo 'The manifest has the name of the program.'

if [ "${1:-}" = --install ]; then
    step 'remove'
    dpkg-query -L saldoro >"$work/files"
    apt-get -qq purge -y saldoro || fail 'not removed'
    while read -r file; do
        [ ! -d "$file" ] && [ -e "$file" ] && fail "left behind: $file"
        [[ $file == */saldoro ]] && [ -e "$file" ] && fail "left behind: $file"
    done <"$work/files"
    echo 'Nothing is left behind.'
fi
printf '\n%s\n' "$package"
