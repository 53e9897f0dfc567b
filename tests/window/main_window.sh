# Sourced by run.sh: what a user does with the program itself, and what must come of it: on the
# screen, in the files that are left and in the registry.

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
    expect_no_window Tarnwick
    expect_end
}

# look [TITLE]: what that window, the main one when none is given, shows now is in $work/state.
look() {
    "$wine_run" "$probe" "${1:-$title}" >"$work/state" 2>"$work/probe.log" </dev/null ||
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
    state=$(line_of "$1" | sed 's/^\([^ ]* \)\{8\}//; s/ *[a-z]* |.*//')
    [ "$state" = "$2 $3" ] || fail "$1 has \"$state\" entries and selected ones, not \"$2 $3\""
}
# A message with that title and text, which Enter closes.
expect_message() {
    expect_window "$1"
    "$wine_run" "$probe" "$1" >"$work/message" 2>&1 </dev/null || fail "no message \"$1\""
    grep -qF -- "$2" "$work/message" || fail "not \"$2\" but: $(cat "$work/message")"
    key Return
    expect_no_window "$1"
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
    expect_no_window "$1"
}
# menu KEY...: by F10, for some access keys of the menu bar are those of fields too.
menu() { key F10 "$@"; }

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

test_1_a_definition_is_made_from_nothing_saved_and_found_again() {
    lay_out_work
    launch
    look
    picture_of "$dialog" main-empty
    expect_state chkMP ticked on
    expect_state chkCNS unticked on
    for name in txtInput txtInExt txtCNS txtAliases txtCFG; do expect_text $name ''; done
    expect_state cmdOK off
    key alt+i # by keyboard
    type_text 'C:\work\records'
    key alt+e
    type_text '*.met'
    key alt+a
    look
    expect_entries lstAvailable 3 0
    press cmdSelectFiles2
    press cmdOutputFolder
    expect_window 'Open Folder'
    key ctrl+a
    type_text 'C:\work\out\mp'
    key Return
    expect_no_window 'Open Folder'
    # Error and Xml are on already: Xml off, Html on.
    press_cell grdFiles 6 0
    press_cell grdFiles 3 0
    press chkCNS
    look
    expect_state txtCNS on
    expect_state cmdOK off # there is no folder for CNS yet
    fill txtCNS 'C:\work\out\cns'
    press_cell grdCNS 1 0
    press_cell grdCNS 1 3
    type_text 'C:\work\out\cns'
    press chkfixdoc
    look
    expect_entries lstSelected 3 0
    expect_state cmdOK on
    expect_state cmdCreateBatFile on
    picture_of "$dialog" main-filled
    menu f a
    answer_file_dialog 'Save INI File As' 'C:\work\made.ini'
    title='Tarnwick - made.ini'
    look
    expect_stored 'INI File Name' 'C:\work\made.ini'
    close_unchanged
    definition 1 1 'Info Extension=.info' 'GRID_Info_file=C:\work\out\cns' \
        "${plain_products[@]}" | expect_file "$folder/made.ini"
    expect_stored 'MP Executable' 'C:\work\mp.exe'
    expect_stored 'CNS Executable' 'C:\work\cns.exe'
    # Started again, it opens that file by itself.
    launch 'Tarnwick - made.ini'
    look
    expect_text txtInput 'C:\work\records'
    expect_text txtInExt '*.met'
    expect_text txtCNS 'C:\work\out\cns'
    expect_text txtCNSExt .cns
    expect_text cboLanguage English
    expect_state chkCNS ticked
    expect_state chkMP ticked
    expect_state chkfixdoc ticked
    expect_state chkAliases unticked
    expect_state chkCFG unticked
    expect_entries lstAvailable 3 0
    menu f s # unchanged, byte for byte
    close_unchanged
    definition 1 1 'Info Extension=.info' 'GRID_Info_file=C:\work\out\cns' \
        "${plain_products[@]}" | expect_file "$folder/made.ini"
}

test_2_new_and_open() {
    launch_defined
    definition 0 1 'Dif Extension=.dd' 'GRID_Dif=C:\work\elsewhere' >"$folder/other.ini"
    cp "$folder/other.ini" "$folder/other.before"
    menu f o
    answer_file_dialog 'Open INI File' 'C:\work\other.ini'
    title='Tarnwick - other.ini'
    look
    expect_state chkCNS unticked
    expect_state chkfixdoc ticked
    expect_stored 'INI File Name' '' # not before the end
    menu f s
    expect_file "$folder/other.ini" <"$folder/other.before"
    menu f n
    answer_file_dialog 'New INI File' 'C:\work\new.ini'
    title='Tarnwick - new.ini'
    look
    expect_state chkMP ticked
    grep -qxF $'Input Folder=C:\\work\\records\r' "$folder/new.ini" || fail 'the fields are lost'
    # Onto a file that is there it asks first.
    menu f n
    expect_window 'New INI File'
    type_text 'C:\work\TARNWICK.ini'
    key Return
    sleep 0.7
    picture_of root main-overwrite
    key Escape Escape
    expect_no_window 'New INI File'
    close_unchanged
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
    expect_stored 'INI File Name' 'C:\work\new.ini'
}

test_3_the_question_on_closing_is_answered_both_ways() {
    launch_defined
    press chkfixdoc
    key alt+F4
    expect_window Tarnwick
    look Tarnwick
    grep -qF 'Do you want to save the changes you made to' "$work/state.lines" ||
        fail "$(cat "$work/state.lines")"
    grep -qF '"C:\work\TARNWICK.ini"?' "$work/state.lines" || fail "$(cat "$work/state.lines")"
    picture_of "$found" main-question
    key alt+n
    expect_end
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
    launch
    look
    expect_state chkfixdoc unticked
    press chkfixdoc
    press cmdCancel # Close
    expect_window Tarnwick
    key alt+y
    expect_end
    definition 1 1 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
}

test_4_a_missing_tool_is_asked_for() {
    lay_out_work
    definition 0 0 >"$folder/TARNWICK.ini"
    rm "$folder/mp.exe"
    launch Warning # only MP: not given, and so the end
    expect_message Warning 'Please specify the MP executable location.'
    expect_window Options
    key Escape
    expect_end
    # Only CNS.
    definition 1 0 | sed 's/Process MP=1/Process MP=0/' >"$folder/TARNWICK.ini"
    rm "$folder/cns.exe"
    launch Warning
    expect_message Warning 'Please specify the CNS executable location.'
    expect_window Options
    key Escape
    expect_end
    # Both, one after the other; given, the program goes on.
    definition 1 0 >"$folder/TARNWICK.ini"
    cp "$build/demo/tools/mp.exe" "$build/demo/tools/cns.exe" "$folder/elsewhere"
    launch Warning
    expect_message Warning 'Please specify the MP executable location.'
    expect_window Options
    type_text 'C:\work\elsewhere\mp.exe'
    key Return # its OK looks at both
    expect_message Warning 'The CNS executable file "C:\work\cns.exe" does not exist.'
    key ctrl+a
    type_text 'C:\work\elsewhere\cns.exe'
    key Return
    title='Tarnwick - TARNWICK.ini'
    expect_window "$title"
    dialog=$found
    close_unchanged # start-up ends with nothing changed
    expect_stored 'MP Executable' 'C:\work\elsewhere\mp.exe'
    expect_stored 'CNS Executable' 'C:\work\elsewhere\cns.exe'
}

test_5_a_vanished_and_a_read_only_file() {
    lay_out_work
    "$wine_run" reg add "$settings" /v 'INI File Name' /d 'C:\work\gone.ini' /f >"$work/reg.log" 2>&1
    launch 'Tarnwick - gone.ini' # no error: the defaults stand
    look
    expect_text txtInput ''
    expect_state chkMP ticked
    close_unchanged
    launch_defined
    chmod a-w "$folder/TARNWICK.ini"
    press chkfixdoc
    menu f s
    expect_message Tarnwick 'frmMain - Public Sub SaveINIFile()'
    key alt+F4
    expect_window Tarnwick # it is not saved
    key alt+n
    expect_end
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
}


test_6_the_grids_keys_toggles_and_folder_button() {
    launch_defined
    press_cell grdFiles 1 2 # of a ticked row: the editor opens on its extension
    look
    expect_state txtEdit shown focus 0 4
    expect_text txtEdit .err
    type_text '*.x*1'
    key Return # to the folder
    look
    expect_state txtEdit shown focus
    expect_state cmdEdit shown
    expect_text txtEdit 'C:\work\out\mp'
    picture_of "$dialog" main-editor
    type_text nonsense
    key Escape # does not count
    look
    expect_state txtEdit hidden
    press_cell grdFiles 3 2
    look
    expect_text txtEdit .html
    key Up # to an unticked row: no editor there
    look
    expect_state txtEdit hidden
    press_cell grdFiles 2 0 # Text is ticked
    press_cell grdFiles 1 2
    look
    expect_text txtEdit .x1
    key Down
    look
    expect_text txtEdit .txt
    key Down
    look
    expect_text txtEdit .html
    key Up
    look
    expect_text txtEdit .txt
    press_cell grdFiles 2 3
    look
    expect_state cmdEdit shown
    press cmdEdit
    expect_window 'Open Text Folder'
    key ctrl+a
    type_text 'C:\work\elsewhere'
    key Return
    expect_no_window 'Open Text Folder'
    press_cell grdFiles 4 2 # not ticked
    look
    expect_state txtEdit hidden
    press_cell grdFiles 3 0 # Html off, on, off
    press_cell grdFiles 3 0
    press_cell grdFiles 3 0
    press_cell grdCNS 2 0
    press_cell grdCNS 2 2
    look
    expect_state txtEditCNS shown focus
    type_text .left
    menu f s # saving takes what is being typed
    look
    expect_state txtEditCNS hidden
    close_unchanged
    definition 1 0 'Leftovers Extension=.left' 'Error Extension=.x1' \
        'GRID_Error=C:\work\out\mp' 'Text Extension=.txt' 'GRID_Text=C:\work\elsewhere' |
        expect_file "$folder/TARNWICK.ini"
}

test_7_every_toggle_and_what_it_allows() {
    launch_defined
    press chkCNS
    look
    for name in lblCNS txtCNS cmdCNS txtCNSExt chkAliases grdCNS; do expect_state $name off; done
    expect_text lblCNS 'CNS &output folder:'
    picture_of "$dialog" main-cns-off
    press chkCNS
    press chkMP
    look
    for name in grdFiles chkfixdoc cmdOutputFolder; do expect_state $name off; done
    expect_text lblCNS 'CNS &output folder:'
    picture_of "$dialog" main-mp-off
    press chkMP
    look
    for name in txtCNS grdCNS grdFiles chkfixdoc cmdOutputFolder; do expect_state $name on; done
    expect_text lblCNS 'CNS &output folder / MP input folder:'
    press chkAliases
    look
    expect_state txtAliases on
    press cmdAliases
    answer_file_dialog 'Open Aliases File' 'C:\work\aliases.txt'
    look
    expect_text txtAliases 'C:\work\aliases.txt'
    press chkCFG
    look
    expect_state txtCFG on
    press cmdCFG
    answer_file_dialog 'Open Configuration File' 'C:\work\mp.cfg'
    press chkCFG
    press chkCFG
    look
    for name in txtCNS grdCNS grdFiles chkfixdoc cmdOutputFolder; do expect_state $name off; done
    expect_text txtCNS ''
    picture_of "$dialog" main-config-names-output
    press cmdCNS # is off: nothing happens
    expect_no_window 'Open Folder'
    press chkCFG
    look
    expect_state grdCNS on
    press cmdCNS
    expect_window 'Open Folder'
    key Escape
    expect_no_window 'Open Folder'
    press cboLanguage
    key Down
    look
    expect_text cboLanguage Spanish
    key Escape # is Close
    expect_window Tarnwick
    key alt+n
    expect_end
}

test_8_a_wrong_folder_is_refused_and_no_messages_follow() {
    launch_defined
    fill txtInput 'C:\nowhere'
    press lstAvailable
    expect_message Warning 'The "C:\nowhere" folder does not exist.'
    look
    expect_state txtInput focus 0 10
    expect_state cmdOK off
    key Tab # was refused once, and nothing has changed
    sleep 0.5
    if find_now Warning; then expect_message Warning 'does not exist.'; fi
    expect_no_window Warning
    fill txtInput 'C:\nowhere else'
    press cmdInput # the click is lost to the message
    expect_message Warning 'The "C:\nowhere else" folder does not exist.'
    fill txtInput 'C:\no'
    key alt+F4
    for _ in 1 2 3; do
        sleep 0.5
        if find_now Warning; then key Return; fi
    done
    if find_now Tarnwick; then key alt+n; fi
    expect_end
}

# At another resolution everything keeps its proportions.
take_pictures_at() {
    set_resolution "$1"
    launch_defined
    press cmdSelectFiles2
    picture_of "$dialog" "main-${1}dpi"
    close_unchanged
}

run_all_tests() {
    set_resolution 96
    for test_name in $(compgen -A function test_ | grep "${TARNWICK_ONLY:-}"); do
        say "$test_name ($SECONDS s)"
        "$test_name"
    done
    if [ -z "${TARNWICK_ONLY:-}" ]; then
        for test_name in 144 192; do
            say "pictures at $test_name dpi"
            take_pictures_at "$test_name"
        done
    fi
    say "all passed in $SECONDS s; pictures are in $pictures"
}
