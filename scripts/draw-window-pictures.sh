#!/usr/bin/env bash
# Draws docs/images/sheet_window.png and its Japanese twin (.ja.png): the window of Quarnel Sheet after
# a run on an example, under Wine, with the sample host.
# Usage: scripts/draw-window-pictures.sh
#
# To be run again when the window looks different. Installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/debian-packages.sh
. scripts/wine-session.sh
scripts/install-debian-packages.sh "${native_packages[@]}" "${windows_packages[@]}" \
    "${wine_packages[@]}" "${desktop_packages[@]}" fonts-noto-cjk
cmake --preset windows >/dev/null
cmake --build --preset windows --target QuarnelSheet SampleHost >/dev/null

prefix=$PWD/build/wine-pictures
programs=$PWD/build/windows/bin
images=$PWD/docs/images
jobs=$prefix/drive_c/jobs

# A font with Japanese letters for the window and its caption, the signs of the caption's buttons, and
# nothing that opens the sheet. Fonts are read when Wine starts.
prepare() {
    ln -sf /usr/share/wine/fonts/marlett.ttf "$prefix/drive_c/windows/Fonts/"
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v Tahoma /d 'Noto Sans CJK JP' /f
    wine reg add 'HKCR\.html' /ve /d htmlfile /f
    wine reg add 'HKCR\htmlfile\shell\open\command' /ve /d 'C:\windows\system32\cmd.exe /c exit' /f
    mkdir -p "$jobs"
    cp examples/five_story_office_z_up.qhm "$jobs/tower.qhm"
    cp examples/five_story_office_z_up.csv "$jobs/tower.csv"
    wineserver -k
    wineserver -p
    wine cmd /c exit </dev/null
}

wait_for() {
    for _ in $(seq 600); do
        ! "$@" || return 0
        sleep 0.1
    done
    echo "Waited in vain for: $*" >&2
    return 1
}

# draw LANGUAGE ENDING
draw() {
    rm -f "$jobs/tower.aijR2Sheet.html"
    wine "$programs/QuarnelSheet.exe" --lang "$1" 'C:\jobs\tower.csv' </dev/null >/dev/null 2>&1 &
    wait_for test -s "$jobs/tower.aijR2Sheet.html"
    sleep 5  # until the window has been drawn
    import -window root png:- | convert png:- -trim +repage -colorspace sRGB +dither -colors 128 \
        -strip "PNG8:$images/sheet_window$2.png"
    wine taskkill /f /im QuarnelSheet.exe >/dev/null 2>&1
    wait $! || true
}

start_wine "$prefix"
prepare >/dev/null
(cd "$jobs" && exec wine "$programs/SampleHost.exe" tower.qhm </dev/null >"$prefix/host.log" 2>&1) &
wait_for grep -q 'Ready: process' "$prefix/host.log"
draw en ""
draw ja .ja
wine "$programs/SampleHost.exe" --stop </dev/null >/dev/null 2>&1
