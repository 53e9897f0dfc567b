#!/bin/bash
# tests/window/run.sh BUILD_DIR: works the dialogs in their real windows with mouse and keyboard,
# on a screen and in a Wine prefix of its own, and leaves pictures in BUILD_DIR/../screenshots.
set -euo pipefail

if [ $# -ne 1 ]; then echo "usage: $0 BUILD_DIR" >&2; exit 2; fi
for tool in wine Xvfb openbox xdotool xev import flock; do
    command -v "$tool" >/dev/null || { echo "run.sh: $tool is missing" >&2; exit 127; }
done

here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
gallery=$build/tests/window/dialog_gallery.exe
[ -e "$gallery" ] || { echo "run.sh: $gallery is not built" >&2; exit 2; }
pictures=$build/../screenshots
mkdir -p "$pictures"
pictures=$(cd "$pictures" && pwd)

# shellcheck source=screen.sh
. "$here/screen.sh"
# shellcheck source=dialogs.sh
. "$here/dialogs.sh"

open_screen
trap close_screen EXIT
run_all_tests
