# Sourced by main_window.sh: how the program begins and ends.

test_a_missing_tool_is_asked_for() {
    lay_out_work
    definition 0 0 >"$folder/TARNWICK.ini"
    rm "$folder/mp.exe"
    launch Warning # only MP: not given, and so the end
    expect_message Warning 'Please specify the MP executable location.'
    expect_window Options
    key Escape
    expect_end
    # Both missing: after the first one nobody is asked for the second.
    rm "$folder/cns.exe"
    definition 1 0 >"$folder/TARNWICK.ini"
    launch Warning
    expect_message Warning 'Please specify the MP executable location.'
    expect_window Options
    key Escape
    expect_end
    expect_no_window Warning
    expect_stored 'INI File Name' '' # such an end keeps nothing
    # Only CNS.
    definition 1 0 | sed 's/Process MP=1/Process MP=0/' >"$folder/TARNWICK.ini"
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

test_a_vanished_and_a_read_only_file() {
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

# Its tool lies beside it: the stored place is not even used, and told all the same.
test_a_stored_path_that_has_no_name_is_told_once_at_the_start() {
    lay_out_work
    definition 1 0 "${plain_products[@]}" >"$folder/TARNWICK.ini"
    printf '%s\r\n' 'Windows Registry Editor Version 5.00' '' '[HKEY_CURRENT_USER\Software\Corvane\TARNWICK]' \
        '"MP Executable"="C:\\Жук\\mp.exe"' | iconv -f UTF-8 -t UTF-16 >"$folder/stored.reg"
    "$wine_run" regedit /S 'C:\work\stored.reg' >"$work/reg.log" 2>&1
    launch Warning
    expect_message Warning \
        'The path "C:\<U+0416><U+0443><U+043A>\mp.exe" is left out: its name has no place in the system'"'s code page."
    title='Tarnwick - TARNWICK.ini'
    expect_window "$title"
    dialog=$found
    expect_no_window Warning
    close_unchanged
    expect_stored 'MP Executable' 'C:\work\mp.exe'
}

# Nothing wakes it then but the message itself, which does not come through the queue.
test_another_program_closes_it_while_it_is_in_the_background() {
    for way in '0x10 0 0' '0x16 1 0'; do # WM_CLOSE and WM_ENDSESSION
        launch_defined
        go_to_another_program
        # shellcheck disable=SC2086
        send_message "$title" $way >"$work/answer"
        expect_end
        kill "$other"
    done
}

test_it_does_not_close_under_a_dialog() {
    launch_defined
    menu t o
    expect_window Options
    send_message "$title" 0x10 0 0 >"$work/answer" # WM_CLOSE
    ask idle
    find_now "$title" || fail 'the window has closed under its dialog'
    find_now Options || fail 'the dialog is gone'
    key Escape
    expect_closed Options
    look
    press chkfixdoc
    key alt+F4
    expect_window Tarnwick
    send_message "$title" 0x11 0 0 >"$work/answer" # WM_QUERYENDSESSION: nobody is asked again
    [ "$(count_windows Tarnwick)" = 1 ] || fail "$(count_windows Tarnwick) questions"
    key alt+n
    expect_end
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
}

test_the_about_box_is_centred_over_the_main_window_wherever_that_is() {
    lay_out_work
    launch
    xdotool windowmove --sync "$dialog" 150 90
    act
    menu h a
    expect_window 'About Tarnwick'
    local main about
    main=$(middle_of "$dialog")
    about=$(middle_of "$found")
    for side in 1 2; do
        local distance=$(($(cut -d' ' -f$side <<<"$main") - $(cut -d' ' -f$side <<<"$about")))
        [ ${distance#-} -le 12 ] || fail "the middles are $main and $about"
    done
    key Escape
    expect_closed 'About Tarnwick'
    close_unchanged
}
# Of a window, on the screen.
middle_of() {
    local X Y WIDTH HEIGHT _
    eval "$(xdotool getwindowgeometry --shell "$1" | grep -E '^(X|Y|WIDTH|HEIGHT)=')"
    echo $((X + WIDTH / 2)) $((Y + HEIGHT / 2))
}

test_the_window_bears_the_programs_icon_in_the_title_and_where_windows_are_switched() {
    launch_defined
    expect_icons 32 16
    close_unchanged
}

test_a_quick_second_click_is_a_click() {
    launch_defined
    press chkfixdoc
    press chkfixdoc
    act click 1
    look
    expect_state chkfixdoc ticked
    act click --repeat 2 --delay 0 1
    look
    expect_state chkfixdoc ticked
    press cmdOutputFolder
    expect_window 'Open Folder'
    key Escape
    expect_closed 'Open Folder'
    act click 1
    expect_window 'Open Folder'
    key Escape
    expect_closed 'Open Folder'
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}

# launch_above HEIGHT: on a screen with a taskbar of that height, which is then $taskbar.
launch_above() {
    stop_wine # it looks once how much of the screen there is
    show_foreign_window taskbar
    taskbar=$foreign
    xprop -id "$found" -f _NET_WM_STRUT 32c -set _NET_WM_STRUT "0, 0, 0, $1"
    eventually work_area_ends_at $((1200 - $1)) || fail 'the screen knows no taskbar'
    launch_defined
}
work_area_ends_at() { xprop -root _NET_WORKAREA | grep -q " = 0, 0, 1800, $1,"; }
close_above() {
    close_unchanged
    kill "$taskbar"
    stop_wine
}
ends_at() { ask place "$title" && [ "${answer[0]##* }" = "$1" ]; }

test_the_window_stands_on_the_taskbar_and_not_behind_it() {
    launch_above 400
    eventually ends_at 800 || fail "it lies at ${answer[0]}"
    picture_of root main-above-taskbar
    close_above
}

# What the user's text size, 225 per cent of the usual one, makes of the system's title and menu bar.
enlarge_text() {
    local metrics='HKCU\Control Panel\Desktop\WindowMetrics' name
    for name in CaptionHeight MenuHeight; do
        "$wine_run" reg add "$metrics" /v $name /t REG_SZ /d -615 /f >"$work/reg.log" 2>&1 # 41 pixels
    done
    for name in CaptionFont MenuFont; do # 27 pixels high, of the usual weight
        "$wine_run" reg add "$metrics" /v $name /t REG_BINARY /d \
            "e5ffffff$(printf '%024d' 0)90010000$(printf '%016d' 0)$(printf Tahoma | iconv -t utf-16le |
                od -An -v -tx1 | tr -d ' \n')$(printf '%0104d' 0)" /f >"$work/reg.log" 2>&1
    done
    stop_wine # it looks once
}
# A run that has failed may have left it.
forget_text_size() {
    grep -q '"MenuHeight"="-615"' "$TARNWICK_WINE_BUILD/wine/user.reg" 2>/dev/null || return 0
    "$wine_run" reg delete 'HKCU\Control Panel\Desktop\WindowMetrics' /f >"$work/reg.log" 2>&1
    stop_wine
}

test_with_large_letters_in_title_and_menu_everything_has_its_place() {
    local top height list_top list_height _
    enlarge_text
    launch_defined
    picture_of root main-large-text
    read -r _ list_top _ list_height _ < <(line_of lstAvailable)
    [ "$list_height" -lt 107 ] || fail "the lists are $list_height pixels high: nothing is large"
    for number in 1 2 3 4; do
        read -r _ top _ height _ < <(line_of cmdSelectFiles$number)
        [ "$top" -ge "$list_top" ] && [ $((top + height)) -le $((list_top + list_height)) ] ||
            fail "button $number is at $top, $height high; the lists at $list_top, $list_height high"
    done
    read -r _ top _ < <(line_of StatusBar1)
    [ $((list_top + list_height)) -lt "$top" ] || fail 'the status bar covers the lists'
    close_unchanged
    forget_text_size
}
