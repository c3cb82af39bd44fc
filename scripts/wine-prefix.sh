#!/usr/bin/env bash
# Prepares a fresh Wine prefix that the Windows build can run in: Windows 10, and fonts of this
# machine in the place of those that Windows would have.
#
#   scripts/wine-prefix.sh PREFIX
set -euo pipefail
export WINEPREFIX=$1 WINEDEBUG=-all WINEARCH=win64
[ -e "$WINEPREFIX/.ready" ] && exit 0
mkdir -p "$(dirname "$WINEPREFIX")"
wineboot --init >/dev/null 2>&1
wine reg add 'HKCU\Software\Wine' /v Version /d win10 /f >/dev/null
for font in 'Segoe UI' 'Tahoma' 'MS Shell Dlg 2'; do
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" /d 'DejaVu Sans' /f >/dev/null
done
wineserver -w
touch "$WINEPREFIX/.ready"
