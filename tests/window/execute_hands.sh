# Sourced by execute.sh: hands and eyes for whole runs of the tools in the program's own window.

# shellcheck source=main_hands.sh
. "$here/main_hands.sh"

watcher=$build/tests/window/run_watcher.exe

# The temporary folder of programs started from now on; it is made, and is then $temp.
set_temp() {
    temp=$drive/work/$1
    mkdir -p "$temp"
    "$wine_run" reg add 'HKCU\Environment' /v TEMP /d "C:\\work\\$1" /f \
        >"$work/reg.log" 2>&1 </dev/null || fail "TEMP cannot be set"
}
# define [LINE...]: the definition, MP alone over C:\work\records into C:\work\out\mp, and what
# differs from that. Lines are UTF-8 here and in the system's code page there.
define() {
    lines 'MP EXECUTABLE=C:\work\mp.exe' 'CNS EXECUTABLE=C:\work\cns.exe' 'Process MP=1' \
        'Process CNS=0' 'Input Folder=C:\work\records' 'Input File Extension=*.met' \
        'CNS Output Folder=C:\work\out\cns' 'CNS Output File Extension=.cns' \
        'GRID_Error=C:\work\out\mp' "$@" | iconv -f UTF-8 -t CP1252 >"$folder/TARNWICK.ini"
}
# Starts the program on the definition, with all records selected.
launch_run() {
    launch
    look
    press cmdSelectFiles2
    look
    expect_state cmdOK on
}
fresh() {
    lay_out_work
    rm -f "$folder"/records/[bc].met "$folder/records/d.txt" # one is enough for most
    set_temp tmp
}
# A tool in the place of MP that does what is said: sleep SECONDS, fail, forever.
use_trying_tool() {
    cp "$build/tests/window/trying_tool.exe" "$folder/mp.exe"
    echo "$*" >"$folder/how"
}
tools_started() { if [ -e "$folder/started" ]; then wc -l <"$folder/started"; else echo 0; fi; }

# watch SECONDS [STATUS]: until the run is over, or the status begins so; see $work/watch.
watch() {
    "$wine_run" "$watcher" "$title" watch "$@" >"$work/watch.out" 2>&1 </dev/null ||
        fail "waiting for ${2:-the end} ended with status $?: $(cat "$work/watch.out")"
    tr -d '\r' <"$work/watch.out" | iconv -f CP1252 -t UTF-8 >"$work/watch"
    # All the while it answers within a tenth of a second. One time in twenty, and once in any case,
    # it may be late: starting a process takes its time, and the machine may be busy.
    awk '/^answers/ { seen = 1; late = $4 > 1 + $2 / 20 } END { exit !seen || late }' \
        "$work/watch" || fail "the window is slow: $(tail -n 1 "$work/watch")"
}
# The run shows these, one after the other: "button|per cent|status". What is shown for a moment
# only, between two tools and at the very end, may be seen or not.
expect_shown() {
    local expected shown
    expected=$(printf '%s\n' "$@")
    shown=$(awk -F'|' '/^answers/ || $4 == "" || $4 ~ /^Processing / { next }
        $2 == "Cancel" && $4 !~ /^(CNS|MP) - / { next }
        !seen[$4]++ { print $2 "|" $3 "|" $4 }' "$work/watch")
    [ "$shown" = "$expected" ] || fail "not these but: $(cat "$work/watch")"
}
press_button() { "$wine_run" "$watcher" "$title" press "$1" >"$work/press" 2>&1 || fail "no $1"; }
expect_status() { expect_text StatusBar1 "$1"; }
expect_no_temporary_files() {
    [ -z "$(find "$temp" -name 'MP*')" ] || fail "left in $temp: $(ls "$temp")"
}
# The buttons and the bar as before and after every run.
expect_ready() {
    look
    expect_text cmdCancel Close
    expect_state cmdOK on
    expect_state cmdCreateBatFile on
    expect_state ProgressBar1 hidden
}
# All as before and after every run, with that status.
expect_idle() {
    expect_ready
    expect_status "$1"
    expect_no_temporary_files
    expect_no_message
}
expect_no_message() {
    ! find_now Warning && ! find_now Tarnwick || fail 'there is a message'
}
expect_made() { [ -s "$1" ] || fail "$1 was not made"; }
# In CP 1252 there, in UTF-8 here.
expect_lines() { # FILE LINE...
    cmp -s "$1" <(lines "${@:2}" | iconv -f UTF-8 -t CP1252) ||
        fail "$1 holds: $(iconv -f CP1252 -t UTF-8 "$1")"
}
end_program() { close_unchanged; }
# An edit that is going on is a change.
end_program_asked() {
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}
run_is_over() {
    look
    [ "$(text_of cmdCancel)" = Close ]
}
process_of_program() {
    local pid
    for pid in $(pgrep -x Tarnwick.exe); do
        if grep -qzxF "WINEPREFIX=$TARNWICK_WINE_BUILD/wine" "/proc/$pid/environ" 2>/dev/null; then
            echo "$pid"
        fi
    done
}
# Of the program, in hundredths of a second.
processor_time() { awk '{ print $14 + $15 }' "/proc/$(process_of_program)/stat"; }
# Waits up to ten seconds until the command succeeds.
wait_until() {
    for _ in $(seq 100); do
        if "$@"; then return; fi
        sleep 0.1
    done
    fail "in vain: $*"
}
has_started() { [ "$(tools_started)" -ge "$1" ]; }
expect_started() { [ "$(tools_started)" = "$1" ] || fail "$(tools_started) tools were started"; }

# How far two places lie apart, "LEFT TOP" each.
way() {
    local from to
    read -ra from <<<"$1"
    read -ra to <<<"$2"
    echo $((to[0] - from[0])) $((to[1] - from[1]))
}
place_on_screen() {
    xdotool getwindowgeometry --shell "$dialog" | sed -n 's/^[XY]=//p' | paste -sd' '
}
place_in_program() { look && line_of cmdCancel | cut -d' ' -f1,2; }
# The window can be moved, and the program learns where it is.
expect_moves() {
    local there here_too moved followed
    there=$(place_on_screen)
    here_too=$(place_in_program)
    xdotool windowmove --sync "$dialog" 90 70
    moved=$(way "$there" "$(place_on_screen)")
    [ "$moved" != '0 0' ] || fail 'the window does not move'
    followed=$(way "$here_too" "$(place_in_program)")
    [ "$followed" = "$moved" ] || fail "moved by $moved; the program knows of $followed"
}
# What another window has covered is painted again when that goes.
expect_repaints() {
    local cover different
    picture_of "$dialog" execute-before
    xev -name cover -geometry 1800x1200+0+0 >"$work/xev.log" 2>&1 </dev/null &
    cover=$!
    expect_window cover
    kill "$cover"
    expect_closed cover
    xdotool windowactivate --sync "$dialog"
    sleep 0.3
    picture_of "$dialog" execute-uncovered
    different=$(compare -metric AE "$pictures/execute-before.png" \
        "$pictures/execute-uncovered.png" null: 2>&1) || true
    [ "$different" = 0 ] || fail "$different pixels are not painted again"
}
