#!/bin/bash
# tests/window/run.sh BUILD_DIR [dialogs|controls]: works the dialogs, or one of every kind of
# control, in their real windows with mouse and keyboard, on a screen and in a Wine prefix of its
# own, and leaves pictures in BUILD_DIR/../screenshots.
set -euo pipefail

suite=${2:-dialogs}
case $#/$suite in
1/dialogs) gallery_name=dialog_gallery ;;
2/dialogs) gallery_name=dialog_gallery ;;
2/controls) gallery_name=controls_gallery ;;
*) echo "usage: $0 BUILD_DIR [dialogs|controls]" >&2; exit 2 ;;
esac
for tool in wine Xvfb openbox xdotool xev import flock; do
    command -v "$tool" >/dev/null || { echo "run.sh: $tool is missing" >&2; exit 127; }
done

here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
gallery=$build/tests/window/$gallery_name.exe
[ -e "$gallery" ] || { echo "run.sh: $gallery is not built" >&2; exit 2; }
pictures=$build/../screenshots
mkdir -p "$pictures"
pictures=$(cd "$pictures" && pwd)

# shellcheck source=screen.sh
. "$here/screen.sh"
# shellcheck disable=SC1090
. "$here/$suite.sh"

open_screen
trap close_screen EXIT
run_all_tests
