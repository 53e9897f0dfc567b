#!/bin/bash
# linux_dist_test.sh BUILD_FOLDER: the packages for Linux that `make dist` left in BUILD_FOLDER/dist install
# themselves, run from there, and leave nothing behind. The .deb goes into a folder that has a package
# database of its own: what is installed on this machine is nobody's test.
set -euo pipefail
umask 022
export LC_ALL=C.UTF-8 PATH="$PATH:/usr/sbin:/sbin" # where dpkg looks for ldconfig
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
dist=$build/dist
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config # not the drives of whoever runs this
unset TARNWICK_DRIVES
root=$work/root # that the .deb is installed below

say() { echo "linux_dist_test: $*"; }
fail() {
    say "FAILED: $*" >&2
    exit 1
}

contents="bin/tarnwick-run
share/bash-completion/completions/tarnwick-run
share/doc/tarnwick-run/README
share/doc/tarnwick-run/cluster/README
share/doc/tarnwick-run/cluster/tarnwick.sbatch
share/doc/tarnwick-run/cluster/tarnwick.submit
share/doc/tarnwick-run/copyright
share/man/man1/tarnwick-run.1"

options() { grep -o -- '--[a-z][a-z-]*' | LC_ALL=C sort -u; }

# The program at $1 makes what a definition asks for, of a record in a folder that the definition names
# by a Windows path; the second time there is nothing to do.
works() {
    local program=$1 place=$work/meta
    rm -rf "$place"
    mkdir -p "$place/Records" "$place/out"
    echo 'Title: Lakes' >"$place/Records/lakes one.met"
    cat >"$place/mp" <<'MP'
#!/bin/sh
# Stands in for MP: copies the record, named last, to the file behind -t.
while [ $# -gt 1 ]; do
    [ "$1" = -t ] && to=$2
    shift
done
cp "$1" "$to"
MP
    chmod +x "$place/mp"
    printf '%s\r\n' 'MP EXECUTABLE=T:\mp' 'Process MP=1' 'Process CNS=0' 'Input Folder=T:\records' \
        'Input File Extension=*.met' 'Text Extension=.txt' 'GRID_Text=T:\OUT' >"$place/nightly.ini"
    "$program" "$place/nightly.ini" --drive "T:=$place" >"$work/first" 2>&1 || fail "$(cat "$work/first")"
    cmp "$place/Records/lakes one.met" "$place/out/lakes one.txt" || fail "no product"
    "$program" "$place/nightly.ini" --drive "T:=$place" --dry-run >"$work/second" 2>&1 || fail "$(cat "$work/second")"
    grep -q 'up to date' "$work/second" || fail "made again: $(cat "$work/second")"
}

The_deb_and_the_archive_are_there_and_their_sums_are_right() {
    (cd "$dist" && grep -c 'tarnwick-run.*\(_amd64\.deb\|\.tar\.gz\)$' SHA256SUMS | grep -qx 2 &&
        sha256sum --quiet -c SHA256SUMS)
}

The_deb_holds_the_program_its_manual_page_its_completion_and_its_licence() {
    dpkg-deb -c "$dist"/tarnwick-run_*.deb | sed -n 's|^-.* \./usr/||p' | LC_ALL=C sort >"$work/listed"
    diff "$work/listed" <(echo "$contents") &&
        ! dpkg-deb -c "$dist"/tarnwick-run_*.deb | grep -v ' root/root ' &&
        dpkg-deb -f "$dist"/tarnwick-run_*.deb Depends | grep -qx 'libc6 ([^,]*)'
}

The_archive_unpacked_anywhere_works() {
    mkdir "$work/unpacked"
    tar -C "$work/unpacked" -xzf "$dist"/tarnwick-run-*.tar.gz
    local folder
    folder=$(echo "$work"/unpacked/tarnwick-run-*)
    diff <(cd "$folder" && find . -type f | sed 's|^\./||' | LC_ALL=C sort) <(echo "$contents") &&
        works "$folder/bin/tarnwick-run"
}

package() { # dpkg; it may leave out documents on this machine, but not there
    dpkg --root="$root" --force-not-root --force-depends --path-include='/usr/share/*' --log=/dev/null "$@" \
        >"$work/dpkg" 2>&1 || fail "$(cat "$work/dpkg")"
}

The_deb_needs_nothing_that_this_machine_lacks() {
    apt-get install --simulate "$dist"/tarnwick-run_*.deb >"$work/apt" 2>&1 || fail "$(cat "$work/apt")"
}

Installed_the_deb_works_and_removed_it_leaves_nothing() {
    mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
    touch "$root/var/lib/dpkg/status"
    package -i "$dist"/tarnwick-run_*.deb
    for file in $contents; do [ -f "$root/usr/$file" ] || fail "$file was not installed"; done
    works "$root/usr/bin/tarnwick-run"
    package -L tarnwick-run
    grep '/tarnwick-run' "$work/dpkg" >"$work/owned" # what is nobody else's
    [ "$(wc -l <"$work/owned")" -eq 10 ] || fail "$(cat "$work/owned")"
    package -r tarnwick-run
    while read -r file; do [ ! -e "$root$file" ] || fail "$file was left"; done <"$work/owned"
    ! dpkg --root="$root" -s tarnwick-run >/dev/null 2>&1
}

The_archive_s_program() { echo "$work"/unpacked/tarnwick-run-*/bin/tarnwick-run; }

Every_option_is_in_the_manual_page_and_in_the_completion() {
    local program share
    program=$(The_archive_s_program)
    share=${program%/bin/*}/share
    { "$program" --help && "$program" commands --help; } | options >"$work/help"
    # What stands in the examples of both is among them.
    [ "$(wc -l <"$work/help")" -gt 20 ] || fail 'no options in the help'
    MANWIDTH=80 man -l --no-hyphenation "$share/man/man1/tarnwick-run.1" 2>"$work/man errors" | col -b | options >"$work/man"
    [ ! -s "$work/man errors" ] || fail "$(cat "$work/man errors")"
    diff "$work/help" "$work/man" || fail 'the manual page has other options'
    options <"$share/bash-completion/completions/tarnwick-run" >"$work/completion"
    diff "$work/help" "$work/completion" || fail 'the completion has other options'
}

The_completion_completes() {
    local program completion
    program=$(The_archive_s_program)
    completion=${program%/bin/*}/share/bash-completion/completions/tarnwick-run
    mkdir -p "$work/typing/folder"
    touch "$work/typing/nightly.ini" "$work/typing/other.txt" "$work/typing/old.html"
    complete_words() {
        (
            cd "$work/typing"
            compopt() { :; } # no line is being typed
            # shellcheck source=/dev/null
            . "$completion"
            COMP_WORDS=("$@")
            COMP_CWORD=$(($# - 1))
            _tarnwick_run
            echo "${COMPREPLY[*]}"
        )
    }
    [ "$(complete_words tarnwick-run --dr)" = '--drive --dry-run' ] &&
        [ "$(complete_words tarnwick-run nightly.ini --color n)" = never ] &&
        [ "$(complete_words tarnwick-run n)" = nightly.ini ] &&
        [ "$(complete_words tarnwick-run commands '')" = 'folder nightly.ini' ] &&
        [ "$(complete_words tarnwick-run -F '')" = folder ] &&
        [ "$(complete_words tarnwick-run nightly.ini --report '')" = 'folder old.html' ] &&
        [ "$(complete_words tarnwick-run re)" = report ] &&
        [ "$(complete_words tarnwick-run report --f)" = --fail-on ] &&
        [ "$(complete_words tarnwick-run co)" = commands ]
}

make_install_puts_the_same_files_where_it_is_told() {
    make -s -C "$here/../.." install PREFIX=/opt/tarnwick DESTDIR="$work/dest" >"$work/install" 2>&1 ||
        fail "$(cat "$work/install")"
    diff <(cd "$work/dest/opt/tarnwick" && find . -type f | sed 's|^\./||' | LC_ALL=C sort) <(echo "$contents") &&
        works "$work/dest/opt/tarnwick/bin/tarnwick-run"
}

for each in \
    The_deb_and_the_archive_are_there_and_their_sums_are_right \
    The_deb_holds_the_program_its_manual_page_its_completion_and_its_licence \
    The_archive_unpacked_anywhere_works \
    Every_option_is_in_the_manual_page_and_in_the_completion \
    The_completion_completes \
    The_deb_needs_nothing_that_this_machine_lacks \
    Installed_the_deb_works_and_removed_it_leaves_nothing \
    make_install_puts_the_same_files_where_it_is_told; do
    "$each" || fail "$each"
    say "ok: $each"
done
