# Sourced by scripts, of bash as well as of sh: the one way in which tests, figures and the demo wait.

# eventually COMMAND...: again and again, until it succeeds; fails after two minutes, or as many seconds as
# $TARNWICK_PATIENCE says. Only what is broken lets anybody wait so long.
eventually() {
    local end # one of each call: the command may wait for something itself
    end=$(($(date +%s) + ${TARNWICK_PATIENCE:-120}))
    until "$@"; do
        [ "$(date +%s)" -lt "$end" ] || return 1
        sleep 0.05
    done
}

# has_ended PROCESS, which the script has started.
has_ended() { ! kill -0 "$1" 2>/dev/null; }
