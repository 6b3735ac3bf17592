#!/usr/bin/env bash
# quarnel-cli among links, pipes, full disks and second runs: nothing of the user's is lost, and a
# run is whole or refused.
# Usage: hostile_environment.sh QUARNEL_CLI EXAMPLES CASE      one case (a function below)
#        hostile_environment.sh QUARNEL_CLI EXAMPLES --list    their names
set -uo pipefail

cli=$1
examples=$2

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# Ended by timeout, a program that waits is a failure; nothing here takes seconds.
check() { timeout 60 "$cli" check "$@"; }

expect_code() { [ "$1" = "$2" ] || fail "exit code $2 instead of $1: $(cat err 2>/dev/null)"; }
expect_line() { grep -qF -- "$1" "$2" || fail "no line '$1' in $2: $(cat "$2")"; }
expect_one_line() { [ "$(wc -l <"$1")" = 1 ] || fail "not one line in $1: $(cat "$1")"; }
expect_empty() { [ ! -s "$1" ] || fail "$1 is not empty: $(cat "$1")"; }
expect_same() { cmp "$1" "$2" || fail "$1 and $2 differ"; }

# A building m.qhm with its input i.csv, and in ../whole what an undisturbed run makes of it.
new_building() {
    mkdir -p whole job
    cp "$examples/two_story_y_up.qhm" whole/m.qhm
    cp "$examples/two_story_y_up.csv" whole/i.csv
    (cd whole && check m.qhm i.csv >out 2>err) || fail "the undisturbed run ended early"
    cd job || exit 1
    cp ../whole/m.qhm ../whole/i.csv .
}

expect_whole_reports() {
    expect_same ../whole/m.aijR2Log.txt m.aijR2Log.txt
    expect_same ../whole/m.aijR2Result.csv m.aijR2Result.csv
}

# Names, kinds, targets and contents of all that lies in the folder.
snapshot() {
    find . ! -name out ! -name err -printf '%P %y %l %n\n' | sort
    find . -type f ! -name out ! -name err -exec md5sum {} + | sort
}

# A check of m.qhm with i.csv that must leave everything as it was.
expect_refused() {
    snapshot >../before
    check m.qhm i.csv >out 2>err
    expect_code 2 $?
    expect_empty out
    expect_one_line err
    for text in "$@"; do expect_line "$text" err; done
    snapshot >../after
    rm -f out err
    expect_same ../before ../after
}

# --- Files that are one ----------------------------------------------------------------------

ReportsThatAreLinksToTheModelAreRefused() {
    new_building
    local report
    for report in m.aijR2Log.txt m.aijR2Result.csv; do
        for target in m.qhm ./m.qhm ../job/m.qhm "$PWD/m.qhm"; do
            ln -s "$target" "$report"
            expect_refused "$report" m.qhm 'the model would be overwritten'
            rm "$report"
        done
        ln m.qhm "$report"
        expect_refused "$report" m.qhm 'the model would be overwritten'
        rm "$report"
    done
}

ReportsThatAreLinksToTheInputAreRefused() {
    new_building
    local report
    for report in m.aijR2Log.txt m.aijR2Result.csv; do
        ln -s i.csv "$report"
        expect_refused "$report" i.csv 'the input file would be overwritten'
        ln -sf link "$report" && ln -s i.csv link
        expect_refused "$report" i.csv 'the input file would be overwritten'
        rm "$report" link
        ln i.csv "$report"
        expect_refused "$report" i.csv 'the input file would be overwritten'
        rm "$report"
    done
}

AnInputThatIsALinkToAReportIsRefused() {
    new_building
    check m.qhm i.csv >/dev/null
    ln -sf m.aijR2Log.txt i.csv
    expect_refused m.aijR2Log.txt i.csv
}

LogAndResultsThatAreOneFileAreRefused() {
    new_building
    touch both
    ln both m.aijR2Log.txt && ln both m.aijR2Result.csv
    expect_refused m.aijR2Log.txt m.aijR2Result.csv 'one would overwrite the other'
    ln -sf both m.aijR2Log.txt && ln -sf both m.aijR2Result.csv
    expect_refused m.aijR2Log.txt m.aijR2Result.csv
    ln -sf m.aijR2Result.csv m.aijR2Log.txt
    expect_refused m.aijR2Log.txt m.aijR2Result.csv
}

# Links to a file that does not exist yet, by different ways.
LogAndResultsThatWouldBecomeOneFileAreRefused() {
    new_building
    mkdir folder && ln -s folder other
    ln -s folder/both m.aijR2Log.txt && ln -s "$PWD/other/../folder/both" m.aijR2Result.csv
    expect_refused m.aijR2Log.txt m.aijR2Result.csv 'one would overwrite the other'
    ln -sf m.aijR2Result.csv m.aijR2Log.txt && rm m.aijR2Result.csv
    expect_refused m.aijR2Log.txt m.aijR2Result.csv
}

# The shell has opened the file before the run begins.
AStandardStreamThatIsAFileOfTheRunIsRefused() {
    new_building
    local file
    for file in i.csv m.qhm m.aijR2Log.txt m.aijR2Result.csv; do
        cp m.qhm model && cp i.csv input
        echo kept >>m.aijR2Log.txt
        check m.qhm i.csv >>"$file" 2>err
        expect_code 2 $?
        expect_one_line err
        expect_line "$file" err
        expect_line 'standard output' err
        expect_same model m.qhm
        expect_same input i.csv
    done
    check m.qhm i.csv >out 2>>m.aijR2Result.csv
    expect_code 2 $?
    rm m.aijR2Result.csv m.aijR2Log.txt
    check m.qhm i.csv >both 2>&1
    expect_code 0 $?
    expect_whole_reports
}

LinksToDifferentFilesAreFollowed() {
    new_building
    mkdir reports
    ln -s reports/log m.aijR2Log.txt && ln -s reports/results m.aijR2Result.csv
    check m.qhm i.csv >out 2>err
    expect_code 0 $?
    expect_empty err
    expect_whole_reports
    expect_same ../whole/m.aijR2Log.txt reports/log
}

# --- What is not a regular file --------------------------------------------------------------

PipesAsInputOrModelAreRefusedAtOnce() {
    new_building
    mkfifo pipe
    check m.qhm pipe >out 2>err
    expect_code 1 $?
    expect_one_line err
    expect_line 'the input file pipe is not a regular file' err
    expect_same <(head -n 3 out) <(printf '%s\n' 'Failed to initialize AijCodeRoute2...' \
        'Finishes process...' 'Closing error log file...')
    check pipe i.csv >out 2>err
    expect_code 2 $?
    expect_one_line err
    expect_line 'pipe: is not a regular file' err
}

APipedInputIsRefusedAndNotEaten() {
    new_building
    { check m.qhm /dev/stdin >out 2>err; echo $? >code; cat >rest; } < <(cat i.csv)
    expect_code 1 "$(cat code)"
    expect_line '/dev/stdin is not a regular file' err
    expect_same i.csv rest
    check m.qhm <(cat i.csv) >out 2>err
    expect_code 1 $?
}

DevicesAndFoldersAsInputAreRefused() {
    new_building
    local input
    for input in /dev/null /dev/zero .; do
        check m.qhm "$input" >out 2>err
        expect_code 1 $?
        expect_one_line err
        expect_line "the input file $input is not a regular file" err
    done
}

ALogThatIsNotARegularFileEndsTheRunAtOnce() {
    new_building
    mkfifo m.aijR2Log.txt
    check m.qhm i.csv >out 2>err
    expect_code 1 $?
    expect_one_line err
    expect_line 'm.aijR2Log.txt cannot be opened: what stands there is not a regular file' err
    ln -sf /dev/full m.aijR2Log.txt
    check m.qhm i.csv >out 2>err
    expect_code 1 $?
    [ ! -e m.aijR2Result.csv ] || fail "results without a log"
}

ResultsThatAreNotARegularFileAreCautionedAbout() {
    new_building
    mkfifo m.aijR2Result.csv
    check m.qhm i.csv >out 2>err
    expect_code 0 $?
    expect_one_line err
    expect_line 'm.aijR2Result.csv cannot be opened for writing: this run has no results' err
    expect_line 'Cannot open result file m.aijR2Result.csv.' m.aijR2Log.txt
}

# As a user who may write into the folder, but not over the results.
ResultsOfAnEarlierRunAreCautionedAbout() {
    new_building
    echo 'results of last week' >m.aijR2Result.csv
    chmod 444 m.aijR2Result.csv
    local as_user=()
    if [ "$(id -u)" = 0 ]; then
        as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
        cp "$cli" ../quarnel-cli && cli=../quarnel-cli
        chmod 755 .. && chmod 777 .
    fi
    timeout 60 "${as_user[@]}" "$cli" check m.qhm i.csv >out 2>err
    expect_code 0 $?
    expect_one_line err
    expect_line 'm.aijR2Result.csv cannot be opened for writing: what stands there is from an earlier run' err
    expect_same <(head -n 17 ../whole/out) <(head -n 17 out)
    expect_same m.aijR2Result.csv <(echo 'results of last week')
}

# --- Second runs -----------------------------------------------------------------------------

ALogThatAnotherRunWritesIsRefusedAndKept() {
    new_building
    echo 'half a log' >m.aijR2Log.txt
    exec 5<m.aijR2Log.txt
    flock 5
    check m.qhm i.csv >out 2>err
    expect_code 1 $?
    expect_same out <(printf '%s\n' 'Failed to initialize AijCodeRoute2...' \
        'Finishes process...' 'Closing error log file...')
    expect_one_line err
    expect_line 'another run is writing it' err
    expect_same m.aijR2Log.txt <(echo 'half a log')
    exec 5<&-
    check m.qhm i.csv >out || fail "the log is still held"
    expect_whole_reports
}

ResultsThatAnotherRunWritesAreKept() {
    new_building
    echo 'half of the results' >m.aijR2Result.csv
    exec 5<m.aijR2Result.csv
    flock 5
    check m.qhm i.csv >out 2>err
    expect_code 0 $?
    expect_one_line err
    expect_line 'what stands there is from an earlier run' err
    expect_line 'Cannot open result file m.aijR2Result.csv.' m.aijR2Log.txt
    expect_same m.aijR2Result.csv <(echo 'half of the results')
}

# Two runs on one model with different inputs, the second started a little later each time: one of
# them is whole, and the other is, too, or is refused. What lies there then is of one run.
AHundredPairsOfRunsAreWholeOrRefused() {
    new_building
    sed 's/^FloorLevel,.*/FloorLevel,0,4000,/; s/^2,.*//; s/^\(1,\)0.005/\10.003/' i.csv >j.csv
    check m.qhm i.csv >i.out && cp m.aijR2Log.txt i.log && cp m.aijR2Result.csv i.results
    check m.qhm j.csv >j.out && cp m.aijR2Log.txt j.log && cp m.aijR2Result.csv j.results
    ! cmp -s i.log j.log && ! cmp -s i.results j.results || fail "the two runs are one"
    local pair first second code run
    for pair in $(seq 100); do
        check m.qhm i.csv >first.out 2>first.err &
        first=$!
        sleep "0.00$((pair % 10))$((pair / 10 % 10))"
        check m.qhm j.csv >second.out 2>second.err
        second=$?
        wait "$first"
        code=$?
        for run in "first $code i" "second $second j"; do
            expect_run $run
        done
        [ "$code$second" != 11 ] || fail "both were refused"
        if cmp -s m.aijR2Log.txt i.log; then
            expect_same m.aijR2Result.csv i.results
        else
            expect_same m.aijR2Log.txt j.log
            expect_same m.aijR2Result.csv j.results
        fi
    done
}

# $1: the run's files, $2: its exit code, $3: its input.
expect_run() {
    case $2 in
        0)
            expect_same <(head -n 17 "$1.out") <(head -n 17 "$3.out")
            expect_empty "$1.err"
            ;;
        1)
            expect_line 'another run is writing it' "$1.err"
            expect_one_line "$1.err"
            expect_same <(head -n 1 "$1.out") <(echo 'Failed to initialize AijCodeRoute2...')
            ;;
        *) fail "exit code $2: $(cat "$1.err")" ;;
    esac
}

# --- Standard streams ------------------------------------------------------------------------

AReaderThatStopsEarlyDoesNotEndTheRun() {
    new_building
    local reader
    for reader in 'head -n 1' 'grep -q Preparing' true; do
        rm -f m.aijR2*
        check m.qhm i.csv 2>err | $reader >/dev/null
        expect_code 0 "${PIPESTATUS[0]}"
        expect_empty err
        expect_whole_reports
    done
}

AStandardOutputThatIsFullIsAnErrorOfARunThatIsWhole() {
    new_building
    check m.qhm i.csv >/dev/full 2>err
    expect_code 1 $?
    expect_one_line err
    expect_line 'quarnel-cli: standard output cannot be written' err
    expect_whole_reports
    local option
    for option in --help --version; do
        "$cli" "$option" >/dev/full 2>err
        expect_code 1 $?
        expect_one_line err
    done
}

ClosedStandardStreamsAreNotMistakenForTheLog() {
    new_building
    check m.qhm i.csv >&-
    expect_code 0 $?
    expect_whole_reports
    rm m.aijR2*
    check m.qhm i.csv <&- >&- 2>&-
    expect_code 0 $?
    expect_whole_reports
    rm m.aijR2*
    check m.qhm i.csv <&- 2>&- >out
    expect_code 0 $?
    expect_whole_reports
    expect_same ../whole/out out
}

# The signal that ends programs at the limit, at its default.
ALimitOnTheSizeOfFilesIsACautionOfACompleteRun() {
    new_building
    (ulimit -f 4 && check m.qhm i.csv 2>&1 >/dev/null) | cat >err
    expect_code 0 "${PIPESTATUS[0]}"
    expect_one_line err
    expect_line 'm.aijR2Result.csv is incomplete' err
    expect_same ../whole/m.aijR2Log.txt m.aijR2Log.txt
}

ResultsLostOnAFullDiskAreAnError() {
    new_building
    (ulimit -f 4 && check m.qhm i.csv 2>/dev/null) | cat >out
    expect_line 'm.aijR2Result.csv (incomplete)' out
    expect_line '  error R26: ' out
    ! grep -q '^Verdict: OK' out || fail "OK with incomplete results"
}

# --- Names -----------------------------------------------------------------------------------

FileNamesArriveAsTheShellPassedThem() {
    new_building
    local name
    for name in '[m].qhm' '[m]' '[a,b]' '{}' '{m}' '%%' '++' '@m' 'a=b' 'a,b' 'a b' "it's" '"quoted"' \
        check record help '*' '?' '~' '$HOME' 'back\slash' '#' ';' '-' '=x' 'true' '校舎'; do
        cp ../whole/m.qhm "$name" && cp ../whole/i.csv "input of $name"
        check "$name" "input of $name" >out 2>err
        expect_code 0 $?
        expect_empty err
        mv "input of $name" input && mv "$name" model.qhm && mv input "$name"
        check model.qhm "$name" >out 2>err
        expect_code 0 $?
        expect_line '  File : model.qhm' model.aijR2Log.txt
        rm -f -- "$name" *aijR2*
    done
    cp ../whole/m.qhm '[m].qhm'
    check '[m].qhm' i.csv >out || fail "the run ended early"
    expect_line '  File : [m].qhm' '[m].aijR2Log.txt'
}

FileNamesThatBeginWithAHyphenGoBehindTwoHyphens() {
    new_building
    local name
    for name in -m.qhm --help.qhm --version --; do
        cp ../whole/m.qhm ./"$name"
        check -- "$name" i.csv >out 2>err
        expect_code 0 $?
        expect_empty err
    done
    check i.csv -- m.qhm >out 2>err
    expect_code 2 $?
}

ALineFeedInANameForgesNothing() {
    new_building
    local evil=$'a\nquarnel-cli: caution: forged\n\033[2Jx.qhm'
    check "$evil" i.csv >out 2>err
    expect_code 2 $?
    expect_one_line err
    expect_line 'a\nquarnel-cli: caution: forged\n\x1b[2Jx.qhm: cannot be opened' err
    check m.qhm "$evil" >out 2>err
    expect_code 1 $?
    expect_one_line err
    cp m.qhm "$evil"
    check "$evil" i.csv >out 2>err
    expect_code 0 $?
    expect_empty err
    expect_line 'Log:     a\nquarnel-cli: caution: forged\n\x1b[2Jx.aijR2Log.txt' out
    ! grep -q '^quarnel-cli' out || fail "a forged line: $(cat out)"
}

# --- Running one case ------------------------------------------------------------------------

if [ "$3" = --list ]; then
    sed -n 's/^\([A-Z][A-Za-z]*\)() {$/\1/p' "$0"
    exit 0
fi
cli=$(realpath "$cli")
examples=$(realpath "$examples")
folder=$(mktemp -d)
cd "$folder" || exit 1
trap 'cd / && rm -rf "$folder"' EXIT
"$3"
