# Sourced by run.sh: a screen of its own, programs on it, and hands for mouse and keyboard.
# Wants $build (the build folder), $here, $suite, $gallery and $pictures.

# A prefix for each suite: they may run side by side.
export TARNWICK_WINE_BUILD=$build/window/$suite
wine_run=$here/../../cmake/wine-run
work=$TARNWICK_WINE_BUILD/work
drive=$TARNWICK_WINE_BUILD/wine/drive_c
wineserver=$(command -v wineserver || echo /usr/lib/wine/wineserver)

say() { echo "run.sh: $*"; }
fail() {
    say "FAILED in ${test_name:-start-up}: $*" >&2
    import -window root "$work/failed.png" 2>/dev/null && say "see $work/failed.png" >&2
    exit 1
}

open_screen() {
    rm -rf "$work"
    mkdir -p "$work"
    # Xvfb takes a free number and tells it.
    Xvfb -displayfd 3 -screen 0 1800x1200x24 -nolisten tcp 3>"$work/display" \
        >"$work/xvfb.log" 2>&1 </dev/null &
    xvfb=$!
    for _ in $(seq 50); do
        [ -s "$work/display" ] && break
        sleep 0.1
    done
    [ -s "$work/display" ] || fail "Xvfb does not start: $(cat "$work/xvfb.log")"
    DISPLAY=:$(cat "$work/display")
    export DISPLAY
    openbox >"$work/openbox.log" 2>&1 </dev/null &
    openbox=$!
    stop_wine # one left behind would look for the screen of an earlier run
}

close_screen() {
    [ -z "${gallery_pid:-}" ] || kill "$gallery_pid" 2>/dev/null || true
    stop_wine
    kill "$openbox" 2>/dev/null || true
    kill "$xvfb" 2>/dev/null || true
}

stop_wine() {
    WINEPREFIX=$TARNWICK_WINE_BUILD/wine "$wineserver" -k >/dev/null 2>&1 </dev/null || true
}

# The resolution that programs started from now on see.
set_resolution() {
    stop_wine
    "$wine_run" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f \
        >"$work/reg.log" 2>&1 </dev/null || fail "the resolution cannot be set"
    stop_wine
    dpi=$1
}

# Waits up to ten seconds for a window with that title; its id is then $found.
find_window() {
    for _ in $(seq 100); do
        found=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1 || true)
        [ -n "$found" ] && return 0
        sleep 0.1
    done
    return 1
}
expect_window() {
    find_window "$1" || fail "no window \"$1\""
    # A click or key may come only when the window manager is done with it.
    xdotool windowactivate --sync "$found" 2>/dev/null || true
    sleep 0.3
}
# It was there, and goes now.
expect_closed() {
    for _ in $(seq 50); do
        [ -n "$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null || true)" ] || return 0
        sleep 0.1
    done
    fail "the window \"$1\" stays"
}
expect_no_window() {
    sleep 0.7
    [ -z "$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null || true)" ] ||
        fail "unexpected window \"$1\""
}

# start_dialog options|help TITLE: its window is then $dialog.
start_dialog() {
    rm -f "$work/result" "$work/layout"
    xdotool mousemove 5 5 # nothing lights up under a mouse that nobody moves
    (cd "$work" && exec "$wine_run" "$gallery" "$1" result layout) \
        >"$work/gallery.log" 2>&1 </dev/null &
    gallery_pid=$!
    expect_window "$2"
    dialog=$found
    [ -s "$work/layout" ] || fail "$1 tells no layout"
}

# The dialog must be gone now, by itself and in good order.
expect_end() {
    for _ in $(seq 100); do
        kill -0 "$gallery_pid" 2>/dev/null || break
        sleep 0.1
    done
    kill -0 "$gallery_pid" 2>/dev/null && fail "the window is still there"
    wait "$gallery_pid" || fail "the gallery ended with status $?: $(cat "$work/gallery.log")"
    gallery_pid=
}
expect_open() {
    kill -0 "$gallery_pid" 2>/dev/null || fail "the window is gone"
}
expect_result() {
    grep -qxF -- "$1" "$work/result" || fail "no \"$1\" in: $(cat "$work/result")"
}

key() { xdotool key --clearmodifiers "$@"; sleep 0.3; }
type_text() { xdotool type --delay 15 -- "$1"; sleep 0.3; }

# move_to CONTROL [DOWN]: the mouse, to the middle of it in $dialog, or DOWN twips below that.
move_to() {
    local x y _
    read -r x y _ < <(sed -n "s/^$1 //p" "$work/layout") || fail "no control $1"
    xdotool mousemove --window "$dialog" $((x * dpi / 1440)) $(((y + ${2:-0}) * dpi / 1440))
    sleep 0.2
}
click() {
    move_to "$1"
    xdotool click 1
    sleep 0.5
}
# Another program takes the keyboard, and gives it back again.
go_to_another_program() {
    xev -name other >"$work/xev.log" 2>&1 </dev/null &
    other=$!
    expect_window other
}
come_back() {
    kill "$other"
    xdotool windowactivate --sync "$dialog"
    sleep 0.5
}
picture_of() { import -window "$1" "$pictures/$2.png" || fail "no picture $2"; }
