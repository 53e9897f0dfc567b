"""Logs of a state folder (docs/run-log.md), written as tarnwick-run would."""

STAMP = "0@1700000000.000000000"  # of an empty file that was changed at
STAMP_SECONDS = 1700000000


def log_line(fields):
    number = 14695981039346656037
    for byte in fields.encode():
        number = (number ^ byte) * 1099511628211 % 2**64
    number ^= number >> 32
    return f"{fields}\t{number * 0xD6E8FEB86659FD93 % 2**64:016x}"[:len(fields) + 9].encode() + b"\n"


def log_beginning():
    """Of a run log, with the line of its first run."""
    return b"tarnwick-run log 1\n\n" + log_line(
        f"run\t1\t2026-11-22T01:02:03Z\tcommands={'0' * 16}\tmp={STAMP}\tcns=-\tconfiguration=-\taliases=-")
