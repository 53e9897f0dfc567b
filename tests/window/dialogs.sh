# Sourced by run.sh: what a user does with the dialogs, and what must come of it.

lay_out_tools() {
    mkdir -p "$drive/gallery/logs" "$drive/gallery/maps/north"
    touch "$drive/gallery/mp.exe" "$drive/gallery/cns.exe" "$drive/gallery/mp2.exe"
}

expect_unchanged() {
    expect_result 'sMPExecutable=C:\gallery\mp.exe'
    expect_result 'sCNSExecutable=C:\gallery\cns.exe'
    expect_result 'bCommandLineLogging=0'
    expect_result 'bSettingsChanged=0'
}

test_forms_that_cannot_be_shown_end_with_their_error() {
    (cd "$work" && exec "$wine_run" "$gallery" errors result layout) \
        >"$work/gallery.log" 2>&1 </dev/null || fail "status $?"
    expect_result 'handler=57 Device I/O error'
    expect_result 'resource=51 Internal error'
    expect_result 'control=51 Internal error: frmDisplayCommandLineHelp has no control for "cmdOK"'
    expect_result \
        'window=51 Internal error: the resource of frmDisplayCommandLineHelp lacks a control'
    expect_result 'unloaded=none'
}

test_help_closes_by_enter_escape_button_and_close_box() {
    start_dialog help "Command Line Help on Tarnwick"
    picture_of "$dialog" dialogs-help
    expect_icons 32 16
    key Return
    expect_end
    start_dialog help "Command Line Help on Tarnwick"
    key Escape
    expect_end
    start_dialog help "Command Line Help on Tarnwick"
    click cmdOK
    expect_end
    start_dialog help "Command Line Help on Tarnwick"
    key alt+F4
    expect_end
}

test_help_closes_by_enter_and_escape_from_its_text() {
    start_dialog help "Command Line Help on Tarnwick"
    key Tab
    key Return
    expect_end
    start_dialog help "Command Line Help on Tarnwick"
    click txtHelp
    key Escape
    expect_end
}

test_help_follows_the_size_of_its_window() {
    start_dialog help "Command Line Help on Tarnwick"
    cp "$work/layout" "$work/layout.before"
    xdotool windowsize --sync "$dialog" 1000 500
    act
    cmp -s "$work/layout" "$work/layout.before" && fail "a new size leaves the layout as it was"
    picture_of "$dialog" dialogs-help-resized
    click cmdOK
    expect_end
}

test_options_escape_and_the_close_box_change_nothing() {
    start_dialog options Options
    picture_of "$dialog" dialogs-options
    type_text 'C:\gallery\mp2.exe'
    key Escape
    expect_end
    expect_unchanged
    start_dialog options Options
    type_text 'nonsense'
    key alt+F4
    expect_no_window Warning
    expect_end
    expect_unchanged
}

test_options_a_wrong_tool_is_refused_and_can_be_typed_over() {
    start_dialog options Options
    type_text 'nonsense.exe'
    key Tab
    expect_window Warning
    picture_of "$found" dialogs-options-refusal
    key Return
    expect_no_window Warning
    # The text is selected: what is typed now takes its place. A bare name is completed.
    type_text 'mp2.exe'
    key Tab
    expect_no_window Warning
    key Return # on the Browse button: it clicks that one, not OK
    expect_window 'Open MP Executable'
    key Escape
    expect_open
    key alt+m Return
    expect_end
    expect_result 'sMPExecutable=C:\gallery\mp2.exe'
    expect_result 'sCNSExecutable=C:\gallery\cns.exe'
    expect_result 'bSettingsChanged=1'
}

test_options_browsing_fills_the_field() {
    start_dialog options Options
    click cmdMPEXE
    expect_window 'Open MP Executable'
    type_text 'C:\gallery\mp2.exe'
    key Return
    expect_no_window 'Open MP Executable'
    click cmdOK
    expect_end
    expect_result 'sMPExecutable=C:\gallery\mp2.exe'
}

test_options_cancel_is_not_held_up_by_a_wrong_field() {
    start_dialog options Options
    type_text 'nonsense.exe'
    click cmdCancel
    expect_no_window Warning
    expect_end
    expect_unchanged
}

test_options_ok_with_a_wrong_field_gives_one_message() {
    start_dialog options Options
    type_text 'nonsense.exe'
    click cmdOK
    expect_window Warning
    key Return
    expect_no_window Warning
    expect_open
    key Escape
    expect_end
    expect_unchanged
}

test_options_two_wrong_fields_do_not_loop() {
    start_dialog options Options
    type_text 'nonsense.exe'
    click cmdOK
    expect_window Warning
    key Return
    click txtCNS # was refused once, and nothing has changed: it lets go
    expect_no_window Warning
    key ctrl+a
    type_text 'D:\nowhere\cns.exe'
    click txtMPEXE
    expect_window Warning
    key Return
    expect_no_window Warning
    expect_open
    key Escape
    expect_end
    expect_unchanged
}

test_options_another_program_may_take_the_keyboard() {
    start_dialog options Options
    type_text 'nonsense.exe'
    go_to_another_program
    expect_no_window Warning
    come_back
    expect_no_window Warning
    key Tab
    expect_window Warning
    key Return
    key Escape
    expect_end
    expect_unchanged
}

test_options_logging_by_mouse_and_by_keyboard() {
    start_dialog options Options
    click chkCmdLogging
    click txtCmdFile
    type_text 'C:\nowhere\run.log'
    click chkRelative
    expect_window Warning # and the click is lost
    key Return
    type_text 'C:\gallery\logs\run.log'
    click chkRelative
    picture_of "$dialog" dialogs-options-filled
    click cmdOK
    expect_end
    expect_result 'bCommandLineLogging=1'
    expect_result 'sCommandLineLogFile=C:\gallery\logs\run.log'
    expect_result 'bConvertHyperlinks=1'
    # By keyboard alone.
    start_dialog options Options
    key alt+c Tab Tab space
    key Tab
    type_text 'run.log'
    key Return
    expect_end
    expect_result 'bCommandLineLogging=1'
    expect_result 'sCommandLineLogFile=run.log'
    expect_result 'bConvertHyperlinks=0'
}

# double_click_row LIST ROW: counted from 0, of a list whose rows are 285 twips high.
double_click_row() {
    local height
    height=$(sed -n "s/^$1 .* //p" "$work/layout")
    move_to "$1" $((285 * $2 + 160 - height / 2))
    act click --repeat 2 --delay 20 1
}

open_picker() {
    start_dialog folder 'Open HTML Folder'
}

test_folder_enter_accepts_the_start_folder_and_escape_gives_nothing() {
    open_picker
    picture_of "$dialog" dialogs-folder
    key Return
    expect_end
    expect_result 'folder=C:\gallery'
    open_picker
    key Escape
    expect_end
    expect_result 'folder='
    open_picker
    key alt+F4
    expect_end
    expect_result 'folder='
}

test_folder_a_wrong_path_is_refused_and_can_be_typed_over() {
    open_picker
    type_text 'C:\nowhere'
    key Tab
    expect_window 'Warning!'
    picture_of "$found" dialogs-folder-refusal
    key Return
    expect_no_window 'Warning!'
    key Return # OK is no way round it
    expect_window 'Warning!'
    key Return
    expect_no_window 'Warning!'
    type_text 'C:\gallery\logs'
    click cmdOK
    expect_end
    expect_result 'folder=C:\gallery\logs'
}

test_folder_cancel_is_not_held_up_by_a_wrong_path() {
    open_picker
    type_text 'C:\nowhere'
    click cmdCancel
    expect_no_window 'Warning!'
    expect_end
    expect_result 'folder='
}

test_folder_the_list_is_worked_by_keyboard() {
    open_picker
    key alt+f Down Down Return # past logs to maps, which opens
    picture_of "$dialog" dialogs-folder-opened
    key Down Return
    key alt+o
    expect_end
    expect_result 'folder=C:\gallery\maps\north'
}

test_folder_a_double_click_opens() {
    open_picker
    double_click_row DirPath 3 # C:, gallery, logs, maps
    click cmdOK
    expect_end
    expect_result 'folder=C:\gallery\maps'
}

test_folder_one_of_any_deceiving_name_is_opened() {
    local number=0
    rm -rf "$drive/gallery/odd"
    for name in "${deceiving_names[@]}"; do
        mkdir -p "$drive/gallery/odd/$name/in $((number += 1))"
    done
    : >"$work/opened"
    for number in $(seq ${#deceiving_names[@]}); do
        open_picker
        type_text 'C:\gallery\odd'
        key alt+f
        for _ in $(seq "$number"); do key Down; done
        key Return Down Return alt+o # the folder, and what is in that one alone
        expect_end
        sed -n 's/^folder=C:\\gallery\\odd\\[^\\]*\\//p' "$work/result" >>"$work/opened"
    done
    seq -f 'in %.0f' ${#deceiving_names[@]} | cmp -s - <(sort "$work/opened") ||
        fail "opened were: $(cat "$work/opened")"
    rm -r "$drive/gallery/odd"
}

test_folder_the_drive_list_shows_the_drives_root() {
    open_picker
    key alt+d z # Wine's second drive
    click cmdOK
    expect_end
    expect_result 'folder=Z:\'
    expect_result 'drive=Z:'
}

test_folder_a_new_folder_becomes_the_current_one() {
    rm -rf "$drive/gallery/new maps"
    open_picker
    key alt+n
    expect_window 'New Folder'
    picture_of "$found" dialogs-folder-new
    type_text 'new maps'
    key Return
    expect_no_window 'New Folder'
    key alt+o
    expect_end
    expect_result 'folder=C:\gallery\new maps'
    [ -d "$drive/gallery/new maps" ] || fail 'there is no new folder'
    rmdir "$drive/gallery/new maps"
    open_picker
    key alt+n
    expect_window 'New Folder'
    type_text 'mp.exe'
    key Return
    expect_window 'Warning!'
    picture_of "$found" dialogs-folder-not-created
    key Return
    expect_no_window 'Warning!'
    key Escape
    expect_end
}

test_about_closes_by_enter_escape_button_and_close_box() {
    for way in Return Escape alt+F4; do
        start_dialog about 'About Tarnwick'
        picture_of "$dialog" dialogs-about
        key "$way"
        expect_end
        expect_result 'pointer=default'
    done
    start_dialog about 'About Tarnwick'
    click cmdOK
    expect_end
}

test_about_the_link_opens_the_address_by_mouse_and_by_keyboard() {
    start_dialog about 'About Tarnwick'
    click lblLink
    act click 1 # a double click, as many make it on a link
    expect_open
    picture_of "$dialog" dialogs-about-link
    key Escape
    expect_end
    expect_result 'opened=https://www.corvane.example/mp/doc/mp.html'
    [ "$(grep -c '^opened=' "$work/result")" = 1 ] || fail "it opens twice: $(cat "$work/result")"
    expect_result 'pointer=arrow and question mark'
    start_dialog about 'About Tarnwick'
    key Tab Return space
    expect_open
    key Escape
    expect_end
    [ "$(grep -c '^opened=' "$work/result")" = 2 ] ||
        fail "Enter and the space bar do not open it: $(cat "$work/result")"
}

test_about_the_pointer_tells_the_link_from_the_rest() {
    start_dialog about 'About Tarnwick'
    for other in Label2 picLogo lblVersionNum cmdOK; do
        move_to lblLink
        move_to "$other"
    done
    key Escape
    expect_end
    expect_result 'pointer=default'
    start_dialog about 'About Tarnwick'
    move_to Label2
    move_to lblLink
    key Escape
    expect_end
    expect_result 'pointer=arrow and question mark'
}

run_all_tests() {
    set_resolution 96
    lay_out_tools
    choose_tests
    for test_name in "${chosen[@]}"; do
        say "$test_name"
        "$test_name"
    done
    say "all passed; pictures are in $pictures"
}
