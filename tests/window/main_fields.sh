# Sourced by main_window.sh: check boxes, fields and lists.

test_every_toggle_and_what_it_allows() {
    launch_defined
    press chkCNS
    look
    for name in lblCNS txtCNS cmdCNS txtCNSExt chkAliases grdCNS; do expect_state $name off; done
    expect_text lblCNS 'CNS &output folder:'
    press chkCNS
    press chkMP
    look
    for name in grdFiles chkfixdoc cmdOutputFolder; do expect_state $name off; done
    expect_text lblCNS 'CNS &output folder:'
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
    press cmdCNS # is off: nothing happens
    expect_no_window 'Open Folder'
    press chkCFG
    look
    expect_state grdCNS on
    press cmdCNS
    expect_window 'Open Folder'
    key Escape
    expect_closed 'Open Folder'
    press cboLanguage
    key Down
    look
    expect_text cboLanguage Spanish
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}

test_a_wrong_folder_is_refused_and_no_messages_follow() {
    launch_defined
    fill txtInput 'C:\nowhere'
    press lstAvailable
    expect_message Warning 'The "C:\nowhere" folder does not exist.'
    look
    expect_state txtInput focus 0 10
    expect_state cmdOK off
    key Tab # to Browse, which may mend it
    expect_no_window Warning
    key Tab # is refused each time
    expect_message Warning 'The "C:\nowhere" folder does not exist.'
    look
    expect_state txtInput focus 0 10
    fill txtInput 'C:\nowhere else'
    press cmdInput
    expect_window 'Open Folder'
    key Escape
    expect_closed 'Open Folder'
    press lstAvailable # the click is lost to the message
    expect_message Warning 'The "C:\nowhere else" folder does not exist.'
    fill txtInput 'C:\work\records'
    key Tab
    expect_no_window Warning
    key alt+F4
    expect_window Tarnwick # the folder was listed anew
    key alt+n
    expect_end
}

test_another_program_may_take_the_keyboard() {
    launch_defined
    fill txtInput 'C:\nowhere'
    go_to_another_program
    expect_no_window Warning
    come_back
    expect_no_window Warning
    look
    expect_state txtInput focus
    key Tab Tab # past Browse, which may mend it
    expect_message Warning 'The "C:\nowhere" folder does not exist.'
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}

test_the_key_of_the_eight_is_taken_back_in_the_extension_whatever_it_types() {
    launch_defined
    for character in 8 asterisk; do
        press txtCNSExt
        key Home Right
        key $character
        expect_message Tarnwick 'Please do not use the wildcard "*" character.'
        look
        expect_text txtCNSExt .cns
        expect_state txtCNSExt focus 1 # the caret is where it was
    done
    key KP_Multiply # another key, which is not looked at
    expect_no_window Tarnwick
    look
    expect_text txtCNSExt '.*cns'
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}

test_files_move_one_by_one_and_all_at_once_and_the_lists_scroll_when_they_must() {
    lay_out_work
    long=$(printf 'a record with a very long name%.0s, ' 1 2 3)
    echo x >"$folder/records/$long.met"
    for number in $(seq 30); do echo x >"$folder/records/r$number.met"; done
    definition 1 0 "${plain_products[@]}" >"$folder/TARNWICK.ini"
    launch
    look
    expect_entries lstAvailable 34 0
    expect_state lstAvailable bar
    expect_state lstSelected nobar
    expect_state cmdSelectFiles1 off
    press lstAvailable 20 10 # the second one, which is the long one
    look
    expect_entries lstAvailable 34 1
    key Down
    key shift+Up
    press cmdSelectFiles1 # >
    look
    expect_entries lstAvailable 32 0
    expect_entries lstSelected 2 0
    expect_state lstAvailable nobar
    expect_state lstSelected bar
    press cmdSelectFiles4 # <<
    look
    expect_entries lstAvailable 34 0
    expect_entries lstSelected 0 0
    expect_state lstAvailable bar
    expect_state lstSelected nobar
    press cmdSelectFiles2 # >>
    press lstSelected 20 10
    press cmdSelectFiles3 # <
    look
    expect_entries lstAvailable 1 0
    expect_entries lstSelected 33 0
    [ "$(top_of lstSelected)" = 0 ] || fail "scrolled to $(top_of lstSelected)"
    press lstSelected 20 10
    act click 5 click 5
    look
    [ "$(top_of lstSelected)" -gt 0 ] || fail 'the wheel does not scroll the list'
    # Every row of the grid shows: there is nothing to scroll, and nothing is harmed.
    press_cell grdFiles 1 2
    type_text .kept
    act click 5 click 4
    look
    expect_text txtEdit .kept
    key Escape
    close_unchanged
}
