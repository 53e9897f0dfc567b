#!/bin/bash
# cluster_test.sh BUILD_FOLDER TARNWICK_RUN: shares of a definition on a cluster of two nodes that is made for this, through
# packaging/cluster/tarnwick.sbatch; a task is cancelled and another's runner is killed in the middle of their work.
set -uo pipefail
umask 022
here=$(cd "$(dirname "$0")" && pwd)
cluster=$(cd "$1" && pwd)/cluster
program=$(readlink -f "$2")
batch=$(readlink -f "$here/../../packaging/cluster/tarnwick.sbatch")
records=1000
shares=8

say() { echo "cluster_test: $*"; }
fail() {
    say "FAILED: $*" >&2
    tail -n 5 "$cluster"/*.log "$cluster"/*/*.out >&2 2>/dev/null
    exit 1
}

# shellcheck source=cmake/eventually.sh
. "$here/../../cmake/eventually.sh"
# shellcheck source=tests/cluster/slurm.sh
. "$here/slurm.sh"

[ "$(id -u)" -eq 0 ] || fail 'the daemons of a cluster need root'
rm -rf "$cluster"
mkdir -p "$cluster"
trap stop_slurm EXIT

# A folder with the records, a definition and a tool. Of the records whose number ends in 5 the tool waits as
# long as there is a file named "hold"; it notes what it has begun.
new_place() { # NAME
    place=$cluster/$1
    mkdir -p "$place"/{in,out,tools}
    local number
    for number in $(seq -w 1 $records); do
        echo "record $number of many" >"$place/in/record $number.met"
    done
    cat >"$place/tools/mp" <<MP
#!/bin/sh
# -l en -e ERRORS -h PAGE RECORD
echo "\$7" >>"$place/begun.txt"
while [ -e "$place/hold" ] && [ "\${7%5.met}" != "\$7" ]; do sleep 0.2; done
tr a-z A-Z <"\$7" >"\$4"
{ echo '<html>'; cat "\$7"; } >"\$6"
MP
    chmod +x "$place/tools/mp"
    : >"$place/begun.txt"
    printf '%s\r\n' 'MP EXECUTABLE=T:\tools\mp' 'Process MP=1' 'Process CNS=0' 'Input Folder=T:\in' \
        'Input File Extension=*.met' 'Language=English' 'Convert HyperLink To Relative Path=False' \
        'Error Extension=.err' 'GRID_Error=T:\out' 'Html Extension=.html' 'GRID_Html=T:\out' >"$place/night.ini"
}

submit() { # ROUNDS OPTION...
    local rounds=$1
    shift
    (cd "$place" && TARNWICK_RUN=$program TARNWICK_ROUNDS=$rounds TARNWICK_RUN_OPTIONS='-j 2' \
        sbatch --parsable --array=1-$shares "$@" "$batch" "$place/night.ini" --drive "T:=$place") || fail 'sbatch'
}

run_alone() { "$program" "$place/night.ini" --drive "T:=$place" "$@" >"$place/alone.out" 2>&1; }
lock_of() { cat "$place/night.state/share-$1-of-$shares.lock" 2>/dev/null; }
# Its runner is at work, and all its tools wait.
share_waits() {
    [ -n "$(lock_of "$1")" ] && [ "$(pgrep -c -P "$(runner_of "$1")")" -ge 2 ] &&
        [ "$(pgrep -P "$(runner_of "$1")" | xargs -n 1 pgrep -c -P | grep -c 1)" -ge 2 ]
}
runner_of() { lock_of "$1" | sed -n 's/^process \([0-9]*\) on .*/\1/p'; }
lines() { cat "$place"/night.state/*.log | grep -c "^$1	"; }
made() { sed -n 's/^made	[0-9]*	\([^	]*\)	.*/\1/p' "$place"/night.state/*.log | sort; }
products_equal_those_of() { diff -r "$1/out" "$place/out" >"$place/diff" || fail "other products: $(head "$place/diff")"; }

# What a report says of the place, without what differs by times and by the number of runs.
report_of() { # PLACE
    "$program" report "$1/night.ini" --drive "T:=$1" --report "$1/report.json" -q || fail "no report over $1"
    /usr/bin/python3 - "$1/report.json" <<'PYTHON'
import json
import sys

report = json.load(open(sys.argv[1]))
for name in ("made", "runs", "changes", "hasRunBefore"):
    del report[name]
totals = report["totals"]
totals["made"] += totals.pop("upToDate")
del totals["begun"], totals["seconds"]
for shape in report["shapes"]:
    del shape["recordsBefore"]
for record in report["records"]:
    record["state"] = record["state"].replace("up to date", "made")
    for call in record["calls"]:
        del call["seconds"]
print(json.dumps(report, indent=1))
PYTHON
}
report_equals_that_of() {
    report_of "$1" >"$1/report.txt"
    report_of "$place" >"$place/report.txt"
    [ "$(wc -l <"$place/report.txt")" -gt $records ] || fail 'the report is empty'
    diff "$1/report.txt" "$place/report.txt" >"$place/diff" || fail "another report: $(head "$place/diff")"
}

A_single_run_makes_everything() {
    new_place single
    single=$place
    run_alone -q || fail "$(cat "$place/alone.out")"
    [ "$(find "$place/out" -type f | wc -l)" -eq $((2 * records)) ] || fail 'not all products'
}

A_cancelled_task_and_a_killed_runner_lose_nothing_but_what_was_in_work() {
    new_place broken
    touch "$place/hold"
    local job runner tools lost
    job=$(submit 1)
    wait_until 'the tools of share 1 at work' share_waits 1
    wait_until 'the tools of share 2 at work' share_waits 2
    [ "$(lock_of 2 | grep -c "Slurm job ${job}_2,")" -eq 1 ] || fail "no job is named: $(lock_of 2)"
    run_alone && fail 'a run over all records began beside the shares'
    grep -q 'at work on share [12] of 8' "$place/alone.out" || fail "$(cat "$place/alone.out")"

    scancel "${job}_1"
    runner=$(runner_of 2)
    mapfile -t tools < <(pgrep -P "$runner")
    kill -KILL "$runner"
    for process in "${tools[@]}"; do wait_until 'the end of a tool' is_gone "$process"; done
    rm "$place/hold"
    wait_until 'the end of the array' no_job_is_left

    lost=$(comm -23 <(sed 's|.*/in/||' "$place/begun.txt" | sort -u) <(made))
    [ -n "$lost" ] || fail 'nothing was in work'
    [ "$(made | wc -l)" -lt "$records" ] || fail 'nothing is left to do'
    submit 1 >/dev/null
    wait_until 'the end of the second array' no_job_is_left

    products_equal_those_of "$single"
    [ "$(made | wc -l)" -eq "$records" ] || fail "$(made | wc -l) records were made"
    [ -z "$(made | uniq -d)" ] || fail "made twice: $(made | uniq -d | head)"
    # What a tool has begun twice was in work when its task was ended.
    diff <(sed 's|.*/in/||' "$place/begun.txt" | sort | uniq -d) <(echo "$lost") >"$place/diff" ||
        fail "run again without need: $(head "$place/diff")"
    report_equals_that_of "$single"
    run_alone || fail "$(cat "$place/alone.out")"
    grep -q "0 made, 0 failed, $records up to date" "$place/alone.out" || fail "$(cat "$place/alone.out")"
}

What_a_cancelled_task_leaves_is_made_by_a_job_that_waits_for_the_array() {
    new_place rounds
    touch "$place/hold"
    local job
    job=$(submit 3 --hold)
    scancel "${job}_1"
    scontrol release "$job"
    wait_until 'the tools of share 2 at work' share_waits 2
    wait_until 'the tools of share 3 at work' share_waits 3
    scancel "${job}_2"
    wait_until 'the end of share 2' eval '[ -z "$(lock_of 2)" ]'
    rm "$place/hold"
    wait_until 'the end of all jobs' no_job_is_left
    grep -q 'is submitted again' "$place/tarnwick-$job-end.out" || fail 'nothing was submitted again'
    [ -z "$(find "$place" -type d -name '*-end')" ] || fail 'what the jobs agreed by is left'
    products_equal_those_of "$single"
    [ "$(made | wc -l)" -eq "$records" ] || fail "$(made | wc -l) records were made"
}

GNU_parallel_makes_the_same_of_the_printed_calls() {
    new_place parallel
    "$program" commands "$place/night.ini" --drive "T:=$place" --format null | parallel --will-cite -0 -j2 ||
        fail "parallel ended with $?"
    products_equal_those_of "$single"
    [ "$(sort -u "$place/begun.txt" | wc -l)" -eq "$(wc -l <"$place/begun.txt")" ] || fail 'something was run twice'
}

GNU_parallel_runs_the_shares() {
    new_place parallel-shares
    parallel --will-cite -j2 "$program" "$place/night.ini" --drive "T:=$place" -j1 -q --shard {}/$shares ::: $(seq $shares) ||
        fail "parallel ended with $?"
    products_equal_those_of "$single"
    [ "$(made | wc -l)" -eq "$records" ] && [ -z "$(made | uniq -d)" ] || fail 'a record was made twice, or not'
}

start_slurm
for each in \
    A_single_run_makes_everything \
    A_cancelled_task_and_a_killed_runner_lose_nothing_but_what_was_in_work \
    What_a_cancelled_task_leaves_is_made_by_a_job_that_waits_for_the_array \
    GNU_parallel_makes_the_same_of_the_printed_calls \
    GNU_parallel_runs_the_shares; do
    "$each"
    say "ok: $each"
done
