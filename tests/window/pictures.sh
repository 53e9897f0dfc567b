# Sourced by run.sh: leaves pictures of the program's windows, on the demo's definition and records.
# It looks at nothing: that is for people.

# shellcheck source=main_hands.sh
. "$here/main_hands.sh"

demo=$work/demo

lay_out_demo() {
    "$here/../../demo/run" "$build/.." lay-out "$demo" >"$work/demo.log" 2>&1 ||
        fail "no demo: $(cat "$work/demo.log")"
    printf 'output\r\n  html: one.html\r\n' >"$demo/mp.cfg"
    for tool in mp cns; do # where no INI file says it
        "$wine_run" reg add "$settings" /v "${tool^^} Executable" /d "T:\\tools\\$tool.exe" /f \
            >"$work/reg.log" 2>&1
    done
}

# start INI_FILE: the main window on that file, which need not be there.
start() {
    "$wine_run" reg add "$settings" /v 'INI File Name' /d "T:\\$1" /f >"$work/reg.log" 2>&1
    xdotool mousemove 5 5
    (cd "$demo" && exec "$wine_run" 'T:\Tarnwick.exe' "${@:2}") >"$work/program.log" 2>&1 </dev/null \
        8>&- 9>&- &
    gallery_pid=$!
}
start_main() {
    start "$1"
    title="Tarnwick - $1"
    expect_window "$title"
    dialog=$found
}
# With all records of the demo selected.
start_filled() {
    start_main demo.ini
    look
    press cmdSelectFiles2
    look
}
# The picture is of the main window when no other is named.
take() { picture_of "${2:-$dialog}" "$1$suffix"; }
# take_dialog PICTURE TITLE: of the dialog that is open now; Escape closes it.
take_dialog() {
    expect_window "$2"
    take "$1" "$found"
    key Escape
    expect_closed "$2"
}
end() {
    key alt+F4
    if find_now Tarnwick; then key alt+n; fi
    expect_end
}

take_main_window() {
    start_main fresh.ini
    take main-empty
    end
    start_filled
    take main-filled
    press_cell grdFiles 3 3
    take main-editor
    key Escape
}
# What only a few more clicks show.
take_other_states() {
    press chkCNS
    take main-cns-off
    press chkCNS
    press chkMP
    take main-mp-off
    press chkMP
    press chkCFG
    press cmdCFG
    answer_file_dialog 'Open Configuration File' 'T:\mp.cfg'
    look
    take main-config-names-output
    press chkCFG
}
take_dialogs() {
    menu t o
    take_dialog options Options
    press cmdInput
    expect_window 'Open Folder'
    take folder "$found"
    key alt+n
    take_dialog folder-new 'New Folder'
    key Escape
    expect_closed 'Open Folder'
    menu h a
    take_dialog about 'About Tarnwick'
    menu h t
    take_dialog warning Warning
}
take_system_dialogs() {
    press chkfixdoc # something to save
    menu f o
    expect_window Tarnwick
    take question "$found"
    key alt+n
    take_dialog open-file 'Open INI File'
    menu f a
    take_dialog save-file 'Save INI File As'
    press cmdAliases
    take_dialog aliases 'Open Aliases File'
    press chkCFG
    press cmdCFG
    take_dialog configuration 'Open Configuration File'
    press chkCFG
    press cmdCreateBatFile
    take_dialog save-batch 'Save Batch File'
}
take_command_line_help() {
    start demo.ini '?'
    take_dialog help 'Command Line Help on Tarnwick'
    wait "$gallery_pid" || true # it says that nothing was run
    gallery_pid=
}

run_all_tests() {
    lay_out_demo
    for resolution in 96 144 192; do
        test_name="the pictures at $resolution dpi"
        suffix=
        [ "$resolution" = 96 ] || suffix=-${resolution}dpi
        say "$test_name ($SECONDS s)"
        set_resolution "$resolution"
        take_main_window
        take_dialogs
        if [ "$resolution" = 96 ]; then
            take_system_dialogs
        fi
        take_other_states
        end
        take_command_line_help
    done
    say "the pictures are in $pictures ($SECONDS s)"
}
