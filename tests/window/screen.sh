# Sourced by run.sh: programs on the screen, and hands for mouse and keyboard.
# Wants $build (the build folder), $here, $suite, $gallery and $pictures.
#
# Nothing here waits for a time alone. What a hand has done, the program has dealt with when the hand
# returns; what takes its own time (a tool, a file, the program's end) is looked for until it is there.

# shellcheck source=../../cmake/eventually.sh
. "$here/../../cmake/eventually.sh"
wine_run=$here/../../cmake/wine-run
probe=$build/tests/window/window_probe.exe
work=$TARNWICK_WINE_BUILD/work
drive=$TARNWICK_WINE_BUILD/wine/drive_c
patience=${TARNWICK_PATIENCE:-120} # in seconds, as in eventually.sh
mark=F11
side=3 # of a control's middle, in turns: two clicks on one point would be a double click

say() { echo "run.sh: $*"; }
fail() {
    say "FAILED in ${test_name:-start-up}: $*" >&2
    import -window root "$work/failed.png" 2>/dev/null && say "see $work/failed.png" >&2
    exit 1
}
# The tests that are to be run are then in the array "chosen": all, or those whose name holds
# $TARNWICK_ONLY, of which there must be one.
choose_tests() {
    mapfile -t chosen < <(compgen -A function test_ | sort -V | grep -E -- "${TARNWICK_ONLY:-}")
    [ ${#chosen[@]} -gt 0 ] || fail "no test is called \"$TARNWICK_ONLY\""
}
wait_until() { eventually "$@" || fail "in vain: $*"; }

stop_wine() {
    "$here/../../cmake/wine-stop"
    [ -z "${probe_pid:-}" ] || wait "$probe_pid" 2>/dev/null || true
    probe_pid=
}

# The resolution that programs started from now on see.
set_resolution() {
    dpi=$1
    stop_wine
    ! grep -qix "\"LogPixels\"=dword:$(printf %08x "$1")" "$TARNWICK_WINE_BUILD/wine/user.reg" \
        2>/dev/null || return 0
    "$wine_run" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f \
        >"$work/reg.log" 2>&1 </dev/null || fail "the resolution cannot be set"
    stop_wine
}

# Whoever looks at the windows stays, and is asked through two pipes.
start_probe() {
    rm -f "$work/questions" "$work/answers"
    mkfifo "$work/questions" "$work/answers"
    exec 8<>"$work/questions" 9<>"$work/answers"
    TARNWICK_WINE_TALK=1 "$wine_run" "$probe" serve <&8 >&9 2>"$work/probe.log" &
    probe_pid=$!
}
# ask REQUEST [TITLE]: the lines of the answer are then in the array "answer"; see window_probe.cpp.
ask() {
    local line
    [ -n "${probe_pid:-}" ] && kill -0 "$probe_pid" 2>/dev/null || start_probe
    printf '%s\t%s\n' "$1" "${2:-}" >&8
    answer=()
    while IFS= read -r -t "$patience" line <&9; do
        [ "$line" != . ] || return 0
        answer+=("$line")
    done
    fail "nobody answers: $1 ${2:-} ($(cat "$work/probe.log"))"
}
answers_yes() { ask "$@" && [ "${answer[0]}" = yes ]; }

# act WORD...: xdotool does that, and the program has dealt with it. Behind it goes a key that the
# program never sees; it has come when all before it has. With no word: the program has dealt with all
# that there was.
act() {
    if [ $mark = F11 ]; then mark=F12; else mark=F11; fi
    xdotool "$@" key $mark
    eventually has_settled || fail "it does not come to rest after $*"
}
# The keyboard is then where the program thinks it is: what is sent next arrives. A program that has
# ended has dealt with everything.
has_settled() {
    ask settled $mark
    [ "${answer[0]}" != "yes $(xdotool getwindowfocus -f 2>/dev/null)" ] || return 0
    ! program_has_ended || return 0
    case ${answer[0]} in
    no) xdotool key $mark ;;
    'yes 0') ;;
    # On a busy machine the window manager may leave a new window without the keyboard: the one
    # before it was still closing. A person clicks on it.
    *) xdotool windowactivate "${answer[0]#yes }" 2>/dev/null || true ;;
    esac
    return 1
}
program_has_ended() { has_ended "${gallery_pid:-0}"; }

# Of a Windows program: shown, and the keyboard is in it. Its id on the screen is then $found.
expect_window() {
    eventually is_in_front "$1" || fail "no window \"$1\""
    act
}
is_in_front() {
    found=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1) || true
    [ -n "$found" ] || return 1
    has_keyboard "$found" || xdotool windowactivate "$found" 2>/dev/null || true
    answers_yes front "$1"
}
has_keyboard() { [ "$(xdotool getwindowfocus -f 2>/dev/null)" = "$1" ]; }
# How many windows with that title there are.
count_windows() { ask count "$1" && echo "${answer[0]}"; }
find_now() { ask count "$1" && [ "${answer[0]}" != 0 ]; }
is_gone() { ! find_now "$1"; }
# It was there, and goes now.
expect_closed() { eventually is_gone "$1" || fail "the window \"$1\" stays"; }
expect_no_window() {
    ask idle
    is_gone "$1" || fail "unexpected window \"$1\""
}

# start_dialog options|help TITLE: its window is then $dialog.
start_dialog() {
    rm -f "$work/result" "$work/layout"
    xdotool mousemove 5 5 # nothing lights up under a mouse that nobody moves
    (cd "$work" && exec "$wine_run" "$gallery" "$1" result layout) \
        >"$work/gallery.log" 2>&1 </dev/null 8>&- 9>&- &
    gallery_pid=$!
    title=$2
    expect_window "$title"
    dialog=$found
    [ -s "$work/layout" ] || fail "$1 tells no layout"
}

# The dialog must be gone now, by itself and in good order.
expect_end() {
    eventually program_has_ended || fail "the window is still there"
    wait "$gallery_pid" || fail "the gallery ended with status $?: $(cat "$work/gallery.log")"
    gallery_pid=
}
expect_open() {
    ! program_has_ended || fail "the window is gone"
}
expect_result() {
    grep -qxF -- "$1" "$work/result" || fail "no \"$1\" in: $(cat "$work/result")"
}

# Each key by itself: the one before it may have moved the focus.
key() {
    local each
    for each in "$@"; do act key --clearmodifiers "$each"; done
}
type_text() {
    xdotool type --delay 4 -- "$1"
    act
}

# move_to CONTROL [DOWN]: the mouse, to the middle of it in $dialog, or DOWN twips below that.
move_to() {
    local x y _
    read -r x y _ < <(sed -n "s/^$1 //p" "$work/layout") || fail "no control $1"
    side=$((-side))
    act mousemove --window "$dialog" $((x * dpi / 1440 + side)) $(((y + ${2:-0}) * dpi / 1440))
}
click() {
    move_to "$1"
    act click 1
}
# Another program takes the keyboard, and gives it back again.
go_to_another_program() {
    show_foreign_window other
    other=$foreign
    eventually answers_yes away || fail 'the program does not notice it'
    ask idle
}
# A window that is none of Wine's; the process is then $foreign.
show_foreign_window() {
    xev -name "$1" "${@:2}" >"$work/xev.log" 2>&1 </dev/null 8>&- 9>&- &
    foreign=$!
    eventually foreign_window_is_in_front "$1" || fail "no window \"$1\""
}
foreign_window_is_in_front() {
    found=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1) || true
    [ -n "$found" ] || return 1
    has_keyboard "$found" || { xdotool windowactivate "$found" 2>/dev/null; return 1; }
}
come_back() {
    kill "$other"
    xdotool windowactivate --sync "$dialog"
    act
}
# The icons that the screen has of the window, as numbers: each is its width, its height and its pixels.
icons_on_screen() {
    xprop -id "$dialog" -len 1000000 -notype -f _NET_WM_ICON 32x ' $0+\n' _NET_WM_ICON |
        grep -o '0x[0-9a-f]*' | sed 's/^0x//'
}
# The program's own of that size.
icon_in_resources() {
    local logo=$here/../../src/app/resources/logo.ico at
    printf '%x\n%x\n' "$1" "$1"
    at=$(identify -format '%p %w\n' "$logo" | sed -n "s/ $1\$//p")
    convert "${logo}[$at]" -depth 8 bgra:- | od -An -v -tx4 -w4 | sed 's/^ *0*\(.\)/\1/'
}
bears_icons() {
    for size in "$@"; do icon_in_resources "$size"; done >"$work/icons.expected"
    icons_on_screen >"$work/icons.shown"
    cmp -s "$work/icons.expected" "$work/icons.shown"
}
# The icons in the title and where the user switches between windows.
expect_icons() {
    eventually bears_icons "$@" || fail "the window has not the program's icons of $* pixels"
}
picture_of() { import -window "$1" "$pictures/$2.png" || fail "no picture $2"; }
# Of records and folders: they look like something else in the system's code page.
deceiving_names=('＂&md pwned&＂.met' 'x＼..＼..＼w.met' 'p％OS％.met' '＊.met' '＞.met' 'ā.met' 'Жук.met')
