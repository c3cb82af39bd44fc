#!/usr/bin/env bash
# Redraws the icons of every size, and the one for Windows, from packaging/saldoro.svg. To be run
# after a change of the drawing; the results are kept with the sources.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need_packages "${ICON_PACKAGES[@]}"

for size in 16 24 32 48 64 128 256; do
    rsvg-convert -w "$size" -h "$size" packaging/saldoro.svg -o "packaging/icons/saldoro-$size.png"
done
convert packaging/icons/saldoro-{16,24,32,48,256}.png packaging/saldoro.ico
