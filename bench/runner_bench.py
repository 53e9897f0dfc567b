#!/usr/bin/env python3
"""runner_bench.py TARNWICK_RUN TOOL [NAME...]: what tarnwick-run costs, always against another way of doing
the same work, in the same run. Each figure is the median of pairs, one way after the other. Names choose
figures: start, nothing, slow, growth, compute, memory, shares, wait. Fails when a limit is missed."""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile

from figures import end, measured, told
from state_logs import STAMP, log_beginning, log_line

runner, tool = (os.path.abspath(path) for path in sys.argv[1:3])
chosen = sys.argv[3:]
shm = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None


class Place:
    """A drive T: with records, a definition that makes `products` of each, and the tool."""

    def __init__(self, records, products=1):
        self.root = tempfile.mkdtemp(prefix="tarnwick-bench-", dir=shm)
        self.records = [f"record {number:07}.met" for number in range(records)]
        os.mkdir(f"{self.root}/in")
        os.mkdir(f"{self.root}/out")
        for record in self.records:
            os.close(os.open(f"{self.root}/in/{record}", os.O_CREAT | os.O_WRONLY))
        shutil.copy(tool, f"{self.root}/mp")
        self.kinds = [("Error", ".err"), ("Text", ".txt"), ("Xml", ".xml")][:products]
        grid = "".join(f"{name} Extension={end}\r\nGRID_{name}=T:\\out\r\n" for name, end in self.kinds)
        with open(f"{self.root}/bench.ini", "w", newline="") as file:
            file.write("MP EXECUTABLE=T:\\mp\r\nProcess MP=1\r\nProcess CNS=0\r\nInput Folder=T:\\in\r\n"
                       "Input File Extension=*.met\r\nConvert HyperLink To Relative Path=False\r\n"
                       "Language=English\r\n" + grid)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.root)

    def run(self, *options, env=None):
        return [runner, f"{self.root}/bench.ini", "--drive", f"T:={self.root}", "-q", *options], env

    def clear(self):
        shutil.rmtree(f"{self.root}/out")
        shutil.rmtree(f"{self.root}/bench.state", ignore_errors=True)
        os.mkdir(f"{self.root}/out")

    def check_products(self):
        made = len(os.listdir(f"{self.root}/out"))
        assert made == len(self.records) * len(self.kinds), f"{made} products"


def ratio(mine, other, pairs, before=lambda: None, after=lambda: None):
    quotients = []
    for _ in range(pairs):
        before()
        one = measured(*mine)[0]
        after()
        before()
        two = measured(*other)[0]
        after()
        quotients.append(one / two)
    return statistics.median(quotients)


def start():
    with Place(5000) as place:
        calls = f"{place.root}/calls"
        with open(calls, "wb") as file:
            subprocess.run([runner, "commands", f"{place.root}/bench.ini", "--drive", f"T:={place.root}",
                            "--format", "null"], stdout=file, check=True)
        words = f"{place.root}/words"
        with open(words, "wb") as file:
            for record in place.records:
                for word in ("-l", "en", "-e", f"{place.root}/out/{record[:-4]}.err", f"{place.root}/in/{record}"):
                    file.write(word.encode() + b"\0")
        mine = place.run("-j2")
        told("5,000 small tools, -j2 / xargs -P2 over the printed calls",
             ratio(mine, (["xargs", "-0", "-n1", "-P2", "sh", "-c"], None, calls), 5, place.clear,
                   place.check_products), 1.0)
        told("5,000 small tools, -j2 / xargs -P2 without a shell between",
             ratio(mine, (["xargs", "-0", "-n5", "-P2", f"{place.root}/mp"], None, words), 5, place.clear,
                   place.check_products), 1.0)
        told("5,000 small tools, -j2 / GNU parallel -j2",
             ratio(mine, (["parallel", "-0", "-j2", "--will-cite"], None, calls), 1, place.clear,
                   place.check_products), 0.25)


def made(records):
    place = Place(records, products=3)
    for record in place.records:
        for _, end in place.kinds:
            os.close(os.open(f"{place.root}/out/{record[:-4]}{end}", os.O_CREAT | os.O_WRONLY))
    # A tool that makes nothing would do, were products not looked at: so they are made in earnest, once.
    os.unlink(f"{place.root}/mp")
    with open(f"{place.root}/mp", "w") as file:
        file.write("#!/bin/sh\nfor word; do case $word in */out/*) "
                   "printf 'Line %s: error: \"x\" is no date\\n' 1 2 3 4 5 6 7 8 9 10 >\"$word\";; esac; done\n")
    os.chmod(f"{place.root}/mp", 0o755)
    measured(*place.run())
    return place


def idle_ninja(place):
    """Ninja, over the same files as its graph."""
    with open(f"{place.root}/build.ninja", "w") as file:
        # Of a generator Ninja compares no earlier command: it has run none.
        file.write("rule make\n  command = make $in $out\n  generator = 1\n")
        for record in place.records:
            base = record[:-4].replace(" ", "$ ")
            outputs = " ".join(f"out/{base}{end}" for _, end in place.kinds)
            file.write(f"build {outputs}: make in/{base}.met | mp\n")
    return ["ninja", "-C", place.root, "--quiet"]


def nothing():
    with made(100_000) as place:
        # What the tools said of all these is not even read.
        assert os.path.getsize(f"{place.root}/bench.state/messages.log") > 30_000_000
        told("nothing changed, 100,000 records of 3 products / Ninja",
             ratio(place.run(), (idle_ninja(place),), 5), 1.0)
        _, _, memory = measured(*place.run())
        told("  peak memory", memory, 100, " MB")


def slow():
    with made(1_000) as place:
        drive = {"LD_PRELOAD": f"{os.path.dirname(tool)}/libslow_files.so"}
        told("the same of 1,000 where each question takes 1 ms more / Ninja",
             ratio(place.run(env=drive), (idle_ninja(place), drive), 3), 0.25)


def growth():
    with made(10_000) as few, made(100_000) as many:
        told("nothing changed, 100,000 / 10,000 records", ratio(many.run(), few.run(), 7), 11)


def compute():
    with Place(200) as place:
        env = {"TARNWICK_TOOL_MILLISECONDS": "50"}
        seconds = []
        for _ in range(3):
            place.clear()
            seconds.append(measured(*place.run("-j2", env=env))[0])
        told("200 tools that compute for 50 ms, -j2 / half their sum", statistics.median(seconds) / 5.0, 1.05)


def memory():
    with Place(1_000_000) as place:
        _, _, peak = measured(*place.run("--dry-run"))
        told("peak memory, 1,000,000 records planned", peak, 700, " MB")


# A share among a thousand, when a thousand logs of another number of shares tell of all records: it reads all of them.
def shared(records):
    place = Place(records, products=3)
    os.mkdir(f"{place.root}/bench.state")
    logs = [open(f"{place.root}/bench.state/share-{number}-of-999.log", "wb") for number in range(1, 1000)]
    logs.append(open(f"{place.root}/bench.state/run.log", "wb"))
    for log in logs:
        log.write(log_beginning())
    for number, record in enumerate(place.records):
        logs[number % 1000].write(log_line(f"made\t1\t{record}\t{STAMP}\tmp:0:1.000" + 3 * f"\t{STAMP}"))
    for log in logs:
        log.close()
    return place


def shares():
    with shared(100_000) as few, shared(1_000_000) as many:
        plan = ("--dry-run", "--shard", "617/1000")
        said = subprocess.run(many.run(*plan)[0], capture_output=True, text=True, check=True).stdout
        assert 800 < said.count("another command") < 1200, said[:200]  # they are known, by the logs
        seconds, _, peak = measured(*many.run(*plan))
        told("planning share 617 of 1,000 of 1,000,000 records, 1,000 logs", seconds, 10, " s")
        told("  peak memory", peak, 700, " MB")
        told("  1,000,000 / 100,000 records", ratio(many.run(*plan), few.run(*plan), 5), 11)


def wait():
    with Place(1) as place:
        command, env = place.run(env={"TARNWICK_TOOL_SLEEP": "20"})
        # The tool's own time is counted with its parent's when that has waited for it: it sleeps.
        seconds, processor, _ = measured(command, env)
        told("waiting for one slow tool, of a processor", 100 * processor / seconds, 0.1, " %")


for figure in (start, nothing, slow, growth, compute, wait, memory, shares):
    if not chosen or figure.__name__ in chosen:
        figure()
end()
