#!/bin/bash
# out_of_sight.sh BUILD_FOLDER: the real program where no screen is, as in a task at night: whatever it
# showed there would wait for ever. What it says is read in the system's own record of the entries of
# the event log. Under Wine, in a prefix of its own; needs a screen, on which nothing may appear.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
# shellcheck source=../../cmake/eventually.sh
. "$here/../../cmake/eventually.sh"
wine=$here/../../cmake/wine-run
export TARNWICK_WINE_BUILD=$build/program/out_of_sight
place=$TARNWICK_WINE_BUILD/wine/drive_c/night

say() { echo "out_of_sight: $*"; }
fail() {
    say "FAILED: $*" >&2
    exit 1
}

fresh() {
    rm -rf "$place"
    mkdir -p "$place"/{in,cns,out,temp}
    cp "$build/Tarnwick.exe" "$build"/demo/tools/{mp,cns}.exe "$build/tests/program/out_of_sight.exe" "$place"
    printf 'Identification:\r\n  Citation:\r\n    Title: Lakes\r\n' >"$place/in/a.met"
    printf '%s\r\n' 'Process MP=1' 'Process CNS=0' 'Input File Extension=*.met' 'Input Folder=C:\night\in' \
        'GRID_Text=C:\night\out' >"$place/batch.ini"
}

# unseen STATUS ARGUMENT...: the program ends by itself, with that status.
unseen() {
    local wanted=$1 status=0
    shift
    printf '%s\r\n' '@set TEMP=C:\night\temp' \
        '@C:\night\out_of_sight.exe "C:\night\Tarnwick.exe" '"$*" '@exit %errorlevel%' >"$place/run.bat"
    WINEDEBUG=-all,warn+eventlog "$wine" cmd /c 'C:\night\run.bat' >"$place/said" 2>&1 &
    program=$!
    eventually has_ended "$program" || fail "it waits: $(xdotool search --name . getwindowname %@ 2>/dev/null | sort -u | xargs)"
    wait "$program" || status=$?
    [ $status -eq "$wanted" ] || fail "it ended with $status: $(cat "$place/said")"
}
# entries TEXT...: these, in this order, are what the event log got, as the system's record writes them.
entries() {
    sed -n 's/.*warn:eventlog:ReportEventW L"\(.*\)"$/\1/p' "$place/said" >"$place/entries"
    printf '%s\n' "$@" | diff - "$place/entries" || fail "the event log has other entries: $(cat "$place/said")"
}
batch_is_over() { [ "$(ls "$place/temp")" = MPDELETE.bat ]; }

A_message_goes_to_the_event_log_and_the_program_ends() {
    unseen 1 -I nothing.ini
    entries 'The INI file \"C:\\night\\nothing.ini\" does not exist.'
}

A_window_counts_as_cancelled() {
    unseen 1 -I batch.ini -x
    entries 'The window \"Command Line Help on Tarnwick\" counts as cancelled: nobody can see it.'
    [ -z "$(ls "$place/temp")" ] || fail "written: $(ls "$place/temp")"
}

A_tool_that_is_missing_stays_missing() {
    rm "$place/mp.exe"
    printf 'MP EXECUTABLE=C:\\nowhere\\mp.exe\r\n' >>"$place/batch.ini"
    unseen 1 -I batch.ini
    entries 'The MP executable file \"C:\\nowhere\\mp.exe\" does not exist.\r\nPlease specify the MP executable location.' \
        'The window \"Options\" counts as cancelled: nobody can see it.' \
        'The MP executable file \"C:\\nowhere\\mp.exe\" does not exist.'
}

A_batch_runs_and_its_note_is_left_out() {
    unseen 0 -I batch.ini -n
    entries 'The note that -n asks for is left out: nobody can see it.'
    eventually batch_is_over || fail "the batch does not end: $(ls "$place/temp")"
    [ -e "$place/out/a.txt" ] || fail "the tool has made nothing"
}

The_main_window_is_not_even_loaded() {
    unseen 1
    entries 'Tarnwick has ended: nobody can see its window. A run without a window takes the option -I.'
    ! "$wine" reg query 'HKCU\Software\Corvane' >/dev/null 2>&1 || fail "it has stored its settings"
}

trap '"$here/../../cmake/wine-stop"' EXIT
"$here/../../cmake/wine-stop" # what an earlier run that was cut short has left
"$wine" cmd /c exit # makes the prefix when there is none yet
for test in \
    A_message_goes_to_the_event_log_and_the_program_ends \
    A_window_counts_as_cancelled \
    A_tool_that_is_missing_stays_missing \
    A_batch_runs_and_its_note_is_left_out \
    The_main_window_is_not_even_loaded; do
    fresh
    "$test"
    say "passed: $test"
done
