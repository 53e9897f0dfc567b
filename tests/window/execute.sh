# Sourced by run.sh: whole runs of the tools, and the batch files that the user keeps, in the
# program's own window.

export LC_ALL=C.UTF-8 # names with accents, and their bytes in the definition
# shellcheck source=execute_hands.sh
. "$here/execute_hands.sh"
# shellcheck source=execute_names.sh
. "$here/execute_names.sh"

test_1_both_tools_where_all_names_have_blanks_and_accents() {
    fresh
    set_temp 'passagère à moi'
    mkdir -p "$folder/mes données/entrée 1" "$folder/sorties é/mp" "$folder/sorties é/cns"
    cp "$here/../../demo/records/lakes.met" "$folder/mes données/entrée 1/café 1.met"
    cp "$here/../../demo/records/loose.met" "$folder/mes données/entrée 1/b.met"
    define 'Process CNS=1' 'Command Line Logging=True' 'Command Line Log Filename=run.log' \
        'Input Folder=C:\work\mes données\entrée 1' 'CNS Output Folder=C:\work\sorties é\cns' \
        'GRID_Leftovers=C:\work\sorties é\cns' 'GRID_Error=C:\work\sorties é\mp' \
        'GRID_Html=C:\work\sorties é\mp'
    launch_run
    press cmdOK
    expect_tool 1 0 'CNS - Processing b.met...'
    let_go 1
    expect_tool 2 0 'MP - Processing b.cns...'
    let_go 2
    expect_tool 3 50 'CNS - Processing café 1.met...'
    let_go 3
    expect_tool 4 50 'MP - Processing café 1.cns...'
    let_go 4
    expect_over Done!
    picture_of "$dialog" execute-done
    local in='C:\work\mes données\entrée 1' out='C:\work\sorties é'
    local logged=()
    for name in b 'café 1'; do
        logged+=("call \"C:\\work\\cns.exe\" -l en -e \"$out\\cns\\$name.lft\" -o \"$out\\cns\\$name.cns\" \"$in\\$name.met\"")
        logged+=("call \"C:\\work\\mp.exe\" -l en -e \"$out\\mp\\$name.err\" -h \"$out\\mp\\$name.html\" \"$out\\cns\\$name.cns\"")
        for file in cns/"$name".cns mp/"$name".err mp/"$name".html; do
            expect_made "$folder/sorties é/$file"
        done
    done
    expect_lines "$folder/mes données/entrée 1/run.log" "${logged[@]}"
    # The same work as a batch file, run by the interpreter without the program.
    mv "$folder/sorties é" "$folder/made by the run"
    mkdir -p "$folder/sorties é/mp" "$folder/sorties é/cns"
    press cmdCreateBatFile
    answer_file_dialog 'Save Batch File' 'C:\work\kept.bat'
    expect_message Tarnwick 'The batch file "C:\work\kept.bat" has been created.'
    grep -qE $'^REM Date Created:  .*[0-9]{4}.*, .*[0-9]+:[0-9]{2}:[0-9]{2}.*\r$' "$folder/kept.bat" ||
        fail "no date and time in $(cat "$folder/kept.bat")"
    tools_do work
    "$wine_run" cmd /c 'C:\work\kept.bat' >"$work/kept.log" 2>&1 </dev/null ||
        fail "the batch file: $(cat "$work/kept.log")"
    diff -r "$folder/made by the run" "$folder/sorties é" || fail 'the batch file makes other files'
    end_program
}

test_2_MP_alone_on_another_drive_with_links_between_folders() {
    fresh
    local other=$TARNWICK_WINE_BUILD/wine/drive_e/in
    rm -rf "$other"
    mkdir -p "$other"
    cp "$folder/records/a.met" "$other"
    define 'Input Folder=E:\in' 'Convert HyperLink To Relative Path=True' \
        'GRID_Html=C:\work\out\mp' 'GRID_Faq=C:\work\elsewhere'
    launch_run
    press cmdOK
    expect_tool 1 0 'MP - Processing a.met...'
    let_go 1
    expect_over Done!
    expect_made "$folder/out/mp/a.err"
    grep -qF 'HREF="../../elsewhere/a_faq.htm"' "$folder/out/mp/a.html" ||
        fail "the links are: $(grep HREF "$folder/out/mp/a.html")"
    [ "$(ls "$other")" = a.met ] || fail "left beside the record: $(ls "$other")"
    end_program
    rm -r "$other"
}

test_3_CNS_alone_on_a_network_folder() {
    fresh
    local share=$TARNWICK_WINE_BUILD/wine/dosdevices/unc/server/share
    mkdir -p "$share/my in"
    cp "$folder/records/a.met" "$share/my in"
    define 'Process MP=0' 'Process CNS=1' 'Input Folder=\\server\share\my in'
    launch_run
    press cmdOK
    expect_tool 1 0 'CNS - Processing a.met...'
    let_go 1
    expect_over Done!
    expect_made "$folder/out/cns/a.cns"
    end_program
    rm -r "$TARNWICK_WINE_BUILD/wine/dosdevices/unc/server"
}

test_4_a_configuration_file_that_names_the_outputs() {
    fresh
    lines input '  folder "C:\work\records"' output '  html C:\work\elsewhere' \
        '  error C:\work\elsewhere .report' '  info C:\work\elsewhere' >"$folder/mp.cfg"
    define 'Process CNS=1' 'Configuration File=C:\work\mp.cfg' 'GRID_Error=C:\nowhere'
    launch
    look
    expect_state chkCFG ticked
    press cmdSelectFiles2
    press cmdOK
    expect_tool 1 0 'CNS - Processing a.met...'
    let_go 1
    expect_tool 2 0 'MP - Processing a.met...'
    let_go 2
    expect_over Done!
    for file in a.html a.report; do expect_made "$folder/elsewhere/$file"; done
    end_program
}

test_5_the_window_is_alive_while_a_slow_tool_runs_and_cancel_leaves_it_to_itself() {
    fresh
    define
    launch_run
    press cmdOK
    expect_tool 1 0 'MP - Processing a.met...'
    expect_state cmdOK on
    picture_of "$dialog" execute-running
    for state in unticked ticked; do # it answers
        press chkMP
        look
        expect_state chkMP $state
    done
    expect_moves
    expect_repaints
    press cmdOK # a second time: nothing comes of it, as the number of tools will show
    press cmdCancel
    wait_until run_is_over
    # The button took the focus, and with it the status. The tool goes on with its batch, which
    # the interpreter holds until it is done.
    expect_ready
    expect_status ''
    expect_no_message
    [ ! -e "$temp/MPdone.tmp" ] || fail 'the tool cannot have ended yet'
    # What it leaves in the end is its own marker, and the next run clears that away. That one's
    # tool fails, which nobody asks about.
    let_go 1
    wait_until holds_only "$temp" MPdone.tmp
    expect_started 1
    tools_do wait fail
    press cmdOK
    expect_tool 2 0 'MP - Processing a.met...'
    let_go 2
    expect_over Done!
    expect_started 2
    end_program
}

test_6_a_tool_that_never_ends_is_waited_for_until_Escape() {
    fresh
    define
    # The system's own record of what the program asks of files shows when it looks for the marker.
    WINEDEBUG=trace+file TARNWICK_WINE_TALK=1 launch_run
    press cmdOK
    expect_tool 1 0 'MP - Processing a.met...'
    expect_three_looks
    expect_text cmdCancel Cancel
    key Escape
    wait_until run_is_over
    expect_ready
    expect_status 'MP - Processing a.met...' # no focus has moved
    holds_only "$temp" MPtmp.bat || holds_only "$temp" || # the tool's own, held
        fail "left: $(ls "$temp")"
    expect_no_message
    # The next run waits for that tool, whose interpreter would go on reading in its batch; it can be
    # cancelled like any other.
    press cmdOK
    expect_status 'Waiting for the tool of the cancelled run to end...'
    expect_text cmdCancel Cancel
    key Escape
    wait_until run_is_over
    expect_ready
    expect_started 1
    press cmdOK
    expect_status 'Waiting for the tool of the cancelled run to end...'
    let_go 1
    expect_tool 2 0 'MP - Processing a.met...'
    expect_three_looks
    expect_tool 2 0 'MP - Processing a.met...'
    let_go 2
    expect_over Done!
    expect_started 2
    end_program
}
looks_for_marker() { grep -c 'MPdone.tmp' "$work/program.log" || true; }
expect_three_looks() {
    local before
    before=$(looks_for_marker)
    wait_until has_looked $((before + 3))
}
has_looked() { [ "$(looks_for_marker)" -ge "$1" ]; }

test_7_a_record_and_a_tool_that_go_in_mid_run() {
    fresh
    cp "$folder/records/a.met" "$folder/records/b.met"
    cp "$folder/records/a.met" "$folder/records/c.met"
    define
    launch_run
    press cmdOK
    expect_tool 1 0 'MP - Processing a.met...'
    rm "$folder/records/b.met"
    let_go 1
    expect_tool 2 33 'MP - Processing b.met...' # it is told that there is no such record
    rm "$folder/mp.exe"
    let_go 2
    expect_over Done!
    expect_made "$folder/out/mp/a.err"
    expect_made "$folder/out/mp/b.err"
    [ ! -e "$folder/out/mp/c.err" ] || fail 'who made c.err?'
    # Now its location is asked for.
    press cmdOK
    expect_message Warning 'The MP executable file "C:\work\mp.exe" does not exist.'
    expect_window Options
    key Escape
    expect_message Warning 'The MP executable file "C:\work\mp.exe" does not exist.'
    expect_idle ''
    end_program
}

test_8_the_window_is_closed_during_a_run() {
    fresh
    define
    launch_run
    press cmdOK
    expect_tool 1 0 'MP - Processing a.met...'
    key alt+F4
    expect_end
    [ -z "$(process_of_program)" ] || fail 'the program still runs'
    let_go 1 # the batch has been left to itself
    wait_until holds_only "$temp" MPdone.tmp
    # By the menu, with something to save.
    launch_run
    press chkfixdoc
    press cmdOK
    expect_tool 2 0 'MP - Processing a.met...'
    menu f x
    expect_window Tarnwick
    key alt+n
    expect_end
    let_go 2
    wait_until holds_only "$temp" MPdone.tmp
}

test_9_the_temporary_folder_becomes_unwritable() {
    fresh
    tools_do wait
    define 'Process CNS=1'
    launch_run
    press cmdOK
    expect_tool 1 0 'CNS - Processing a.met...'
    chmod a-w "$temp/MPtmp.bat" # MP's cannot take its place
    let_go 1
    expect_window Tarnwick
    chmod u+w "$temp/MPtmp.bat" # it is cleared away behind the message
    expect_message Tarnwick 'frmMain - Private Sub cmdOK_Click()'
    expect_over 'CNS - Processing a.met...'
    expect_started 1
    # Not there at all.
    rm -r "$temp"
    press cmdOK
    expect_message Tarnwick 'frmMain - Private Sub ProcessAndWait()'
    expect_ready
    expect_status 'CNS - Processing a.met...'
    # In the midst: the marker of the first tool never comes, which is told.
    mkdir "$temp"
    press cmdOK
    expect_tool 2 0 'CNS - Processing a.met...'
    mv "$temp" "$temp.away"
    let_go 2
    expect_message Tarnwick 'frmMain - Private Sub ProcessAndWait()'
    expect_ready
    expect_status 'CNS - Processing a.met...'
    expect_started 2
    # What was made before has gone with the folder.
    holds_only "$temp.away" MPtmp.bat || fail "left: $(ls "$temp.away")"
    rm -rf "$temp.away"
    mkdir "$temp"
    press cmdOK
    for tool in 3 4; do let_go $tool; done
    wait_until has_started 4
    expect_over Done!
    end_program
}

test_10_the_log_becomes_unwritable() {
    fresh
    tools_do wait
    cp "$folder/records/a.met" "$folder/records/b.met"
    define 'Command Line Logging=True' 'Command Line Log Filename=run.log'
    trap '' XFSZ # the program, which inherits that, is refused by the system rather than ended
    launch_run
    trap - XFSZ
    press cmdOK
    expect_tool 1 0 'MP - Processing a.met...'
    local log=$folder/records/run.log first
    first=$(cat "$log")
    prlimit --pid "$(process_of_program)" --fsize="$(stat -c %s "$log"):" || fail 'no limit'
    let_go 1
    expect_message Tarnwick 'frmMain - Private Sub cmdOK_Click()'
    expect_over 'MP - Processing b.met...' # no second message
    expect_started 1
    [ "$(cat "$log")" = "$first" ] || fail "the log holds: $(cat "$log")"
    end_program
}

test_11_what_keeps_a_run_from_starting() {
    fresh
    mkdir "$folder/records/run.log"
    define 'Command Line Logging=True' 'Command Line Log Filename=run.log'
    launch_run
    press cmdOK
    expect_message Tarnwick 'frmMain - Private Sub cmdOK_Click()'
    expect_idle ''
    rmdir "$folder/records/run.log"
    echo old >"$folder/records/run.log"
    chmod a-w "$folder/records/run.log"
    press cmdOK
    expect_message Tarnwick 'frmMain - Private Sub cmdOK_Click()'
    expect_idle ''
    [ "$(cat "$folder/records/run.log")" = old ] || fail 'the log was written'
    # A record is no log.
    end_program
    define 'Command Line Logging=True' 'Command Line Log Filename=A.MET'
    launch_run
    press cmdOK
    expect_message Tarnwick 'the command log would replace the record "C:\work\records\A.MET"'
    expect_idle ''
    [ "$(cat "$folder/records/a.met")" = 'Title: a' ] || fail 'the record was replaced'
    # The folder that is wrong is open for editing.
    rm -r "$folder/out/mp"
    press cmdOK
    expect_message Warning 'The "C:\work\out\mp" folder does not exist.'
    expect_idle ''
    expect_state txtEdit shown focus
    expect_text txtEdit 'C:\work\out\mp'
    picture_of "$dialog" execute-bad-folder
    expect_state cmdEdit shown
    [ ! -e "$folder/out/mp/a.err" ] || fail 'a tool was run'
    end_program_asked
}

run_all_tests() {
    set_resolution 96
    choose_tests
    for test_name in "${chosen[@]}"; do
        say "$test_name ($SECONDS s)"
        "$test_name"
    done
    "$wine_run" reg delete 'HKCU\Environment' /v TEMP /f >"$work/reg.log" 2>&1 || true
    say "all passed in $SECONDS s; pictures are in $pictures"
}
