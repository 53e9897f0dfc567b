# Sourced by main_window.sh: the program without a mouse and without eyes.

test_a_definition_is_made_from_nothing_and_saved_by_keyboard_alone() {
    lay_out_work
    launch
    look
    expect_state cboLanguage focus
    key alt+c # CNS is to be run
    key alt+o
    type_text 'C:\work\out\cns'
    key Tab Tab Tab Tab # past Browse, the extension and the aliases
    look
    expect_state grdCNS focus
    key space End
    type_text 'xC:\work\out\cns' # the first letter opens the editor
    key Return
    key alt+d End
    type_text 'xC:\work\out\mp'
    key Return Home Down space End
    type_text 'xC:\work\out\mp'
    key Return Home Down Down space # Xml is on at first
    key alt+i
    type_text 'C:\work\records'
    key alt+e
    type_text '*.met'
    key alt+a Home shift+End
    look
    expect_entries lstAvailable 3 3
    key Tab space
    look
    expect_entries lstSelected 3 0
    expect_state lstAvailable focus
    expect_state cmdOK on
    menu f a
    answer_file_dialog 'Save INI File As' 'C:\work\made.ini'
    title='Tarnwick - made.ini'
    look
    definition 1 0 'Info Extension=.info' 'GRID_Info_file=C:\work\out\cns' \
        "${plain_products[@]}" | expect_file "$folder/made.ini"
    menu f x
    expect_end
}

# The same keys stand in captions below.
test_the_menus_win_over_controls_of_the_same_key() {
    for cns in 1 0; do
        lay_out_work
        definition $cns 0 "${plain_products[@]}" >"$folder/TARNWICK.ini"
        launch
        look
        key alt+t o
        expect_window Options
        key Escape
        expect_closed Options
        key alt+h a
        expect_window 'About Tarnwick'
        key Escape
        expect_closed 'About Tarnwick'
        key alt+f x
        expect_end
    done
}

test_controls_of_the_same_key_take_turns() {
    launch_defined
    press chkMP
    press chkMP
    for name in lstAvailable chkAliases lstAvailable; do
        key alt+a
        look
        expect_state $name focus
        expect_state chkAliases unticked
    done
    for name in cboLanguage cmdOutputFolder cboLanguage; do
        key alt+l
        look
        expect_state $name focus
    done
    expect_no_window 'Open Folder'
    key alt+m # nothing else bears that one: it is clicked
    look
    expect_state chkMP unticked focus
    key alt+l alt+l
    look
    expect_state cboLanguage focus
    close_unchanged
}

# Only what captions, labels and windows of our own say: this system knows no names beside these.
test_a_screen_reader_finds_a_name_for_every_control() {
    launch_defined
    ask names "$title"
    printf '%s\n' "${answer[@]}" >"$work/names.lines"
    local -A expected=(
        [chkCNS]='CNS (pre-parser)' [txtCNS]='CNS output folder / MP input folder:'
        [txtCNSExt]='Extension:' [chkAliases]='Aliases file:' [grdCNS]='CNS output definition'
        [chkMP]=MP [chkfixdoc]='Run special clean-up on DOCUMENT.aml output'
        [cmdOutputFolder]='Set All Folders...' [grdFiles]='MP output definition'
        [chkCFG]='Configuration file:' [txtInput]='Input folder:'
        [txtInExt]='Input file extension(s):' [lstAvailable]='Available files'
        [lstSelected]='Selected files' [cmdCreateBatFile]='Create Batch File...' [cmdOK]=Execute
        [cmdCancel]=Close)
    for name in "${!expected[@]}"; do
        grep -qx "$name [a-z]* shown |${expected[$name]//[*.]/[&]}" "$work/names.lines" ||
            fail "$name is not \"${expected[$name]}\": $(grep "^$name " "$work/names.lines")"
    done
    [ "$(wc -l <"$work/names.lines")" = 32 ] || fail "not 32 controls: $(cat "$work/names.lines")"
    if grep -E '\|(no object)?$' "$work/names.lines"; then fail 'a control has no name'; fi
    close_unchanged
}
