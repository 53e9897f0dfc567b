"""Figures of `make bench` and their limits."""

import os
import subprocess
import sys
import time

missed = []


def told(what, figure, limit, unit=""):
    exceeded = figure > limit
    print(f"{what:<66} {figure:8.2f}{unit} (at most {limit}{unit}){'  EXCEEDED' if exceeded else ''}", flush=True)
    if exceeded:
        missed.append(what)


def measured(command, env=None, stdin=os.devnull):
    """Seconds, seconds of processor, and peak memory in MB of a command that must succeed."""
    with open(stdin, "rb") as given:
        begun = time.monotonic()
        process = subprocess.Popen(command, stdin=given, stdout=subprocess.DEVNULL,
                                   env={**os.environ, **(env or {})})
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = status
    assert status == 0, f"{command[0]} ended with {status}"
    return time.monotonic() - begun, used.ru_utime + used.ru_stime, used.ru_maxrss / 1000


def end():
    """Fails when a limit was missed."""
    if missed:
        sys.exit(f"missed: {', '.join(missed)}")
