# Sourced by run.sh: what a user does with each kind of control, and what must come of it.

# expect_event LINE: the gallery tells of it.
expect_event() {
    grep -qxF -- "$1" "$work/result" || fail "no \"$1\" in: $(tr '\n' '|' <"$work/result")"
}
# expect_since LINE...: exactly these came since the last look.
expect_since() {
    local new
    new=$(tail -n +$((seen + 1)) "$work/result")
    seen=$(wc -l <"$work/result")
    [ "$new" = "$(printf '%s\n' "$@")" ] ||
        fail "not \"$(printf '%s|' "$@")\" but: $(printf '%s' "$new" | tr '\n' '|')"
}
forget() { seen=$(wc -l <"$work/result"); }
open_controls() {
    start_dialog window Controls
    seen=0
}
close_controls() {
    forget
    key alt+F4
    expect_end
    expect_since Form_Unload
}

test_the_window_is_as_large_as_it_should_be_and_stays_so() {
    open_controls
    picture_of "$dialog" controls
    grep -qx 'window 12735 8460' "$work/layout" || fail "$(grep window "$work/layout")"
    xdotool windowminimize "$dialog"
    wait_until answers_yes iconic Controls
    xdotool windowactivate "$dialog" 2>/dev/null
    expect_window Controls
    ! answers_yes iconic Controls || fail 'it stays an icon'
    grep -qx 'window 12735 8460' "$work/layout" || fail "$(grep window "$work/layout")"
    close_controls
}

test_the_menu_by_mouse_and_by_keyboard() {
    open_controls
    key alt+f n
    expect_since mnuNew_Click
    key alt+f
    picture_of root controls-menu
    key Escape Escape
    expect_since ''
    key alt+f x
    expect_end
    expect_since Form_Unload
}

test_a_combo_box_is_picked_from_and_typed_into() {
    open_controls
    key Down
    expect_since 'cboLanguage_Click Spanish'
    key ctrl+a
    type_text 'De'
    expect_since 'cboLanguage_Change D' 'cboLanguage_Change De'
    key Tab
    expect_since cboLanguage_LostFocus txtExt_GotFocus 'txtExt_KeyUp 9'
    type_text '8'
    expect_since 'txtExt_Change 8' 'txtExt_KeyUp 56'
    close_controls
}

test_several_entries_are_selected_and_moved() {
    open_controls
    click item1
    expect_since cboLanguage_LostFocus lstFiles_GotFocus 'lstFiles_Click record103.met'
    act keydown ctrl
    click item3
    act keyup ctrl
    expect_since 'lstFiles_Click record103.met record107.met'
    picture_of "$dialog" controls-list
    click cmdMove
    key alt+s Home
    expect_event 'lstChosen_Click record103.met'
    forget
    key shift+Down
    expect_since 'lstChosen_Click record103.met record107.met'
    click cmdBack
    key alt+a Home shift+End
    expect_event 'lstFiles_Click a record with a very long name that does not fit.met record103.met record105.met record107.met record111.met'
    close_controls
}

test_the_grid_by_mouse() {
    open_controls
    click cell31
    expect_since cboLanguage_LostFocus grd_GotFocus grd_MouseDown 'grd_Click 3 1'
    picture_of "$dialog" controls-grid
    click cell12
    expect_since grd_MouseDown 'grd_Click 1 2'
    type_text '.new'
    picture_of "$dialog" controls-editor
    click cell13 # leaving the cell keeps what was typed
    expect_event 'commit .new'
    picture_of "$dialog" controls-folder-editor
    forget
    key Escape # and this does not
    type_text 'x'
    expect_event 'grd_KeyPress 120'
    forget
    click cell00
    expect_event 'grd_MouseDown header'
    close_controls
}

test_the_grid_by_keyboard() {
    open_controls
    key alt+d
    expect_since cboLanguage_LostFocus grd_GotFocus
    key Down Right
    key Return # to column 2: the editor opens
    type_text '.abc'
    key Return
    expect_since 'commit .abc'
    key Escape # back to the grid
    type_text 'y'
    expect_since 'grd_KeyPress 121'
    key Tab
    close_controls
}

test_a_disabled_grid_is_grey_and_silent() {
    open_controls
    click chkGrid
    forget
    click cell11
    expect_since ''
    picture_of "$dialog" controls-disabled
    click chkGrid
    click cell11
    expect_event 'grd_Click 1 1'
    close_controls
}

test_folders_are_opened_by_double_click_and_by_enter() {
    open_controls
    key alt+o Home
    forget
    key Return
    expect_since 'DirPath_Change Z:\'
    key alt+r
    forget
    key Home
    expect_since 'drvPath_Change C:'
    picture_of "$dialog" controls-folders
    key alt+o # Wine's own drop-down list takes Alt+F4 for itself
    close_controls
}

test_a_message_box_does_not_count_as_leaving() {
    open_controls
    click cmdAsk
    expect_window Question
    key Return
    expect_since cboLanguage_LostFocus cmdAsk_GotFocus cmdAsk_Click
    close_controls
}

test_busy() {
    open_controls
    click cmdBusy
    act mousemove --window "$dialog" 300 400
    picture_of "$dialog" controls-busy
    close_controls
}

test_a_screen_reader_finds_the_cells_of_the_grid() {
    start_dialog names Controls
    click cell22
    key Escape
    key Left
    key alt+h a
    expect_result 'children=28'
    expect_result '0=Output definition'
    expect_result '1=Build?'
    expect_result '5=Error, Build?: ticked'
    expect_result '8=Error, Output Folder: C:\records\out'
    expect_result '9=Text, Build?: not ticked'
    expect_result '28=Xml, Output Folder: C:\records\out'
    expect_result 'focus=10'
    key alt+F4
    expect_end
}

test_on_another_monitor_it_is_as_large_as_here() {
    start_dialog scaled Controls
    key alt+h a
    expect_result '96=1 849x564'
    expect_result '120=1 1061x705'
    expect_result '144=1 1274x846'
    expect_result '192=1 1698x1128'
    key alt+F4
    expect_end
}

# Whoever is at work behind the window learns that it has gone.
test_an_error_that_no_handler_traps_unloads_the_form() {
    start_dialog failing Controls
    key alt+h a
    expect_end
    expect_result unloaded
    expect_result raised=57
}

# Whatever moves, each of the two lists is filled anew once, while it does not draw, and is told
# nothing else for each name.
test_long_lists_move_in_bulk() {
    (cd "$work" && exec "$wine_run" "$gallery" lists result 1000) \
        >"$work/gallery.log" 2>&1 </dev/null || fail "status $?: $(cat "$work/gallery.log")"
    # The step, the list, how often filled, with how many names, how many of them drawn at once, and
    # how far it scrolls: 29 characters.
    printf '%s\n' 'listed lstFiles 1 1000 0 2900' 'listed lstChosen 0 0 0 0' \
        'half lstFiles 1 500 0 2900' 'half lstChosen 1 500 0 2900' \
        'all lstFiles 1 0 0 0' 'all lstChosen 1 1000 0 2900' \
        'back lstFiles 1 1000 0 2900' 'back lstChosen 1 0 0 0' |
        cmp -s - <(cut -d' ' -f1-6 "$work/result") || fail "the lists were told: $(cat "$work/result")"
    awk '$7 > 40 { exit 1 }' "$work/result" || fail "too many messages: $(cat "$work/result")"
}

run_all_tests() {
    set_resolution 96
    choose_tests
    for test_name in "${chosen[@]}"; do
        say "$test_name"
        "$test_name"
    done
    for test_name in 144 192; do
        say "pictures at $test_name dpi"
        set_resolution "$test_name"
        open_controls
        grep -qx 'window 12735 8460' "$work/layout" || fail "$(grep window "$work/layout")"
        click cell12
        picture_of "$dialog" "controls-${test_name}dpi"
        close_controls
    done
    say "all passed; pictures are in $pictures"
}
