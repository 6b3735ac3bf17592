#!/usr/bin/env bash
# SampleHost.exe and quarnel-cli.exe as two processes under Wine.
# Usage: across_processes.sh BIN EXAMPLES CASE      one case (a function below)
#        across_processes.sh BIN EXAMPLES --list    their names
# The caller provides WINEPREFIX and DISPLAY; without a display no call crosses processes.
set -uo pipefail

bin=$1
examples=$2
prog_id_key='Software\Classes\OrvekPro.OpenORVEK'
export WINEDEBUG=${WINEDEBUG:--all}

fail() {
    echo "FAILED: $*" >&2
    [ ! -s host.log ] || sed 's/^/  SampleHost: /' host.log >&2
    exit 1
}

# Runs a Windows program; its output without carriage returns, its exit code as ours.
windows() {
    wine "$@" </dev/null | tr -d '\r'
    return "${PIPESTATUS[0]}"
}

cli() { windows "$bin/quarnel-cli.exe" "$@"; }

# Starts SampleHost and waits until clients can find it.
start_host() {
    wine "$bin/SampleHost.exe" "$@" </dev/null >host.log 2>&1 &
    wait_for 'Ready: process' host.log
    host_process=$(tr -d '\r' <host.log | sed -n 's/^Ready: process \([0-9]*\)\.$/\1/p')
}

stop_host() {
    windows "$bin/SampleHost.exe" --stop >/dev/null || fail "SampleHost does not stop"
    host_process=
    wait
}

kill_host() {
    windows taskkill /f /pid "$host_process" >/dev/null || fail "SampleHost cannot be killed"
    host_process=
    wait
}

# Waits for a text in a file; a minute is far more than it ever takes.
wait_for() {
    for _ in $(seq 600); do
        ! grep -q -- "$1" "$2" 2>/dev/null || return 0
        sleep 0.1
    done
    fail "no line with '$1' in $2"
}

is_registered() { windows reg query "HKLM\\$prog_id_key" >/dev/null 2>&1 ||
    windows reg query "HKCU\\$prog_id_key" >/dev/null 2>&1; }

# enter KEY TEXT: the text becomes the key's value. About once in some thousand starts Wine ends a
# process before its program begins; whether the entry is there is asked, too.
enter() {
    for _ in 1 2 3; do
        windows reg add "$1" /ve /f /d "$2" >/dev/null
        ! windows reg query "$1" /ve >/dev/null 2>&1 || return 0
    done
    fail "$1 cannot be entered"
}

# What a case leaves behind would be found by the next one.
clean_up() {
    [ -z "${host_process:-}" ] || windows taskkill /f /pid "$host_process" >/dev/null 2>&1
    windows reg delete "HKLM\\$prog_id_key" /f >/dev/null 2>&1
    windows reg delete "HKCU\\$prog_id_key" /f >/dev/null 2>&1
    cd / && rm -rf "$folder"
}

expect_line() { grep -qF -- "$1" "$2" || fail "no line '$1' in $2: $(cat "$2")"; }
expect_same() { cmp "$1" "$2" || fail "$1 and $2 differ"; }
expect_no_file() { [ ! -e "$1" ] || fail "$1 exists"; }
expect_code() { [ "$1" = "$2" ] || fail "exit code $2 instead of $1"; }

# --- Cases -----------------------------------------------------------------------------------

# Only of a model file can be said what it does not list; a host's 0 is an answer.
without_unlisted_answers() {
    local remark='  warning R25: [0-9]+ answers that the model file does not list[^\n]*\n'
    sed -Ez "s/\nRemarks:\n$remark\n/\n/; s/\n$remark/\n/"
}

# The model path that the sample host gives out is the one that the recorded run is started with,
# so the log is the same to its last byte.
LiveRunOfEachExampleGivesTheReportsOfTheRecordedRun() {
    local model stem input
    for model in "$examples"/*.qhm; do
        stem=$(basename "$model" .qhm)
        cp "$model" .
        start_host "$stem.qhm"
        for input in "$examples/$stem"*.csv; do
            case $input in *aijR2Result.csv) continue ;; esac
            cp "$input" input.csv
            cli check "$(winepath -w "$PWD/$stem.qhm")" input.csv >recorded.out ||
                fail "the recorded run of $input ended early"
            mv "$stem.aijR2Log.txt" recorded.log
            mv "$stem.aijR2Result.csv" recorded.csv
            cli check input.csv >live.out || fail "the live run of $input ended early"
            expect_same recorded.log "$stem.aijR2Log.txt"
            expect_same recorded.csv "$stem.aijR2Result.csv"
            without_unlisted_answers <recorded.out >recorded.told
            expect_same recorded.told live.out
        done
        stop_host
    done
}

RecordingGivesTheReportsOfTheLiveRun() {
    local model stem
    for model in "$examples"/*.qhm; do
        stem=$(basename "$model" .qhm)
        cp "$model" "$examples/$stem.csv" .
        start_host "$stem.qhm"
        cli record "$stem.csv" recording.qhm >out || fail "nothing was recorded: $(cat out)"
        stop_host
        expect_line "Recorded: recording.qhm (" out
        expect_no_file recording.qhm.part
        cli check recording.qhm "$stem.csv" >out || fail "the recorded run ended early"
        expect_same "$stem.aijR2Result.csv" recording.aijR2Result.csv
        # The logs differ in the line that names the model file.
        diff "$stem.aijR2Log.txt" recording.aijR2Log.txt >differences
        expect_code 4 "$(wc -l <differences)"
        expect_line '<   File : ' differences
    done
}

# The two runs differ in their earthquake cases, of which the recording has one only.
RecordingIsForItsInputFileOnlyWhereverItIsChecked() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    sed 's/^EarthquakeLoadCaseNumber,2,3,/EarthquakeLoadCaseNumber,3,2,/' two_story_y_up.csv >turned.csv
    sed 's/^EarthquakeLoadCaseNumber,2,3,/EarthquakeLoadCaseNumber,2,101,/' two_story_y_up.csv >other.csv
    start_host two_story_y_up.qhm
    cli record two_story_y_up.csv recording.qhm >out || fail "nothing was recorded: $(cat out)"
    stop_host
    expect_line '"recordedFor": {"input":"two_story_y_up.csv","sha256":"' recording.qhm
    expect_line "$(sha256sum two_story_y_up.csv | cut -d' ' -f1)" recording.qhm
    cli check recording.qhm other.csv >out 2>err
    expect_code 1 $?
    expect_line 'because it was made for the input file two_story_y_up.csv; record again' err
    start_host recording.qhm
    cli check turned.csv >out || fail "what both runs ask for was not answered"
    cli check other.csv >out 2>err
    expect_code 1 $?
    stop_host
    expect_line 'because it was made for the input file two_story_y_up.csv; record again' err
    expect_line 'record --all' err
}

RecordingOfEverythingIsForEveryInputFile() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    sed 's/^EarthquakeLoadCaseNumber,2,3,/EarthquakeLoadCaseNumber,2,101,/' two_story_y_up.csv >other.csv
    cli check two_story_y_up.qhm other.csv >out || fail "the run ended early"
    mv two_story_y_up.aijR2Result.csv direct.csv
    start_host two_story_y_up.qhm
    cli record --all two_story_y_up.csv everything.qhm >out 2>err ||
        fail "nothing was recorded: $(cat err)"
    stop_host
    expect_same err /dev/null # progress is for terminals
    expect_line '"recordedFor": {"all":true}' everything.qhm
    cli check everything.qhm other.csv >out || fail "the recorded run ended early"
    expect_same direct.csv everything.aijR2Result.csv
}

EachQuestionReachesTheHostOnce() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm --count-calls counts.txt
    cli check two_story_y_up.csv >out || fail "the run ended early"
    stop_host
    # 18 nodes, 26 members; the ten sub-objects are bound once.
    expect_line 'GetNodeCoordinates 18' counts.txt
    expect_line 'GetMemberIncidence 26' counts.txt
    expect_line 'GetMemberRotationAngle 26' counts.txt
    expect_line 'GetModelFilePath 1' counts.txt
    expect_line 'PostConnectCall 1' counts.txt
    expect_line 'geometry object 1' counts.txt
    expect_line 'unused sub-object 10 1' counts.txt
    expect_line 'Refused 0' counts.txt
}

# Calls that are rejected do not reach the host's objects: they are counted when they are taken.
BusyHostIsWaitedForAndAskedTheSame() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm --count-calls undisturbed.txt
    cli check two_story_y_up.csv >undisturbed.out 2>err || fail "the run ended early"
    stop_host
    cp two_story_y_up.aijR2Result.csv undisturbed.csv
    start_host two_story_y_up.qhm --count-calls busy.txt --busy 2
    cli check two_story_y_up.csv >busy.out 2>err || fail "the run ended early"
    stop_host
    expect_same undisturbed.txt busy.txt
    expect_same undisturbed.out busy.out
    expect_same undisturbed.csv two_story_y_up.aijR2Result.csv
}

NoProgressIsShownWhereStandardErrorIsNoTerminal() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm --delay 5
    cli check --no-lint two_story_y_up.csv >out 2>err || fail "the run ended early"
    stop_host
    [ ! -s err ] || fail "standard error has $(cat err)"
}

UnknownProgIdMeansNoConnection() {
    cp "$examples/two_story_y_up.csv" .
    cli check two_story_y_up.csv >out 2>err
    expect_code 1 $?
    expect_same out <(echo "Unable to establish connection with ORVEK.Pro!")
    expect_line 'no running host was found' err
    expect_no_file aijR2Log.txt
}

KilledHostMeansNoConnection() {
    cp "$examples/two_story_y_up".* .
    rm -f ./*.aijR2*
    start_host two_story_y_up.qhm
    kill_host
    is_registered || fail "a killed host cannot remove its registration"
    cli check two_story_y_up.csv >out 2>err
    expect_code 1 $?
    expect_same out <(echo "Unable to establish connection with ORVEK.Pro!")
    expect_no_file two_story_y_up.aijR2Log.txt
    cli record two_story_y_up.csv out.qhm >out 2>err
    expect_code 1 $?
    expect_no_file out.qhm
}

# Every call takes 0.3 s, so the run has a minute left when the host is killed.
HostKilledInTheMiddleEndsTheRunAndNothingIsRecorded() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm --delay 300
    wine "$bin/quarnel-cli.exe" record two_story_y_up.csv out.qhm </dev/null >out 2>err &
    local client=$!
    wait_for 'Setting node information' out
    windows taskkill /f /pid "$host_process" >/dev/null
    host_process=
    wait "$client"
    expect_code 1 $?
    tr -d '\r' <out >lines
    expect_same <(sed -n 3,6p lines) <(printf '%s\n' 'Setting node information...' \
        'Exception was thrown...' 'Finishes process...' 'Closing error log file...')
    # The call that is under way, or the next one.
    grep -q '^quarnel-cli: the run ended early: Get[A-Za-z]*(.*): status 80' err ||
        fail "no host call in: $(cat err)"
    expect_line 'out.qhm: not written: a host call failed' err
    expect_no_file out.qhm
    expect_no_file out.qhm.part
    expect_line 'ORVEK results are available.' two_story_y_up.aijR2Log.txt
}

RegistrationLeftByAKilledHostIsTakenOver() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm
    kill_host
    start_host two_story_y_up.qhm
    cli check two_story_y_up.csv >out || fail "the run ended early"
    stop_host
    ! is_registered || fail "the registration is still there"
}

ProgIdOfAnotherProgramIsLeftAlone() {
    cp "$examples/two_story_y_up.qhm" .
    local hive
    for hive in HKLM HKCU; do
        enter "$hive\\$prog_id_key\\CLSID" '{11111111-2222-3333-4444-555555555555}'
        windows reg query "$hive\\$prog_id_key" /s >before
        windows "$bin/SampleHost.exe" two_story_y_up.qhm >out 2>err
        expect_code 1 $?
        expect_line 'is registered to another program' err
        windows reg query "$hive\\$prog_id_key" /s >after
        expect_same before after
        windows reg delete "$hive\\$prog_id_key" /f >/dev/null
    done
}

# An entry that is not complete is not ours either.
ProgIdWithoutAClassIsLeftAlone() {
    cp "$examples/two_story_y_up.qhm" .
    enter "HKLM\\$prog_id_key" 'Some program'
    windows "$bin/SampleHost.exe" two_story_y_up.qhm >out 2>err
    expect_code 1 $?
    expect_line 'is registered to another program' err
    is_registered || fail "the entry was removed"
}

EnterKeyStopsTheHostAndRemovesItsRegistration() {
    cp "$examples/two_story_y_up.qhm" .
    mkfifo keys
    wine "$bin/SampleHost.exe" two_story_y_up.qhm <keys >host.log 2>&1 &
    local host=$!
    exec 3>keys
    wait_for 'Ready: process' host.log
    is_registered || fail "the host is not registered while it runs"
    echo >&3
    wait "$host"
    expect_code 0 $?
    ! is_registered || fail "the registration is still there"
    exec 3>&-
}

CloseMessageStopsTheHostAndRemovesItsRegistration() {
    cp "$examples/two_story_y_up.qhm" .
    start_host two_story_y_up.qhm
    windows taskkill /pid "$host_process" >/dev/null
    host_process=
    wait
    expect_line 'Stopped after 0 calls' host.log
    ! is_registered || fail "the registration is still there"
}

# Wine hands an interrupt signal to the program as Ctrl+C.
CtrlCStopsTheHostAndRemovesItsRegistration() {
    cp "$examples/two_story_y_up.qhm" .
    start_host two_story_y_up.qhm
    kill -INT "$!"
    wait "$!"
    expect_code 0 $?
    host_process=
    expect_line 'Stopped after 0 calls' host.log
    ! is_registered || fail "the registration is still there"
}

SecondHostIsRefusedAndTheFirstServesOn() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm
    windows "$bin/SampleHost.exe" two_story_y_up.qhm >out 2>err
    expect_code 1 $?
    expect_line 'another SampleHost is running' err
    cli check two_story_y_up.csv >out || fail "the run ended early"
    stop_host
}

# The second one is started while the first one still reads its model, whichever comes first: one
# of them serves, and the other one touches nothing.
TwoHostsStartedAtOnceAreOneHost() {
    cp "$examples/two_story_y_up.csv" .
    python3 - "$examples/two_story_y_up.qhm" >large.qhm <<'LARGE'
import json, sys
model = json.load(open(sys.argv[1]))
nodes = [{"number": 100000 + i, "xyz": [0, 0, 0]} for i in range(100000)]
model["nodes"] += nodes
json.dump(model, sys.stdout)
LARGE
    for _ in 1 2 3; do
        wine "$bin/SampleHost.exe" large.qhm </dev/null >first.log 2>&1 &
        local first=$!
        wine "$bin/SampleHost.exe" large.qhm </dev/null >second.log 2>&1 &
        local second=$!
        wait -n "$first" "$second"
        expect_code 1 $?
        cat first.log second.log >both.log
        expect_line 'another SampleHost is running' both.log
        cat first.log second.log >host.log
        until grep -q 'Ready: process' first.log second.log; do sleep 0.1; done
        is_registered || fail "the second host removed the registration"
        windows "$bin/SampleHost.exe" --stop >/dev/null || fail "the host does not stop"
        wait
        ! is_registered || fail "the registration is still there"
    done
}

NothingToStopIsAnError() {
    windows "$bin/SampleHost.exe" --stop >out 2>err
    expect_code 1 $?
    expect_line 'no SampleHost is running' err
}

UnreadableModelIsNotServed() {
    echo '{"format": "something else"}' >wrong.qhm
    windows "$bin/SampleHost.exe" wrong.qhm >out 2>err
    expect_code 2 $?
    expect_line 'wrong.qhm: ' err
    ! is_registered || fail "registered all the same"
}

PathsInAnyScriptWork() {
    mkdir '建物'
    cp "$examples/two_story_y_up.qhm" '建物/校舎.qhm'
    cp "$examples/two_story_y_up.csv" '建物/入力.csv'
    start_host '建物/校舎.qhm'
    cli check '建物/入力.csv' >out || fail "the run ended early"
    cli record '建物/入力.csv' '建物/記録.qhm' >out || fail "the recorded run ended early"
    stop_host
    expect_line '校舎.qhm' '建物/校舎.aijR2Log.txt'
    [ -s '建物/校舎.aijR2Result.csv' ] || fail "no results beside the model"
    expect_line '校舎.qhm"' '建物/記録.qhm'
    cli check '建物/記録.qhm' '建物/入力.csv' >out || fail "the recording cannot be checked"
    expect_same '建物/校舎.aijR2Result.csv' '建物/記録.aijR2Result.csv'
}

HostWithoutAModelPathGivesReportsInTheCurrentFolder() {
    sed 's/"version" *: *1 *,/"version": 1, "modelPath": null,/' \
        "$examples/two_story_y_up.qhm" >no_path.qhm
    cp "$examples/two_story_y_up.csv" .
    start_host no_path.qhm
    expect_line 'model path: none' host.log
    cli check two_story_y_up.csv >out || fail "the run ended early"
    stop_host
    [ -s aijR2Log.txt ] && [ -s aijR2Result.csv ] || fail "no reports in the current folder"
    expect_no_file no_path.aijR2Log.txt
}

HostWithoutResultsIsToldToAnalyseAndNothingIsRecorded() {
    sed 's/"resultsAvailable" *: *true/"resultsAvailable": false/' \
        "$examples/two_story_y_up.qhm" >not_analysed.qhm
    cp "$examples/two_story_y_up.csv" .
    start_host not_analysed.qhm
    cli record two_story_y_up.csv out.qhm >out 2>err
    expect_code 1 $?
    stop_host
    expect_same <(head -n 4 out) <(printf '%s\n' 'ORVEK analysis results are not available.' \
        'Please run analysis first.' 'Finishes process...' 'Closing error log file...')
    expect_line 'out.qhm: not written' err
    expect_no_file out.qhm
}

RecordingIntoAMissingFolderIsRefusedBeforeTheRun() {
    cp "$examples/two_story_y_up.csv" .
    cli record two_story_y_up.csv nowhere/out.qhm >out 2>err
    expect_code 2 $?
    expect_same out /dev/null
    expect_line 'the folder of the recording does not exist' err
}

# What lies in the folder, less what the cases themselves write.
snapshot() {
    find . ! -name out ! -name err ! -name host.log ! -name before ! -name after -type f \
        -exec md5sum {} + | sort
}

# Wine itself has a word now and then about a thread that has not ended when its program ends.
expect_one_line() {
    [ "$(grep -vc '^wine client error:' "$1")" = 1 ] || fail "not one line: $(cat "$1")"
}

# A command that must leave everything as it was.
expect_refused() {
    snapshot >before
    cli "$@" >out 2>err
    expect_code 2 $?
    expect_one_line err
    snapshot >after
    expect_same before after
}

LiveInputsThatTheRunWouldOverwriteAreRefusedAndKept() {
    cp "$examples/two_story_y_up.qhm" .
    cp "$examples/two_story_y_up.csv" two_story_y_up.aijR2Result.csv
    start_host two_story_y_up.qhm
    expect_refused check two_story_y_up.aijR2Result.csv
    expect_line 'the input file would be overwritten; nothing was written' err
    expect_same <(head -n 3 out) <(printf '%s\n' 'Failed to initialize AijCodeRoute2...' \
        'Finishes process...' 'Closing error log file...')
    expect_refused check TWO_STORY_Y_UP.AIJR2RESULT.CSV
    stop_host
}

LiveReportsThatAreLinksToTheModelAreRefused() {
    cp "$examples/two_story_y_up".* .
    rm -f ./*.aijR2*
    start_host two_story_y_up.qhm
    ln -s two_story_y_up.qhm two_story_y_up.aijR2Log.txt
    expect_refused check two_story_y_up.csv
    expect_line 'the model would be overwritten' err
    ln -f two_story_y_up.qhm two_story_y_up.aijR2Result.csv && rm two_story_y_up.aijR2Log.txt
    expect_refused check two_story_y_up.csv
    expect_line 'the model would be overwritten' err
    stop_host
}

RecordingsThatWouldOverwriteAFileOfTheRunAreRefused() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm
    expect_refused record two_story_y_up.csv two_story_y_up.qhm
    expect_refused record two_story_y_up.csv TWO_STORY_Y_UP.qhm
    expect_refused record two_story_y_up.csv two_story_y_up.csv
    expect_refused record two_story_y_up.csv two_story_y_up.aijR2Log.txt
    expect_line 'one would overwrite the other' err
    expect_refused record two_story_y_up.csv two_story_y_up.aijR2Result.csv
    stop_host
}

# The file says that its model has another path, so that only the sample host knows what it serves.
RecordingOverAServedFileOfAnotherModelIsRefused() {
    sed 's/"version" *: *1 *,/"version": 1, "modelPath": "tower.ext",/' \
        "$examples/two_story_y_up.qhm" >served.qhm
    cp "$examples/two_story_y_up.csv" .
    start_host served.qhm
    expect_refused record two_story_y_up.csv served.qhm
    expect_line 'served.qhm: the recording cannot be written' err
    stop_host
}

RecordingLeavesAForeignFileWithAnEndingOfItsOwn() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    echo 'of somebody else' >out.qhm.part
    start_host two_story_y_up.qhm
    cli record two_story_y_up.csv out.qhm >out || fail "nothing was recorded: $(cat out)"
    stop_host
    expect_same out.qhm.part <(echo 'of somebody else')
    ! ls quarnel-*.part 2>/dev/null || fail "a passing file is left"
}

CallCountsThatWouldOverwriteTheModelAreRefused() {
    cp "$examples/two_story_y_up.qhm" .
    snapshot >before
    for counts in two_story_y_up.qhm ./TWO_STORY_Y_UP.qhm; do
        windows "$bin/SampleHost.exe" two_story_y_up.qhm --count-calls "$counts" >out 2>err
        expect_code 2 $?
        expect_line 'the model would be overwritten' err
    done
    snapshot >after
    expect_same before after
    ! is_registered || fail "registered all the same"
}

# Every call takes 0.3 s, so the first run has a minute left when the second one starts.
SecondLiveRunIsRefusedWhileTheFirstWrites() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    start_host two_story_y_up.qhm --delay 300
    wine "$bin/quarnel-cli.exe" check two_story_y_up.csv </dev/null >first.out 2>first.err &
    local first=$!
    wait_for 'Setting node information' first.out
    cli check two_story_y_up.qhm two_story_y_up.csv >out 2>err
    expect_code 1 $?
    expect_same <(head -n 1 out) <(echo 'Failed to initialize AijCodeRoute2...')
    expect_line 'another run is writing it' err
    windows taskkill /f /pid "$host_process" >/dev/null
    host_process=
    wait "$first"
    cli check two_story_y_up.qhm two_story_y_up.csv >out || fail "the log is still held"
}

FullStandardOutputIsAnError() {
    cp "$examples/two_story_y_up.qhm" "$examples/two_story_y_up.csv" .
    wine "$bin/quarnel-cli.exe" check two_story_y_up.qhm two_story_y_up.csv </dev/null >/dev/full 2>err
    expect_code 1 $?
    expect_line 'standard output cannot be written' err
    wine "$bin/quarnel-cli.exe" --version </dev/null >/dev/full 2>err
    expect_code 1 $?
}

# --- Running one case ------------------------------------------------------------------------

if [ "$3" = --list ]; then
    sed -n 's/^\([A-Z][A-Za-z]*\)() {$/\1/p' "$0"
    exit 0
fi
[ -n "${DISPLAY:-}" ] && [ -n "${WINEPREFIX:-}" ] ||
    { echo "Set WINEPREFIX and DISPLAY; ./test windows does." >&2; exit 1; }
bin=$(realpath "$bin")
examples=$(realpath "$examples")
folder=$(mktemp -d)
cd "$folder" || exit 1
trap clean_up EXIT
"$3"
