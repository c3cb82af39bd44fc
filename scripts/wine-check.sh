#!/usr/bin/env bash
# Runs the Windows program under Wine as a user would and compares what it leaves with what the
# Linux program leaves after the same keys. Every check that fails ends the run.
#
#   scripts/wine-check.sh WINDOWS_BUILD LINUX_BUILD
#
# The folder WINDOWS_BUILD/wine-check keeps archives and pictures of the last run.
set -euo pipefail
windows=$(cd "$1" && pwd)
linux=$(cd "$2" && pwd)
cd "$(dirname "$0")/.."
. scripts/screen.sh
. scripts/steps.sh
work=$windows/wine-check
project=00112
version=$(sed -n 's/^project(Saldoro VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

export WINEPREFIX=$work/prefix WINEDEBUG=-all WINEARCH=win64
unset WINEQT_QPA_PLATFORM QT_QPA_PLATFORM
export XDG_CONFIG_HOME=$work/settings

fail() {
    printf 'wine-check: %s\n' "$*" >&2
    if [ -n "${DISPLAY:-}" ]; then
        import -window root "$work/failure.png" || true
    fi
    exit 1
}
proved() { printf '  %s\n' "$*"; }
trap 'status=$?; wineserver -k 2>/dev/null || true; close_screen; exit $status' EXIT

windows_path() { printf 'Z:%s' "${1//\//\\}"; }
windows_root() { # ROOT: the archives root in the registry
    wine reg add 'HKCU\Software\Dornvale\ZELT' /v drivers /t REG_SZ /d "$(windows_path "$1")" /f \
        >/dev/null || fail 'the registry cannot be written'
}
project_folder() { printf '%s/ARCHIVI.QX/ZELT/LAVORI/APPALTI/%s' "$1" "$project"; }

# start windows|linux TAIL, in the background; ended STATUS waits for its end.
start() {
    case $1 in
    windows) (cd "$work/here" && exec wine "$windows/src/app/Saldoro.exe" "$2") & ;;
    linux) (cd "$work/here" && exec "$linux/src/app/Saldoro" "$2") & ;;
    esac
    program=$!
}
ended() {
    local status=0 waited
    for waited in $(seq 300); do
        kill -0 "$program" 2>/dev/null || break
        sleep 0.2
    done
    [ "$waited" -lt 300 ] || fail 'the program does not end'
    wait "$program" || status=$?
    [ "$status" -eq "$1" ] || fail "the program ended with status $status, not $1"
}

# Documents, register entries and rows of a project as files that can be compared.
picture_of() { # ROOT FOLDER
    local folder file
    folder=$(project_folder "$1")
    rm -rf "$2"
    mkdir -p "$2"
    cp "$folder"/*.rtf "$2"
    for file in "$folder"/*.mdb; do
        sqlite3 -readonly "$file" .dump >"$2/$(basename "$file").sql"
    done
}
same() { # WHAT FOLDER FOLDER
    diff -r "$2" "$3" >"$work/difference.txt" || {
        head -n 20 "$work/difference.txt" >&2
        fail "$1"
    }
}

check_version_resource() {
    local text
    text=$(strings -el "$windows/src/app/Saldoro.exe" | grep -A1 -E '^(ProductVersion|FileVersion)$')
    [ "$(grep -cxF "$version" <<<"$text")" -eq 2 ] || fail "the version resource does not say $version"
    proved "version resource: $version"
}

check_manifest() {
    local tail file expected major minor revision name=Saldoro
    for tail in /INI /ini; do
        rm -f "$work/here"/*
        start windows "$tail"
        ended 0
        [ "$(ls "$work/here")" = "$name.ini" ] || fail "$tail leaves $(ls "$work/here"), not $name.ini"
        file=$work/here/$name.ini
        IFS=. read -r major minor revision <<<"$version"
        expected=$(printf '%s\r\n' '[Configuration]' "Autorun = $name.exe" \
            "Versione = $version     ($(date -r "$windows/src/app/$name.exe" +%d/%m/%Y))" \
            "Build = $major$minor$(printf '%03d' "$revision")" 'KeyReg = Software\Dornvale\ZELT' \
            "Data = $(date +%d/%m/%Y)" "$(grep '^Time = ' "$file" | tr -d '\r')" '' '[FILE]' \
            'NUMFILE = 1' "FILE1 = $name.EXE")
        grep -qP '^Time = ([01]\d|2[0-3]):[0-5]\d:[0-5]\d\r$' "$file" || fail 'the time is not a time'
        [ "$(cat "$file")" = "$expected" ] || fail "the manifest is not as it must be: $(cat "$file")"
    done
    proved '/INI and /ini write the manifest, with names, version and dates of the program'
}

# The tail is raw: a blank behind the switch counts, and so the program starts instead.
check_raw_tail() {
    rm -f "$work/here"/*
    printf '@cd /d "%s"\r\n@"%s" /INI \r\n' "$(windows_path "$work/here")" \
        "$(windows_path "$windows/src/app/Saldoro.exe")" >"$work/blank.bat"
    wine cmd /c "$(windows_path "$work/blank.bat")" >/dev/null &
    program=$!
    wait_window 'SALDORO APPALTO (00039)' || fail '"/INI " does not start the program'
    [ -z "$(ls "$work/here")" ] || fail '"/INI " writes a manifest'
    press alt+c
    ended 0
    proved '"/INI " with a blank behind starts the program on its own project'
}

# Installed and taken away again without a question.
check_installer() {
    local user home folder menu name
    user=$(id -un)
    home=$WINEPREFIX/drive_c/users/$user/AppData
    folder=$home/Local/Programs/Saldoro
    menu="$home/Roaming/Microsoft/Windows/Start Menu/Programs"
    wine "$windows/Saldoro-$version-win64-installa.exe" /S || fail 'the installer fails'
    for name in Saldoro.exe saldoro-appalti.exe saldoro-archivio.exe manuale.html Disinstalla.exe; do
        [ -s "$folder/$name" ] || fail "$name is not installed"
    done
    cmp "$folder/Saldoro.exe" "$windows/src/app/Saldoro.exe" || fail 'another Saldoro.exe is installed'
    [ -e "$menu/Saldoro/Saldoro.lnk" ] || fail 'there is no entry in the start menu'
    strings -el "$menu/Saldoro/Prompt di Saldoro.lnk" | grep -qE 'AppData.Local.Programs.Saldoro$' \
        || fail 'no command window opens in the folder of the programs'
    wine reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Saldoro' \
        /v DisplayVersion | grep -qF "$version" || fail 'the installed version is not registered'
    wine "$folder/Disinstalla.exe" /S "_?=C:\\users\\$user\\AppData\\Local\\Programs\\Saldoro" \
        || fail 'the uninstaller fails'
    if [ -e "$folder/Saldoro.exe" ] || [ -e "$menu/Saldoro" ]; then
        fail 'something stays installed'
    fi
    proved 'the installer installs, registers and takes away'
}

# Cells that another Windows program has copied become a contract, on which Saldoro opens.
check_clipboard() {
    local code=00001 cells=$work/celle.txt
    printf '\xef\xbb\xbfCodice\tDescrizione\tImporto\r\nA1\tCittà alta\t1.234,56\r\n' >"$cells"
    wine notepad "$(windows_path "$cells")" &
    wait_window celle || fail 'the editor does not open'
    press ctrl+a ctrl+c alt+F4
    mkdir "$work/programs"
    cp "$windows"/src/{app/Saldoro,office/saldoro-appalti}.exe "$work/programs"
    wine "$work/programs/saldoro-appalti.exe" &
    program=$!
    wait_window 'Saldoro - Appalti' || fail 'the contracts are not listed'
    press alt+n
    wait_window 'Nuovo appalto' || fail 'no contract can be made'
    sleep 1 # on a busy machine the window is the active one before it takes keys
    press ctrl+v alt+e
    wait_window "SALDORO APPALTO ($code)" || fail 'the program does not open on the new contract'
    press alt+c
    wait_window 'Saldoro - Appalti' || fail 'the contracts have gone'
    press alt+h
    ended 0
    sqlite3 -readonly "$(dirname "$(project_folder "$work/archive-windows")")/$code/Appalto.mdb" 'SELECT * FROM UltimaPerVariante' \
        | grep -qxF 'A1|Città alta|12345600' || fail 'the cells are not those that were copied'
    proved 'cells from the clipboard of Windows become a contract'
}

check_updater() {
    local update=$work/archive-windows/ARCHIVI.QX/ZELT/UPDATE waited
    local record=$update/Updrun2.EXE
    mkdir -p "$update"
    cp "$windows/tests/updater_recorder.exe" "$record"
    printf '[Configuration]\r\nBuild = 99999\r\n' >"$update/Saldoro.INI"
    export UPDATER_SECONDS=8
    start windows "TUSMQDE7W$project"
    ended 0
    [ ! -e "$record.ended.txt" ] || fail 'the program has waited for the updater'
    for waited in $(seq 150); do
        [ -e "$record.ended.txt" ] && break
        sleep 0.2
    done
    [ -e "$record.ended.txt" ] || fail 'the updater did not outlive the program'
    printf '/F\nSaldoro\n' | cmp "$record.txt" || fail "the updater was called so: $(cat "$record.txt")"
    rm "$record"* "$update/Saldoro.INI"
    proved 'the updater is started with its switch and outlives the program'
}

journey() { # windows|linux
    start "$1" "TUSMQDE7W$project"
    wait_window "SALDORO APPALTO ($project)" || fail "$1: no main form"
    enter_professional_payment "$project" || fail "$1: the keys went elsewhere"
    # Under Wine the main form comes to the front so late that no window sees Conferma's key let go;
    # its next press would count as held down.
    press alt+F4
    ended 0
    picture_of "$work/archive-$1" "$work/left-$1"
    sqlite3 -readonly "$(project_folder "$work/archive-$1")/Saldoro.mdb" \
        "SELECT count(*) FROM Fatture WHERE AziProf = 'P' AND Creditore = 'Ing. Elisa Boni'" \
        | grep -qx 1 || fail "$1: the payment has not been saved"
}

# Opens what the other system has left and closes it again: the same documents must come out.
reopen() { # windows|linux ROOT_OF_THE_OTHER EXPECTED
    cp -r "$2" "$work/other"
    rm "$(project_folder "$work/other")"/*.rtf
    if [ "$1" = windows ]; then windows_root "$work/other"; else set_archives_root "$XDG_CONFIG_HOME" "$work/other"; fi
    start "$1" "TUSMQDE7W$project"
    wait_window "SALDORO APPALTO ($project)" || fail "$1 does not open the other system's files"
    press alt+c
    ended 0
    picture_of "$work/other" "$work/reopened-$1"
    same "$1 makes something else of the other system's files" "$3" "$work/reopened-$1"
    rm -rf "$work/other"
    proved "$1 opens the other system's files and leaves the same"
}

rm -rf "$work"
mkdir -p "$work/here"
open_screen "$work" || fail 'no display'
scripts/wine-prefix.sh "$WINEPREFIX"
make_demo "$work/archive-linux" demo "$linux/src/archivio/saldoro-archivio"
make_demo "$(windows_path "$work/archive-windows")" demo \
    wine "$windows/src/archivio/saldoro-archivio.exe"

check_version_resource
check_installer
windows_root "$work/archive-windows"
check_manifest
check_raw_tail
check_clipboard
check_updater

set_archives_root "$XDG_CONFIG_HOME" "$work/archive-linux"
journey linux
journey windows
same 'the two systems leave different files' "$work/left-linux" "$work/left-windows"
proved "the same keys leave the same documents, register entries and rows ($(find "$work/left-linux" -type f | wc -l) files)"
reopen linux "$work/archive-windows" "$work/left-windows"
reopen windows "$work/archive-linux" "$work/left-linux"
echo 'wine-check: all proved'
