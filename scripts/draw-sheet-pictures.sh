#!/usr/bin/env bash
# Draws docs/images/sheet_page.png and sheet_plans.png, and their Japanese twins (.ja.png), from the
# calculation sheet of an example as a browser prints it: page 1, and the plans of two stories.
# Usage: scripts/draw-sheet-pictures.sh
#
# To be run again when the sheet looks different. Installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/debian-packages.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${print_packages[@]}" \
    "${picture_packages[@]}"
cmake --preset native >/dev/null
cmake --build --preset native --target quarnel-cli >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/examples"
cp examples/five_story_office_z_up.{qhm,csv} "$work/examples"
cli=$PWD/build/native/bin/quarnel-cli
images=$PWD/docs/images
cd "$work"

# Few colours do for lines and letters, and make small files.
save() { convert "$1" -colorspace sRGB +dither -colors 40 -strip "PNG8:$images/$2"; }

browse() { chromium --headless --no-sandbox --disable-gpu --user-data-dir="$work/profile" "$@" \
    >/dev/null 2>&1; }

# draw LANGUAGE ENDING
draw() {
    "$cli" sheet examples/five_story_office_z_up.{qhm,csv} sheet.html --lang "$1" \
        --date "2026-11-21 10:00" >/dev/null
    browse --no-pdf-header-footer --print-to-pdf=sheet.pdf "file://$work/sheet.html"
    pdftoppm -r 100 -f 1 -l 1 -png -singlefile sheet.pdf page
    save page.png "sheet_page$2.png"
    # The page with nothing but the second row of plans, one story within its limit, one beyond.
    sed -n '1,/<main>/p' sheet.html >plans.html
    echo '<style>html{background:#fff} main{box-shadow:none}</style>' >>plans.html
    sed -n '/<div class="figures plans">/,/<\/div>$/p' sheet.html |
        awk '/<div class="figures plans">/ { ++row } row == 2' >>plans.html
    browse --window-size=780,420 --force-device-scale-factor=1.4 --hide-scrollbars \
        --screenshot=row.png "file://$work/plans.html"
    convert row.png -gravity north -chop 0x80 -fuzz 12% -trim +repage -bordercolor white -border 8 \
        plans.png
    save plans.png "sheet_plans$2.png"
}

draw en ""
draw ja .ja
