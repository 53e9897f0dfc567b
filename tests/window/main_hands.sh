# Sourced by the suites that work the program itself: hands and eyes for its main window, for the
# files that are left and for the registry.

folder=$drive/work
settings='HKCU\Software\Corvane\TARNWICK'

# The controls by name, as window_probe tells them: the kind and the number of its kind.
declare -A control=(
    [cboLanguage]='combo 1' [chkCNS]='check 1' [lblCNS]='label 3' [txtCNS]='text 1'
    [cmdCNS]='button 1' [txtCNSExt]='text 2' [chkAliases]='check 2' [txtAliases]='text 3'
    [cmdAliases]='button 2' [txtEditCNS]='text 4' [cmdEditCNS]='button 3' [grdCNS]='grid 1'
    [chkMP]='check 3' [chkfixdoc]='check 4' [cmdOutputFolder]='button 4' [txtEdit]='text 5'
    [cmdEdit]='button 5' [grdFiles]='grid 2' [chkCFG]='check 5' [txtCFG]='text 6'
    [cmdCFG]='button 6' [txtInput]='text 7' [cmdInput]='button 7' [txtInExt]='text 8'
    [lstAvailable]='list 1' [cmdSelectFiles1]='button 8' [cmdSelectFiles2]='button 9'
    [cmdSelectFiles3]='button 10' [cmdSelectFiles4]='button 11' [lstSelected]='list 2'
    [cmdCreateBatFile]='button 12' [cmdOK]='button 13' [cmdCancel]='button 14')
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
probe=$build/tests/window/window_probe.exe

# launch [TITLE]: starts the program and waits for that window, the main one when none is given.
launch() {
    xdotool mousemove 5 5
    (cd "$folder" && exec "$wine_run" 'C:\work\Tarnwick.exe') >"$work/program.log" 2>&1 </dev/null &
    gallery_pid=$!
    title=${1:-Tarnwick - TARNWICK.ini}
    expect_window "$title"
    dialog=$found
}
# Closes it; no question may come.
close_unchanged() {
    key alt+F4
    for _ in $(seq 50); do
        kill -0 "$gallery_pid" 2>/dev/null || break
        if find_now Tarnwick; then fail 'there is a question'; fi
        sleep 0.1
    done
    expect_end
}

# look [TITLE]: what that window, the main one when none is given, shows now is in $work/state.
look() {
    "$wine_run" "$probe" "${1:-$title}" >"$work/state" 2>"$work/probe.log" </dev/null ||
        { sleep 0.5 && "$wine_run" "$probe" "${1:-$title}" >"$work/state" </dev/null; } ||
        fail "no window \"${1:-$title}\" to look at: $(cat "$work/probe.log")"
    tr -d '\r' <"$work/state" >"$work/state.lines"
}
# Of the last look: the line of a control, without its kind and number, and its text.
line_of() {
    grep -m1 "^${control[$1]} " "$work/state.lines" | cut -d' ' -f3- || fail "no control $1"
}
text_of() { line_of "$1" | sed 's/^[^|]*|//'; }
# expect_state CONTROL WORD...: these words stand in its line.
expect_state() {
    local line name=$1
    line=" $(line_of "$name") "
    line=${line%%|*}
    for word in "${@:2}"; do
        case $line in *" $word "*) ;; *) fail "$name is not $word but$line" ;; esac
    done
}
expect_text() { [ "$(text_of "$1")" = "$2" ] || fail "$1 is \"$(text_of "$1")\", not \"$2\""; }
# The list holds that many names, and so many of them are selected.
expect_entries() {
    local state
    state=$(line_of "$1" | cut -d' ' -f9,10)
    [ "$state" = "$2 $3" ] || fail "$1 has \"$state\" entries and selected ones, not \"$2 $3\""
}
# The number of the uppermost entry that shows.
top_of() { line_of "$1" | cut -d' ' -f12; }
# Sends a window with that title a message, and waits for the answer.
send_message() { "$wine_run" "$probe" "$1" send "${@:2}" 2>"$work/probe.log" </dev/null | tr -d '\r'; }
# How many windows with that title there are.
count_windows() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | wc -l; }
# A message with that title and text, which Enter closes.
expect_message() {
    expect_window "$1"
    "$wine_run" "$probe" "$1" >"$work/message" 2>&1 </dev/null || fail "no message \"$1\""
    grep -qF -- "$2" "$work/message" || fail "not \"$2\" but: $(cat "$work/message")"
    key Return
    expect_closed "$1"
}

find_now() { [ -n "$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null || true)" ]; }

# press CONTROL [X Y]: a click on the middle of it, or X and Y pixels from its corner.
press() {
    local x y width height _
    read -r x y width height _ < <(line_of "$1")
    xdotool mousemove $((x + ${2:-$((width / 2))})) $((y + ${3:-$((height / 2))}))
    sleep 0.1
    xdotool click 1
    sleep 0.3
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
