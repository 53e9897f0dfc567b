# Sourced by execute.sh: hands and eyes for whole runs of the tools in the program's own window.

# shellcheck source=main_hands.sh
. "$here/main_hands.sh"

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
    mkdir "$folder/real"
    mv "$folder/mp.exe" "$folder/cns.exe" "$folder/real"
    for tool in mp cns; do cp "$build/tests/window/trying_tool.exe" "$folder/$tool.exe"; done
    tools_do wait work
}
# tools_do WORD...: what both tools do when they are started, see trying_tool.cpp.
tools_do() { echo "$*" >"$folder/how"; }
tools_started() { if [ -e "$folder/started" ]; then wc -l <"$folder/started"; else echo 0; fi; }
has_started() { [ "$(tools_started)" -ge "$1" ]; }
expect_started() { [ "$(tools_started)" = "$1" ] || fail "$(tools_started) tools were started"; }
# expect_tool NUMBER PER_CENT STATUS: that tool is at work, counted from 1, and the run shows this.
expect_tool() {
    wait_until has_started "$1"
    expect_status "$3"
    expect_text cmdCancel Cancel
    expect_state ProgressBar1 shown
    [ "$(line_of ProgressBar1 | cut -d' ' -f9)" = "$2" ] || fail "the bar is: $(line_of ProgressBar1)"
}
# The tool of that number may go on.
let_go() { touch "$folder/enough$1"; }
expect_status() { expect_text StatusBar1 "$1"; }
# holds_only FOLDER [FILE]
holds_only() { [ "$(ls "$1")" = "${2:-}" ]; }
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
# The run comes to its end: all is as before, with that status.
expect_over() {
    wait_until run_is_over
    expect_idle "$1"
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
    act
    moved=$(way "$there" "$(place_on_screen)")
    [ "$moved" != '0 0' ] || fail 'the window does not move'
    followed=$(way "$here_too" "$(place_in_program)")
    [ "$followed" = "$moved" ] || fail "moved by $moved; the program knows of $followed"
}
# What another window has covered is painted again when that goes.
expect_repaints() {
    picture_of "$dialog" execute-before
    show_foreign_window cover -geometry 1800x1200+0+0
    kill "$foreign"
    xdotool windowactivate --sync "$dialog"
    act
    eventually looks_as_before || fail 'not all of it is painted again'
}
looks_as_before() {
    picture_of "$dialog" execute-uncovered
    compare -metric AE "$pictures/execute-before.png" "$pictures/execute-uncovered.png" null: \
        >"$work/different" 2>&1
}
