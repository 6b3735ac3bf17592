# A Wine prefix and a virtual display of our own; sourced, then:
#   start_wine PREFIX    makes the prefix when it is new, and starts display and services
#   start_prefix PREFIX  the prefix alone, on the display that is there
#   stop_wine            ends both; also called when the script that sourced this ends
# Nothing of the user's own Wine prefix or display is touched.
#
# Whatever a program does with a file, Wine's server does for it, one request after the other; the two
# wait for each other all the time, and on two processors each time for one to wake up. The server keeps
# to WINE_SERVER_PROCESSOR, and who works with many files is quickest there, too: in two fifths to three
# quarters of the time.

start_wine() {
    start_virtual_display || return
    start_prefix "$1"
    # Windows draw their own captions, as they do on Windows.
    wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
    # Temporary files go where this system's go.
    ln -sfn "${TMPDIR:-/tmp}" "$WINEPREFIX/drive_c/temporary"
    local variable
    for variable in TEMP TMP; do
        wine reg add 'HKCU\Environment' /v "$variable" /d 'C:\temporary' /f >/dev/null 2>&1
    done
    wineserver -w
    WINE_SERVER_PROCESSOR=$(taskset -cp $$ | sed 's/.*: //; s/[,-].*//')
    export WINE_SERVER_PROCESSOR
    # The services stay up between tests, started by a process that is not a test.
    taskset -c "$WINE_SERVER_PROCESSOR" wineserver -p
    wine cmd /c exit >/dev/null 2>&1 </dev/null
}

start_virtual_display() {
    local display_file
    display_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$display_file" >/dev/null 2>&1 &
    xvfb_pid=$!
    trap stop_wine EXIT
    for _ in $(seq 100); do
        [ -s "$display_file" ] && break
        sleep 0.1
    done
    DISPLAY=:$(tr -d '\n' <"$display_file")
    rm -f "$display_file"
    [ "$DISPLAY" != : ] || { echo "The virtual display (Xvfb) did not start." >&2; return 1; }
    export DISPLAY
}

start_prefix() {
    trap stop_wine EXIT
    export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=-all
    # Without a UTF-8 locale, as on a machine just set up, files cannot have names in other scripts.
    export LC_ALL=C.UTF-8
    export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        mkdir -p "$WINEPREFIX"
        wine wineboot --init >/dev/null 2>&1
    fi
}

stop_wine() {
    [ -z "${WINEPREFIX:-}" ] || wineserver -k 2>/dev/null || true
    [ -z "${xvfb_pid:-}" ] || kill "$xvfb_pid" 2>/dev/null || true
    xvfb_pid=
    return 0
}
