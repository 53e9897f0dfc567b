# shellcheck shell=bash
# A Slurm cluster of two nodes on this machine, for cluster_test.sh: all of it below the folder $cluster, on the loopback
# alone, and ended by the numbers of its processes. Needs root, as its daemons do.

daemons=() # files with the number of a process

# Whole jobs are waited for: ten minutes, which only what is broken lets pass.
wait_until() { # WHAT COMMAND...
    local what=$1
    shift
    TARNWICK_PATIENCE=600 eventually "$@" || fail "never seen: $what"
}

free_ports() { # COUNT
    local found=0 port
    while [ "$found" -lt "$1" ]; do
        port=$((20000 + RANDOM % 12000))
        if ! (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
            echo "$port"
            found=$((found + 1))
        fi
    done
}

write_slurm_conf() {
    local host ports
    host=$(hostname -s)
    mapfile -t ports < <(free_ports 3)
    cat >"$cluster/slurm.conf" <<CONF
ClusterName=tarnwick
SlurmctldHost=$host(127.0.0.1)
SlurmctldPort=${ports[0]}
SlurmUser=root
SlurmdUser=root
AuthType=auth/munge
AuthInfo=socket=$cluster/munge.socket
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
MpiDefault=none
ReturnToService=2
SchedulerType=sched/builtin
StateSaveLocation=$cluster/state
SlurmdSpoolDir=$cluster/spool-%n
SlurmctldPidFile=$cluster/slurmctld.pid
SlurmdPidFile=$cluster/slurmd-%n.pid
SlurmctldLogFile=$cluster/slurmctld.log
SlurmdLogFile=$cluster/slurmd-%n.log
NodeName=n1 NodeHostname=$host NodeAddr=127.0.0.1 Port=${ports[1]} CPUs=1
NodeName=n2 NodeHostname=$host NodeAddr=127.0.0.1 Port=${ports[2]} CPUs=1
PartitionName=all Nodes=n1,n2 Default=YES MaxTime=INFINITE State=UP
CONF
}

start_slurm() {
    mkdir -p "$cluster"/{state,spool-n1,spool-n2}
    chmod 755 "$cluster"
    dd if=/dev/urandom of="$cluster/munge.key" bs=128 count=1 status=none
    chmod 400 "$cluster/munge.key"
    write_slurm_conf
    export SLURM_CONF=$cluster/slurm.conf
    daemons=("$cluster/munged.pid" "$cluster/slurmctld.pid" "$cluster/slurmd-n1.pid" "$cluster/slurmd-n2.pid")
    munged --force --key-file="$cluster/munge.key" --socket="$cluster/munge.socket" --pid-file="$cluster/munged.pid" \
        --log-file="$cluster/munged.log" --seed-file="$cluster/munge.seed" 2>"$cluster/munged.err" ||
        fail "munged: $(cat "$cluster/munged.err")"
    slurmctld
    slurmd -N n1
    slurmd -N n2
    wait_until 'two idle nodes' nodes_are_idle
}

nodes_are_idle() { [ "$(sinfo -h -N -o '%N %t' 2>/dev/null)" = $'n1 idle\nn2 idle' ]; }
no_job_is_left() { [ -z "$(squeue -h 2>&1)" ]; }

is_gone() { # PROCESS
    ! [ -e "/proc/$1" ] || grep -q '^State:[[:space:]]*Z' "/proc/$1/status" 2>/dev/null
}

# Also after a failure, when some of it may not have been started.
stop_slurm() {
    local file process left
    [ -e "$cluster/slurmctld.pid" ] && scancel --user=root 2>/dev/null
    for ((left = 120; left > 0; --left)); do
        no_job_is_left && break
        sleep 0.5
    done
    for ((file = ${#daemons[@]} - 1; file >= 0; --file)); do
        process=$(cat "${daemons[file]}" 2>/dev/null) || continue
        kill "$process" 2>/dev/null
        for ((left = 40; left > 0; --left)); do
            is_gone "$process" && break
            [ "$left" -gt 1 ] || kill -KILL "$process" 2>/dev/null
            sleep 0.5
        done
    done
    # Who has it as root by sudo can take it away himself.
    [ -z "${SUDO_UID:-}" ] || chown -R "$SUDO_UID:$SUDO_GID" "$cluster"
}
