#!/bin/bash
# dist_test.sh BUILD_FOLDER: what `make dist` left in BUILD_FOLDER/dist is sound, installs itself
# silently into a folder with blanks, runs there, and leaves nothing behind but what is the user's.
# Under Wine, in a prefix of its own; needs a screen.
set -euo pipefail
umask 022 # the installer looks who may write
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
dist=$build/dist
# shellcheck source=../../cmake/eventually.sh
. "$here/../../cmake/eventually.sh"
wine=$here/../../cmake/wine-run
export TARNWICK_WINE_BUILD=$build/dist-test
drive=$TARNWICK_WINE_BUILD/wine/drive_c
work=$TARNWICK_WINE_BUILD/work
place='C:\Program Files\Map Room\Tarnwick'
folder="$drive/Program Files/Map Room/Tarnwick"

say() { echo "dist_test: $*"; }
fail() {
    say "FAILED: $*" >&2
    exit 1
}
trap '"$here/../../cmake/wine-stop"' EXIT
"$here/../../cmake/wine-stop" # what an earlier run that was cut short has left may hold files
rm -rf "$work" "$drive/Program Files/Map Room" # of an earlier run that failed
mkdir -p "$work"

The_sums_are_those_of_the_files() {
    (cd "$dist" && sha256sum --quiet -c SHA256SUMS && [ "$(wc -l <SHA256SUMS)" -eq 4 ])
}

The_program_is_smaller_than_two_megabytes() {
    [ "$(stat -c %s "$build/windows/Tarnwick.exe")" -lt 2000000 ]
}

The_zip_holds_the_programs_their_help_a_note_and_the_licences() {
    unzip -q -d "$work" "$dist"/Tarnwick-*.zip
    [ "$(cd "$work" && find Tarnwick -type f | LC_ALL=C sort | xargs)" = \
        "$(printf 'Tarnwick/%s ' CLI11-licence.txt JSON-licence.txt Tarnwick.chm Tarnwick.exe Tarnwick.txt)Tarnwick/tarnwick-run.exe" ] &&
        cmp "$work/Tarnwick/Tarnwick.exe" "$build/windows/Tarnwick.exe" &&
        cmp "$work/Tarnwick/tarnwick-run.exe" "$build/windows/tarnwick-run.exe" &&
        grep -q 'Copyright.*University of Cincinnati' "$work/Tarnwick/CLI11-licence.txt" &&
        grep -q 'Copyright (c) 20' "$work/Tarnwick/JSON-licence.txt" &&
        ! grep -qv "$(printf '\r')\$" "$work"/Tarnwick/*-licence.txt
}

The_help_holds_every_page_with_contents_and_index() {
    local page
    chmls list "$work/Tarnwick/Tarnwick.chm" >"$work/chm" 2>/dev/null
    for page in "$here"/../../docs/help/*.html "$here"/../../docs/help/pictures/*.png; do
        grep -q "/${page##*/}\$" "$work/chm" || fail "the help lacks ${page##*/}"
    done
    for page in help.css Tarnwick.hhc Tarnwick.hhk; do
        grep -q "/$page\$" "$work/chm" || fail "the help lacks $page"
    done
}

Packed_again_the_zip_has_the_same_bytes() {
    cp "$dist"/Tarnwick-*.zip "$work/first.zip"
    "$here/../../packaging/make-dist" "$build" >/dev/null || fail "cannot be packed again"
    cmp "$work/first.zip" "$dist"/Tarnwick-*.zip
}

# Every file and folder of the drive but what Wine itself keeps changing.
files() { (cd "$drive" && find . -path ./users/\*/Temp -prune -o -path ./windows -prune -o -print | LC_ALL=C sort); }
registered() { "$wine" reg query "$1\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Tarnwick" /s; }

# The search path of that part of the registry, as it stands there.
path_of() { # HIVE
    local key='HKCU\Environment'
    [ "$1" = HKCU ] || key='HKLM\System\CurrentControlSet\Control\Session Manager\Environment'
    ("$wine" reg query "$key" /v Path 2>/dev/null || true) | tr -d '\r' | sed -n 's/^ *[Pp][Aa][Tt][Hh] *REG_//p'
}

run_installer() { # SWITCH
    cp "$dist"/Tarnwick-*-setup.exe "$drive/setup.exe"
    # The folder comes last and without quotation marks, as the installer wants it.
    printf 'start /wait C:\\setup.exe /S %s /D=%s\r\n' "$1" "$place" >"$drive/install.bat"
    "$wine" cmd /c 'C:\install.bat' >"$work/install.log" 2>&1
    rm "$drive/setup.exe" "$drive/install.bat"
}

installs() { # HIVE SWITCH
    files >"$work/before"
    path_of "$1" >"$work/path"
    run_installer "$2"
    [ "${2%/PATH}" != "$2" ] || [ "$(path_of "$1")" = "$(cat "$work/path")" ] || fail "the path is $(path_of "$1")"
    [ "$(cd "$folder" && find . -type f | LC_ALL=C sort | xargs)" = \
        "./CLI11-licence.txt ./JSON-licence.txt ./Tarnwick.chm ./Tarnwick.exe ./Tarnwick.txt ./Uninstall.exe ./tarnwick-run.exe" ] || fail "$(ls "$folder")"
    cmp "$folder/Tarnwick.exe" "$build/windows/Tarnwick.exe" || fail "another program was installed"
    files >"$work/installed"
    grep -q 'Start Menu/Programs/Tarnwick/Tarnwick.lnk$' "$work/installed" || fail "not in the start menu"
    grep -q 'Start Menu/Programs/Tarnwick/Tarnwick Help.lnk$' "$work/installed" || fail "no help in the start menu"
    registered "$1" >"$work/registered" || fail "cannot be found among the programs"
    grep -qF "InstallLocation    REG_SZ    $place" "$work/registered" || fail "$(cat "$work/registered")"
    grep -q 'DisplayVersion    REG_SZ    2\.0\.0\.7' "$work/registered" || fail "$(cat "$work/registered")"
}

# Who has a file of the program's folder open, for the report.
holders() { ls -l /proc/[0-9]*/fd 2>/dev/null | grep -F "Map Room" || echo "nobody has a file of it open"; }

# uninstall SWITCH: as the uninstaller does it, which goes on from a copy of itself and tells the copy
# where to work. Begun by us, the copy can be waited for, and says how it ended.
uninstall() {
    local status=0
    cp "$folder/Uninstall.exe" "$drive/uninstall.exe"
    printf 'C:\\uninstall.exe %s /S _?=%s\r\nexit %%errorlevel%%\r\n' "$1" "$place" >"$drive/remove.bat"
    "$wine" cmd /c 'C:\remove.bat' >"$work/remove.log" 2>&1 || status=$?
    rm "$drive/remove.bat" "$drive/uninstall.exe"
    return $status
}

uninstalls() { # HIVE SWITCH
    mkdir -p "$folder/mine"
    echo 'Process MP=1' >"$folder/TARNWICK.ini"
    echo 'Process MP=1' >"$folder/mine/other.ini"
    grep -qF "QuietUninstallString    REG_SZ    \"$place\\Uninstall.exe\" $2 /S" "$work/registered" ||
        fail "$(cat "$work/registered")"
    uninstall "$2" || fail "the uninstaller ended with $?: $(cat "$work/remove.log"; holders)"
    [ "$(cd "$folder" && find . -type f | LC_ALL=C sort | xargs)" = "./TARNWICK.ini ./mine/other.ini" ] ||
        fail "the user's own files are not what is left: $(ls -R "$folder")"
    ! registered "$1" >/dev/null 2>&1 || fail "it is still found among the programs"
    rm -r "$drive/Program Files/Map Room"
    files >"$work/after"
    diff "$work/before" "$work/after" || fail "that is left"
}

Installed_for_the_user_it_runs_and_goes_without_a_trace() {
    installs HKCU /CurrentUser
    TARNWICK_PROGRAM="$place\\Tarnwick.exe" \
        "$here/../../demo/run" "$build" unattended "$work/demo" >"$work/demo.log" 2>&1 || fail "$(cat "$work/demo.log")"
    grep -q 'Tarnwick.exe -I' "$work/demo.log" || fail "$(cat "$work/demo.log")"
    "$wine" "$place\\tarnwick-run.exe" 'T:\demo.ini' >"$work/run.log" 2>&1 || fail "$(cat "$work/run.log")"
    grep -q '^16 made, 0 failed, 0 up to date' "$work/run.log" || fail "$(cat "$work/run.log")"
    the_window_opens
    a_file_that_cannot_be_replaced_leaves_the_old_version_whole
    uninstalls HKCU /CurrentUser
}

has_keyboard() { [ "$(xdotool getwindowfocus -f)" = "$1" ]; }

# While it is open, neither the installer nor the uninstaller may touch anything.
the_window_opens() {
    local window status
    "$wine" reg add 'HKCU\Software\Corvane\TARNWICK' /v 'INI File Name' /d 'T:\demo.ini' /f >/dev/null
    "$wine" "$place\\Tarnwick.exe" &
    program=$!
    eventually xdotool search --onlyvisible --name '^Tarnwick - demo\.ini$' >"$work/window" || fail "no window"
    window=$(head -n 1 "$work/window")
    cp "$dist"/Tarnwick-*-setup.exe "$drive/setup.exe"
    printf 'C:\\setup.exe /S /CurrentUser\r\nexit %%errorlevel%%\r\n' >"$drive/again.bat"
    status=0
    "$wine" cmd /c 'C:\again.bat' >"$work/again.log" 2>&1 || status=$?
    rm "$drive/setup.exe" "$drive/again.bat"
    [ $status -eq 2 ] || fail "installing over a running program ended with $status"
    status=0
    uninstall /CurrentUser || status=$?
    [ $status -eq 2 ] || fail "removing a running program ended with $status"
    [ -e "$folder/Uninstall.exe" ] && [ -e "$folder/Tarnwick.exe" ] || fail "a running program was removed"
    xdotool windowactivate --sync "$window"
    eventually has_keyboard "$window" || fail "the window does not get the keyboard"
    xdotool key alt+F4
    eventually has_ended "$program" || fail "the window does not close"
    wait $program || fail "the program ended with $?"
    "$wine" reg delete 'HKCU\Software\Corvane' /f >/dev/null
}

a_file_that_cannot_be_replaced_leaves_the_old_version_whole() {
    mv "$folder/Tarnwick.chm" "$work/kept.chm"
    mkdir "$folder/Tarnwick.chm"
    gives_up_and_changes_nothing "a file that is in use"
    rmdir "$folder/Tarnwick.chm"
    mv "$work/kept.chm" "$folder/Tarnwick.chm"
    # The last one cannot be written beside the old ones.
    mkdir -p "$folder/Tarnwick.new/Uninstall.exe"
    gives_up_and_changes_nothing "a file that cannot be written"
    rm -r "$folder/Tarnwick.new"
    # The last one cannot be moved aside: the others have been replaced by then.
    mkdir -p "$folder/Tarnwick.old/Uninstall.exe"
    gives_up_and_changes_nothing "a file that stays"
    rm -r "$folder/Tarnwick.old"
}
gives_up_and_changes_nothing() { # WHY
    local status=0
    echo old >"$folder/Tarnwick.txt"
    (cd "$folder" && find . -type f -exec sha256sum {} + -o -print | LC_ALL=C sort) >"$work/old"
    cp "$dist"/Tarnwick-*-setup.exe "$drive/setup.exe"
    printf 'C:\\setup.exe /S /CurrentUser\r\nexit %%errorlevel%%\r\n' >"$drive/again.bat"
    "$wine" cmd /c 'C:\again.bat' >"$work/again.log" 2>&1 || status=$?
    rm "$drive/setup.exe" "$drive/again.bat"
    [ $status -eq 2 ] || fail "installing over $1 ended with $status"
    (cd "$folder" && find . -type f -exec sha256sum {} + -o -print | LC_ALL=C sort) >"$work/now"
    diff "$work/old" "$work/now" || fail "the old version is not whole behind $1"
}

Installed_for_everybody_it_goes_without_a_trace() {
    installs HKLM /AllUsers
    event_source >"$work/source" || fail "the event log does not know it"
    grep -qF "EventMessageFile    REG_EXPAND_SZ    $place\\Tarnwick.exe" "$work/source" || fail "$(cat "$work/source")"
    uninstalls HKLM /AllUsers
    ! event_source >/dev/null 2>&1 || fail "the event log knows it still"
}
event_source() { "$wine" reg query 'HKLM\System\CurrentControlSet\Services\EventLog\Application\Tarnwick' /s; }

Its_folder_is_on_the_PATH_when_that_is_asked_for_and_off_it_afterwards() {
    local before long
    "$wine" reg delete 'HKCU\Environment' /v Path /f >/dev/null 2>&1 || true # of an earlier run that failed
    installs HKCU '/CurrentUser /PATH'
    [ "$(path_of HKCU)" = "EXPAND_SZ    $place" ] || fail "the path is $(path_of HKCU)"
    "$wine" cmd /c 'cd /d C:\ && tarnwick-run --version' >"$work/found" 2>&1 || fail "$(cat "$work/found")"
    grep -q '^tarnwick-run 2\.0\.0\.7' "$work/found" || fail "$(cat "$work/found")"
    uninstalls HKCU /CurrentUser
    [ -z "$(path_of HKCU)" ] || fail "the path is $(path_of HKCU)"

    # A path that is longer than a text of the installer can be.
    long='%SystemRoot%\one;'$(printf 'C:\\folder number %d;' $(seq 200))'C:\last'
    "$wine" reg add 'HKCU\Environment' /v Path /t REG_EXPAND_SZ /d "$long" /f >/dev/null
    [ "$(path_of HKCU)" = "EXPAND_SZ    $long" ] || fail "this system has no long path: $(path_of HKCU)"
    installs HKCU '/CurrentUser /PATH'
    [ "$(path_of HKCU)" = "EXPAND_SZ    $long;$place" ] || fail "the path is $(path_of HKCU)"
    run_installer /CurrentUser # who has it keeps it, once
    [ "$(path_of HKCU)" = "EXPAND_SZ    $long;$place" ] || fail "the path is $(path_of HKCU)"
    "$wine" reg add 'HKCU\Environment' /v Path /t REG_EXPAND_SZ /d "$long;$place;C:\later" /f >/dev/null
    uninstalls HKCU /CurrentUser
    [ "$(path_of HKCU)" = "EXPAND_SZ    $long;C:\later" ] || fail "the path is $(path_of HKCU)"

    # Who has put it there himself keeps it, and without being asked nothing is put there.
    "$wine" reg add 'HKCU\Environment' /v Path /t REG_SZ /d "$place;C:\own" /f >/dev/null
    installs HKCU '/CurrentUser /PATH'
    uninstalls HKCU /CurrentUser
    [ "$(path_of HKCU)" = "SZ    $place;C:\own" ] || fail "the path is $(path_of HKCU)"
    "$wine" reg delete 'HKCU\Environment' /v Path /f >/dev/null

    before=$(path_of HKLM)
    [ -n "$before" ] || fail "the machine has no path"
    installs HKLM '/AllUsers /PATH'
    [ "$(path_of HKLM)" = "$before;$place" ] || fail "the path is $(path_of HKLM)"
    [ -z "$(path_of HKCU)" ] || fail "the user's path is $(path_of HKCU)"
    uninstalls HKLM /AllUsers
    [ "$(path_of HKLM)" = "$before" ] || fail "the path is $(path_of HKLM)"
}

# Where others may write, nothing is installed for everybody unless somebody says so.
Ordinary_users_cannot_have_written_what_is_installed_for_everybody() {
    local room="$drive/Program Files/Map Room"
    mkdir -p "$folder"
    chmod 777 "$folder"
    is_refused "$place" "a folder that anybody may write into"
    [ -z "$(ls -A "$folder")" ] || fail "written: $(ls -A "$folder")"
    rmdir "$folder"
    chmod 777 "$room"
    is_refused "$place\\new" "a folder that anybody may replace"
    [ -z "$(ls -A "$room")" ] || fail "left: $(ls -AR "$room")"
    rmdir "$room"
    ! registered HKLM >/dev/null 2>&1 || fail "registered all the same"
}
is_refused() { # FOLDER WHAT
    local status=0
    cp "$dist"/Tarnwick-*-setup.exe "$drive/setup.exe"
    printf 'C:\\setup.exe /S /AllUsers /D=%s\r\nexit %%errorlevel%%\r\n' "$1" >"$drive/install.bat"
    "$wine" cmd /c 'C:\install.bat' >"$work/install.log" 2>&1 || status=$?
    rm "$drive/setup.exe" "$drive/install.bat"
    [ $status -eq 2 ] || fail "installing for everybody into $2 ended with $status"
}

"$wine" cmd /c exit # makes the prefix when there is none yet
for test in \
    The_sums_are_those_of_the_files \
    The_program_is_smaller_than_two_megabytes \
    The_zip_holds_the_programs_their_help_a_note_and_the_licences \
    The_help_holds_every_page_with_contents_and_index \
    Packed_again_the_zip_has_the_same_bytes \
    Installed_for_the_user_it_runs_and_goes_without_a_trace \
    Installed_for_everybody_it_goes_without_a_trace \
    Its_folder_is_on_the_PATH_when_that_is_asked_for_and_off_it_afterwards \
    Ordinary_users_cannot_have_written_what_is_installed_for_everybody; do
    "$test" || fail "$test"
    say "passed: $test"
done
