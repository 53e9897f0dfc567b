#!/bin/bash
# tests/window/run.sh BUILD_DIR [dialogs|controls|main|execute|pictures]: works the dialogs, one of
# every kind of control, the program itself, or whole runs in it, in their real windows with mouse and
# keyboard, on a screen and in a Wine prefix of its own. Pictures are left in
# BUILD_DIR/../screenshots; "pictures" leaves those of the whole program and does nothing else.
set -euo pipefail

suite=${2:-dialogs}
case $#/$suite in
[12]/dialogs) program=tests/window/dialog_gallery.exe ;;
2/controls) program=tests/window/controls_gallery.exe ;;
2/main | 2/execute | 2/pictures) program=Tarnwick.exe ;;
*) echo "usage: $0 BUILD_DIR [dialogs|controls|main|execute|pictures]" >&2; exit 2 ;;
esac
for tool in wine xdotool xev xprop import compare convert identify flock prlimit; do
    command -v "$tool" >/dev/null || { echo "run.sh: $tool is missing" >&2; exit 127; }
done

here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
gallery=$build/$program
[ -e "$gallery" ] || { echo "run.sh: $gallery is not built" >&2; exit 2; }
pictures=$build/../screenshots
mkdir -p "$pictures"
pictures=$(cd "$pictures" && pwd)

# A prefix and a screen for each suite: they may run side by side.
export TARNWICK_WINE_BUILD=$build/window/$suite
[ -n "${TARNWICK_SUITE_SCREEN:-}" ] ||
    exec env TARNWICK_SUITE_SCREEN=own "$here/../../cmake/on-virtual-screen" "$0" "$@"

# shellcheck source=screen.sh
. "$here/screen.sh"
# shellcheck disable=SC1090
. "$here/${suite/%main/main_window}.sh"

rm -rf "$work"
mkdir -p "$work"
run_all_tests
