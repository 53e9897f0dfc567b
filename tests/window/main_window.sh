# Sourced by run.sh: what a user does with the program itself, and what must come of it: on the
# screen, in the files that are left and in the registry.

# shellcheck source=main_hands.sh
. "$here/main_hands.sh"

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
