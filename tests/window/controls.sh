# Sourced by run.sh: what a user does with each kind of control, and what must come of it.

# expect_event LINE: the gallery tells of it, soon.
expect_event() {
    for _ in $(seq 20); do
        grep -qxF -- "$1" "$work/result" && return 0
        sleep 0.1
    done
    fail "no \"$1\" in: $(tr '\n' '|' <"$work/result")"
}
expect_last() {
    sleep 0.3
    [ "$(tail -n 1 "$work/result")" = "$1" ] ||
        fail "not \"$1\" at the end of: $(tr '\n' '|' <"$work/result")"
}
open_controls() {
    start_dialog window Controls
}
close_controls() {
    key alt+F4
    expect_end
    expect_last Form_Unload
}

test_a_look() {
    open_controls
    picture_of "$dialog" controls
    close_controls
}

run_all_tests() {
    set_resolution 96
    for test_name in $(compgen -A function test_); do
        say "$test_name"
        "$test_name"
    done
}
