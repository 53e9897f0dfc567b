# Sourced by the suites that work the program itself: hands and eyes for its main window, for the
# files that are left and for the registry.

folder=$drive/work
settings='HKCU\Software\Corvane\TARNWICK'

products=(Error Text Html Faq Sgml Xml Dif)

# Fresh tools, records and output folders, and no settings of an earlier run.
lay_out_work() {
    rm -rf "$folder"
    mkdir -p "$folder/records" "$folder/out/mp" "$folder/out/cns" "$folder/elsewhere"
    cp "$gallery" "$build/demo/tools/mp.exe" "$build/demo/tools/cns.exe" "$folder"
    for record in a b c; do echo "Title: $record" >"$folder/records/$record.met"; done
    echo other >"$folder/records/d.txt"
    echo 'title = Title' >"$folder/aliases.txt"
    printf 'input\n  file: one.met\noutput\n  html: one.html\n' >"$folder/mp.cfg"
    "$wine_run" reg delete 'HKCU\Software\Corvane' /f >"$work/reg.log" 2>&1 || true
}

# launch [TITLE]: starts the program and waits for that window, the main one when none is given.
launch() {
    xdotool mousemove 5 5
    (cd "$folder" && exec "$wine_run" 'C:\work\Tarnwick.exe') >"$work/program.log" 2>&1 </dev/null \
        8>&- 9>&- &
    gallery_pid=$!
    title=${1:-Tarnwick - TARNWICK.ini}
    expect_window "$title"
    dialog=$found
}
# Closes it; no question may come.
close_unchanged() {
    key alt+F4
    eventually program_has_ended_or_asks || fail 'it does not close'
    program_has_ended || fail 'there is a question'
    expect_end
}
program_has_ended_or_asks() { program_has_ended || find_now Tarnwick; }

# look [TITLE]: what that window, the main one when none is given, shows now is in the array "shown",
# and in $work/state.lines.
look() {
    eventually sees_window "${1:-$title}" || fail "no window \"${1:-$title}\" to look at"
    shown=("${answer[@]}")
    printf '%s\n' "${shown[@]}" >"$work/state.lines"
}
sees_window() { ask look "$1" && [ "${answer[0]}" != 'no window' ]; }
# What the last look has shown, or one of those that follow.
sees() { "$@" || eventually sees_anew "$@"; }
sees_anew() { look && "$@"; }

# Of the last look: the line of a control, without its name and kind, and its text.
line_of() {
    local line
    for line in "${shown[@]}"; do
        case $line in "$1 "*)
            line=${line#* }
            echo "${line#* }"
            return
            ;;
        esac
    done
    fail "no control $1"
}
text_of() { line_of "$1" | sed 's/^[^|]*|//'; }
# expect_state CONTROL WORD...: these words stand in its line.
expect_state() { sees has_state "$@" || fail "$1 is not ${*:2} but $(line_of "$1")"; }
has_state() {
    local line word
    line=$(line_of "$1")
    line=" ${line%%|*} "
    for word in "${@:2}"; do
        case $line in *" $word "*) ;; *) return 1 ;; esac
    done
}
expect_text() { sees has_text "$@" || fail "$1 is \"$(text_of "$1")\", not \"$2\""; }
has_text() { [ "$(text_of "$1")" = "$2" ]; }
# The list holds that many names, and so many of them are selected.
expect_entries() {
    sees has_entries "$@" || fail "$1 has \"$(entries_of "$1")\" entries and selected ones, not \"$2 $3\""
}
entries_of() { line_of "$1" | cut -d' ' -f9,10; }
has_entries() { [ "$(entries_of "$1")" = "$2 $3" ]; }
# The number of the uppermost entry that shows.
top_of() { line_of "$1" | cut -d' ' -f12; }
# Sends a window with that title a message, and waits for the answer.
send_message() { "$wine_run" "$probe" "$1" send "${@:2}" 2>"$work/send.log" </dev/null | tr -d '\r'; }
# A message with that title and text, which Enter closes.
expect_message() {
    expect_window "$1"
    ask look "$1"
    printf '%s\n' "${answer[@]}" >"$work/message"
    grep -qF -- "$2" "$work/message" || fail "not \"$2\" but: $(cat "$work/message")"
    key Return
    expect_closed "$1"
}

# What the main window tells a screen reader, from now on.
listen() { ask listen; }
# expect_heard LINE...: exactly these since the last time; see window_probe.cpp.
expect_heard() {
    ask heard "$title"
    [ "${answer[*]}" = "$*" ] || fail "not \"$*\" is heard but \"${answer[*]}\""
}

# press CONTROL [X Y]: a click on the middle of it, or X and Y pixels from its corner.
press() {
    local x y width height _
    look
    read -r x y width height _ < <(line_of "$1")
    side=$((-side))
    act mousemove $((x + ${2:-$((width / 2))} + side)) $((y + ${3:-$((height / 2))})) click 1
}
# press_cell GRID ROW COLUMN: in its middle; the columns are 550, 800 and 820 twips wide.
press_cell() {
    local -a middle=(275 950 1760 2600)
    press "$1" $((middle[$3] * dpi / 1440)) $(((15 + 285 * $2 + 142) * dpi / 1440))
}
# fill CONTROL TEXT: by mouse and typing.
fill() {
    press "$1"
    key ctrl+a
    type_text "$2"
}
# In a common dialog.
answer_file_dialog() {
    expect_window "$1"
    key ctrl+a
    type_text "$2"
    key Return
    expect_closed "$1"
}
# menu KEY...: the first one opens a menu of the menu bar.
menu() { key "alt+$1" "${@:2}"; }

expect_file() {
    cmp -s "$1" - || fail "$1 holds: $(cat "$1")"
}
expect_stored() {
    local value
    value=$("$wine_run" reg query "$settings" /v "$1" 2>"$work/reg.log" | tr -d '\r' |
        sed -n "s/^ *$1 *REG_SZ *//p") || true # nothing is stored yet
    [ "$value" = "$2" ] || fail "stored $1 is \"$value\", not \"$2\""
}
lines() { printf '%s\r\n' "$@"; }
# The definition of the first test, with what differs from it: definition CNS FIXDOC [LINE...]
definition() {
    lines 'MP EXECUTABLE=C:\work\mp.exe' 'CNS EXECUTABLE=C:\work\cns.exe' 'Process MP=1' \
        "Process CNS=$1" 'Command Line Logging=False' 'Command Line Log Filename=' \
        'Input Folder=C:\work\records' 'Input File Extension=*.met' \
        'CNS Output Folder=C:\work\out\cns' 'CNS Output File Extension=.cns' \
        'Convert HyperLink To Relative Path=False' 'Language=English' "FIX DOC=$2" "${@:3}"
}
plain_products=('Error Extension=.err' 'GRID_Error=C:\work\out\mp'
    'Html Extension=.html' 'GRID_Html=C:\work\out\mp')
# Starts the program on that definition.
launch_defined() {
    lay_out_work
    definition 1 0 "${plain_products[@]}" >"$folder/TARNWICK.ini"
    launch
    look
}
