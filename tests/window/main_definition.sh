# Sourced by main_window.sh: definitions are made, saved, opened and closed.

test_a_definition_is_made_from_nothing_saved_and_found_again() {
    lay_out_work
    launch
    look
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
    expect_closed 'Open Folder'
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

test_new_and_open() {
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
    # Onto a file that is there it asks first; Save As does not.
    menu f n
    expect_window 'New INI File'
    local before=$found
    type_text 'C:\work\TARNWICK.ini'
    key Return
    find_now 'New INI File' || fail 'New has overwritten a file without a question'
    ! has_keyboard "$before" || fail 'no question'
    key Escape Escape
    expect_closed 'New INI File'
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
    menu f a
    answer_file_dialog 'Save INI File As' 'C:\work\TARNWICK.ini'
    title='Tarnwick - TARNWICK.ini'
    look
    close_unchanged
    cmp -s "$folder/new.ini" "$folder/TARNWICK.ini" || fail 'Save As has not overwritten the file'
    expect_stored 'INI File Name' 'C:\work\TARNWICK.ini'
}

test_the_question_on_closing_is_answered_both_ways() {
    launch_defined
    press chkfixdoc
    key alt+F4
    expect_window Tarnwick
    look Tarnwick
    grep -qF 'Do you want to save the changes you made to' "$work/state.lines" ||
        fail "$(cat "$work/state.lines")"
    grep -qF '"C:\work\TARNWICK.ini"?' "$work/state.lines" || fail "$(cat "$work/state.lines")"
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

test_closing_over_an_invalid_field_asks_exactly_one_question() {
    launch_defined
    fill txtInput 'C:\nowhere'
    key alt+F4
    expect_window Tarnwick
    if find_now Warning; then fail 'a field is checked that nobody needs any more'; fi
    [ "$(count_windows Tarnwick)" = 1 ] || fail "$(count_windows Tarnwick) questions"
    key alt+n
    expect_end
    expect_no_window Warning
}

test_the_end_of_the_session_is_asked_about_while_there_is_time() {
    launch_defined
    press chkfixdoc
    send_message "$title" 0x11 0 0 >"$work/answer" & # WM_QUERYENDSESSION
    local sender=$!
    expect_window Tarnwick
    expect_stored 'INI File Name' 'C:\work\TARNWICK.ini' # whether or not anybody answers
    key alt+y
    wait $sender
    [ "$(cat "$work/answer")" = 1 ] || fail "the session is told $(cat "$work/answer")"
    definition 1 1 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
    send_message "$title" 0x16 1 0 >"$work/answer" # WM_ENDSESSION
    expect_end
}
