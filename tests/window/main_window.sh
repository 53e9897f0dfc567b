# Sourced by run.sh: what a user does with the program itself, and what must come of it: on the
# screen, in the files that are left and in the registry.

# shellcheck source=main_hands.sh
. "$here/main_hands.sh"
for part in definition grids fields keyboard losses start; do
    # shellcheck disable=SC1090
    . "$here/main_$part.sh"
done

# Fields are higher than their font needs, and the more so the finer the screen is.
texts_stand_in_the_middle_of_their_fields() {
    local above below
    launch_defined
    for name in txtCNS txtCNSExt txtInput txtInExt; do
        read -r above below < <(line_of $name | cut -d' ' -f11,12)
        [ $((above - below)) -ge -1 ] && [ $((above - below)) -le 1 ] ||
            fail "$above rows above $name and $below below it"
    done
    close_unchanged
}

the_icons_are_as_fine_as_the_screen() {
    launch_defined
    expect_icons 64 32
    close_unchanged
}

run_all_tests() {
    set_resolution 96
    forget_text_size
    chosen=()
    [ "${TARNWICK_ONLY:-}" = 192 ] || choose_tests
    for test_name in "${chosen[@]}"; do
        say "$test_name ($SECONDS s)"
        "$test_name"
    done
    if [ -z "${TARNWICK_ONLY:-}" ] || [ "$TARNWICK_ONLY" = 192 ]; then
        test_name='the test at 192 dpi'
        set_resolution 192
        texts_stand_in_the_middle_of_their_fields
        the_icons_are_as_fine_as_the_screen
    fi
    say "all passed in $SECONDS s"
}
