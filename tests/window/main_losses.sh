# Sourced by main_window.sh: what a user could lose, or be misled by.

test_enter_in_the_main_window_starts_no_run() {
    launch_defined
    press cmdSelectFiles2
    expect_entries lstSelected 3 0
    expect_state cmdOK on
    for name in txtInput txtCNSExt lstSelected cboLanguage chkfixdoc; do
        press $name
        look
        expect_state $name focus
        key Return
        expect_no_run
    done
    # Nor does it press the button that had the focus before.
    press cmdOutputFolder
    expect_window 'Open Folder'
    key Escape
    expect_closed 'Open Folder'
    press txtInput
    key Return
    expect_no_window 'Open Folder'
    expect_no_run
    press chkfixdoc # as it was; the settings count as changed all the same
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}
# During one, Close reads Cancel.
expect_no_run() {
    look
    has_text cmdCancel Close || fail 'a run has begun'
}

test_enter_presses_a_button_that_has_the_focus() {
    launch_defined
    press lstAvailable
    key Home Tab # to ">"
    look
    expect_state cmdSelectFiles1 focus
    key Return
    expect_entries lstSelected 1 0
    close_unchanged
}

test_keys_mark_all_open_a_cell_and_list_again() {
    launch_defined
    press lstAvailable
    key ctrl+a
    expect_entries lstAvailable 3 3
    expect_state cmdSelectFiles1 on
    echo x >"$folder/records/e.met"
    key F5
    expect_entries lstAvailable 4 0
    press_cell grdFiles 1 1
    key Right F2
    expect_state txtEdit shown focus
    expect_text txtEdit .err
    key Escape
    close_unchanged
}

# Its message came back for ever.
test_a_box_can_be_cleared_while_its_field_is_wrong() {
    launch_defined
    press chkAliases
    fill txtAliases 'C:\work\none.txt'
    press chkAliases
    expect_state chkAliases unticked
    expect_state txtAliases off
    press txtInExt
    expect_no_window Warning
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}

test_a_question_that_is_closed_comes_again() {
    launch_defined
    press chkfixdoc
    key alt+F4
    expect_window Tarnwick
    key Escape
    expect_window Tarnwick
    key alt+y
    expect_end
    definition 1 1 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
}

test_a_record_is_not_opened_as_a_definition() {
    launch_defined
    menu f o
    answer_file_dialog 'Open INI File' 'C:\work\records\a.met'
    expect_message Tarnwick 'Number:            321'
    menu f s
    ask idle
    echo 'Title: a' | expect_file "$folder/records/a.met"
    close_unchanged
}

test_a_name_without_an_extension_gets_one() {
    launch_defined
    menu f a
    answer_file_dialog 'Save INI File As' 'C:\work\made'
    expect_window 'Tarnwick - made.ini'
    title='Tarnwick - made.ini'
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/made.ini"
    close_unchanged
}

# A line of the progress bar stayed there.
test_the_third_panel_looks_after_a_run_as_before() {
    launch_defined
    press cmdSelectFiles2
    expect_entries lstSelected 3 0
    picture_of_the_third_panel "$work/before.png"
    press cmdOK
    wait_until has_run
    look
    expect_text cmdCancel Close
    press txtInExt # as it was before
    eventually third_panel_looks_as_before || fail "$(cat "$work/differing") pixels are other ones"
    close_unchanged
}
third_panel_looks_as_before() {
    picture_of_the_third_panel "$work/after.png"
    compare -metric AE "$work/before.png" "$work/after.png" "$pictures/third-panel.png" \
        2>"$work/differing"
}
has_run() { [ "$(find "$folder/out/mp" -name 'c.*' | wc -l)" = 2 ]; }
picture_of_the_third_panel() {
    local x y width height _
    look
    read -r x y width height _ < <(line_of ProgressBar1)
    xdotool mousemove 5 5
    act
    import -window root -crop "$((width + 8))x$((height + 8))+$((x - 4))+$((y - 4))" +repage "$1"
}
