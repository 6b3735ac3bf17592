#!/usr/bin/env bash
# Shows the dialog and Quarnel Sheet at work under Wine, with the sample host serving an example building: on the
# display if there is one, to be closed by the user; else on a virtual display, with a screenshot.
# Usage: scripts/run-desktop.sh       (after building the Windows target show_run; see ./run)
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/wine-session.sh

prefix=$PWD/build/wine-desktop
folder=$PWD/build/desktop-run
screenshot=$folder/dialog.png
model=$folder/two_story_y_up.qhm
input=$folder/two_story_y_up.csv

# A local display counts when its socket is there; one on another machine is taken at its word.
has_display() {
    case "${DISPLAY:-}" in
        "") return 1 ;;
        :*) local number=${DISPLAY#:}; [ -S "/tmp/.X11-unix/X${number%%.*}" ] ;;
        *) return 0 ;;
    esac
}

# Debian keeps Wine's fonts where Wine does not look for them.
add_fonts() {
    mkdir -p "$prefix/drive_c/windows/Fonts"
    ln -sf /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$prefix/drive_c/windows/Fonts/"
}

# Sheets are opened by the user's own browser, where there is one.
open_pages_outside() {
    wine reg add 'HKCR\.html' /ve /d htmlfile /f >/dev/null 2>&1
    wine reg add 'HKCR\htmlfile\shell\open\command' /ve /d 'winebrowser.exe "%1"' /f >/dev/null 2>&1
}

# The folder is the tool's drive D. Wine's own remarks are left out.
show_run() {
    ln -sfn "$folder" "$prefix/dosdevices/d:"
    wine build/windows/tests/show_run.exe "D:\\${model##*/}" "D:\\${input##*/}" "$@" \
        2> >(grep '^show_run' >&2)
}

show_to_the_user() {
    start_prefix "$prefix"
    open_pages_outside
    echo "The dialog and Quarnel Sheet open; they are yours after the run. Close both to end."
    show_run --until-closed </dev/null
}

# The program keeps the dialog open until its standard input ends.
take_screenshot() {
    local line=
    echo "There is no display here: the dialog and Quarnel Sheet are shown on a virtual one."
    start_wine "$prefix"
    open_pages_outside
    coproc shown { show_run; }
    local output=${shown[0]} input_end=${shown[1]} pid=$shown_PID
    while IFS= read -r line <&"$output"; do
        line=${line%$'\r'}
        [ "$line" != Shown. ] || break
        printf '%s\n' "$line"
    done
    [ "$line" = Shown. ] || { wait "$pid" || true; return 1; }
    import -window root "$screenshot"
    mogrify -trim +repage "$screenshot"
    exec {input_end}>&-
    wait "$pid"
}

mkdir -p "$folder"
cp examples/two_story_y_up.{qhm,csv} "$folder"
add_fonts
if has_display; then
    show_to_the_user
else
    take_screenshot
    echo
    echo "screenshot: $screenshot"
fi
echo "log:        ${model%qhm}aijR2Log.txt"
echo "results:    ${model%qhm}aijR2Result.csv"
echo "sheet:      ${model%qhm}aijR2Sheet.html"
