#!/usr/bin/env bash
# Takes the manual's pictures from the program itself, on the demo archive.
#
#   scripts/manual-pictures.sh [--check] [BUILD_FOLDER]     default build/dev, which must be built
#
# With --check nothing is written: the status is 1 when a picture of the manual no longer shows what
# the program shows, and 77 when this machine cannot tell.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/steps.sh
check=
if [ "${1:-}" = --check ]; then
    check=yes
    shift
fi
build=${1:-build/dev}
pictures=docs/manuale/immagini
fonts=/usr/share/fonts/truetype/dejavu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

if ! command -v compare >/dev/null || [ ! -e "$fonts/DejaVuSans.ttf" ]; then
    printf 'The pictures need ImageMagick and the DejaVu fonts.\n' >&2
    exit 77
fi

# One screen, one font, one style, whatever the machine has.
cat >"$work/screen.json" <<END
{
  "synchronousWindowSystemEvents": true,
  "windowFrameMargins": false,
  "screens": [{ "name": "screen", "x": 0, "y": 0, "width": 1366, "height": 768,
                "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 }]
}
END
cat >"$work/fonts.conf" <<END
<?xml version="1.0"?>
<fontconfig>
  <dir>$fonts</dir>
  <cachedir>$work/fonts</cachedir>
  <match target="pattern">
    <edit name="family" mode="assign" binding="strong"><string>DejaVu Sans</string></edit>
  </match>
</fontconfig>
END
export FONTCONFIG_FILE=$work/fonts.conf QT_QPA_PLATFORM=offscreen:configfile=$work/screen.json
export QT_STYLE_OVERRIDE=Fusion
export QT_FONT_DPI=96 QT_SCALE_FACTOR=1 LC_ALL=C.UTF-8 XDG_CONFIG_HOME=$work/settings

set_archives_root "$work/settings" "$work/archive"
make_demo "$work/archive" demo "$build/src/archivio/saldoro-archivio"
"$build/tools/saldoro_demo_tour" 00112 "$work/taken" >/dev/null

declare -A names=([1-schermata-principale]=principale [2-pagamento-professionista]=professionista
    [3-pagamento-azienda]=azienda [4-nuova-fattura]=tipo-fattura [7-avvisi]=avvisi
    [8-appalti]=appalti [9-nuovo-appalto]=nuovo-appalto)
status=0
for taken in "${!names[@]}"; do
    name=${names[$taken]}.png
    if [ -z "$check" ]; then
        mkdir -p "$pictures"
        cp "$work/taken/$taken.png" "$pictures/$name"
        continue
    fi
    # Another size is a difference of its own; a cursor that blinks is not.
    differing=$(compare -metric AE -fuzz 15% "$work/taken/$taken.png" "$pictures/$name" \
        "$work/difference.png" 2>&1) || true
    if ! [[ $differing =~ ^[0-9]+$ ]] || [ "$differing" -gt 60 ]; then
        printf '%s differs from the program: %s pixels. Run scripts/manual-pictures.sh.\n' \
            "$name" "$differing"
        status=1
    fi
done
exit "$status"
