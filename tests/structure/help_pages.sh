#!/bin/sh
# help_pages.sh FOLDER: every link and picture of the help's pages leads to a file and, where it
# names one, to a place in it; every page is in the project and in the contents, and can be reached
# from the first page; the contents and the index name pages that are there.
set -eu
cd "$1"
wrong=0
complain() {
    echo "$1"
    wrong=1
}

targets() { grep -o '\(href\|src\)="[^"]*"' "$1" | sed 's/^[a-z]*="//; s/"$//'; }
locals() { sed -n 's/.*name="Local" value="\([^"]*\)".*/\1/p' "$1"; }

for page in *.html; do
    for target in $(targets "$page"); do
        case $target in http://* | https://* | mailto:*) continue ;; esac
        file=${target%%#*}
        [ -f "${file:-$page}" ] || complain "$page: no file $target"
        place=${target#"$file"}
        if [ -n "$place" ]; then
            grep -q "id=\"${place#\#}\"" "${file:-$page}" 2>/dev/null || complain "$page: no place $target"
        fi
    done
    grep -qx "$page" Tarnwick.hhp || complain "Tarnwick.hhp: $page is missing"
    locals Tarnwick.hhc | grep -qx "$page" || complain "Tarnwick.hhc: $page is missing"
done
# From the first page on, round after round.
reached=' index.html '
found=$reached
while [ -n "$found" ]; do
    next=
    for page in $found; do
        for target in $(targets "$page"); do
            file=${target%%#*}
            case $file in *.html) ;; *) continue ;; esac
            [ -f "$file" ] || continue
            case $reached in *" $file "*) ;; *) reached="$reached$file " next="$next$file " ;; esac
        done
    done
    found=$next
done
for page in *.html; do
    case $reached in *" $page "*) ;; *) complain "$page: no page leads to it" ;; esac
done
for list in Tarnwick.hhc Tarnwick.hhk; do
    for target in $(locals "$list"); do
        [ -f "${target%%#*}" ] || complain "$list: no file $target"
    done
done
for picture in pictures/*; do
    [ -e "$picture" ] || continue
    grep -q "src=\"$picture\"" ./*.html || complain "$picture: on no page"
done
exit "$wrong"
