#!/usr/bin/python3
"""report_bench.py MAKE_REPORT TARNWICK_RUN [NAME...]: what reports over 100,000 records cost: to make, beside a plain
program that reads the same report as JSON and writes its records as text; until a browser shows them; and with a
million messages, by the real program, beside a plain one that reads the same message log. Names choose figures:
showing, messages. Fails when a limit is missed."""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests/browser"))

import browser as browsers
import message_state
from figures import end, measured, told

make_report, runner = (os.path.abspath(path) for path in sys.argv[1:3])
chosen = sys.argv[3:]
RECORDS = "100000"

PLAIN = {
    "html": """import html, json, sys
with open(sys.argv[1], encoding="utf-8") as file, open(sys.argv[2], "w", encoding="utf-8") as page:
    for record in json.load(file)["records"]:
        cells = [record["name"], record["state"], sum(finding["messages"] for finding in record["findings"])]
        page.write("<tr>" + "".join(f"<td>{html.escape(str(cell))}" for cell in cells) + "\\n")""",
    "json": """import json, sys
with open(sys.argv[1], encoding="utf-8") as file, open(sys.argv[2], "w", encoding="utf-8") as copy:
    json.dump(json.load(file), copy)""",
    "csv": """import csv, json, sys
with open(sys.argv[1], encoding="utf-8") as file, open(sys.argv[2], "w", encoding="utf-8") as table:
    csv.writer(table).writerows([record["name"], record["state"], record["why"]] for record in json.load(file)["records"])""",
    "xml": """import json, sys
from xml.sax.saxutils import quoteattr
with open(sys.argv[1], encoding="utf-8") as file, open(sys.argv[2], "w", encoding="utf-8") as suite:
    for record in json.load(file)["records"]:
        suite.write(f"<testcase name={quoteattr(record['name'])}><failure message={quoteattr(record['why'])}/></testcase>")""",
}


def making(folder):
    source = f"{folder}/source.json"
    subprocess.run([make_report, RECORDS, source], check=True)
    for kind, program in PLAIN.items():
        path = f"{folder}/report.{kind}"
        quotients, peak = [], 0
        for _ in range(3):
            mine, _, memory = measured([make_report, RECORDS, path])
            other, _, _ = measured(["/usr/bin/python3", "-c", program, source, f"{folder}/plain"])
            quotients.append(mine / other)
            peak = max(peak, memory)
        told(f"100,000 records as .{kind} / records by a plain program", statistics.median(quotients), 1.0)
        told("  peak memory, the value that is reported with it", peak, 200, " MB")
        if kind == "html":
            told("  size", os.path.getsize(path) / 1e6, 25, " MB")
    return f"{folder}/report.html"


# Until the picture with the first rows is on the screen. What follows a change waits for its picture, too.
SHOWN = """const done = arguments[arguments.length - 1];
const shown = () => document.querySelectorAll('#list tbody tr').length > 0
    ? requestAnimationFrame(() => setTimeout(() => done(performance.now() / 1000))) : setTimeout(shown);
shown();"""
CHANGED = """const done = arguments[arguments.length - 1], begun = performance.now();
const filter = document.getElementById('filter');
if (arguments[0] === '') { document.querySelectorAll('#list button')[4].click(); }
else { filter.value = arguments[0]; filter.dispatchEvent(new Event('input')); }
requestAnimationFrame(() => setTimeout(() => done((performance.now() - begun) / 1000)));"""


def shown(page):
    browser = browsers.start()
    try:
        browser.set_script_timeout(600)
        times = {"opened": [], "filtered first": [], "filtered again": [], "sorted": []}
        for _ in range(3):
            browser.get(browsers.address(page))
            times["opened"].append(browser.execute_async_script(SHOWN))
            for what, words in (("filtered first", "00012"), ("filtered again", "tides 1"), ("sorted", "")):
                times[what].append(browser.execute_async_script(CHANGED, words))
    finally:
        browser.quit()
    told("a browser shows 100,000 records after", statistics.median(times.pop("opened")), 2, " s")
    for what, seconds in times.items():
        told(f"  they are {what} after", statistics.median(seconds), 0.5, " s")


# What somebody would write who has the message log and wants the same: the shapes, counted, and each record with what
# was said of it.
READER = """import collections, csv, html, json, re, sys
from xml.sax.saxutils import escape, quoteattr
numbers, quoted, escaped = re.compile(r"[-+]?\\d+"), re.compile(r'"[^"]*"'), re.compile(r"\\\\x(..)")
shapes = collections.Counter()
def records(path):
    with open(path, encoding="utf-8") as log:
        for line in log:
            fields = line.rstrip("\\n").split("\\t")
            if fields[0] != "messages":
                continue
            said = []
            for field in fields[3:-1]:
                number, _, text = field.partition(" ")
                if "\\\\" in text:
                    text = escaped.sub(lambda digits: chr(int(digits[1], 16)), text)
                shapes[numbers.sub("#", quoted.sub("...", text))] += 1
                said.append((int(number), text))
            yield fields[2], said
with open(sys.argv[2], "w", encoding="utf-8", newline="") as file:
"""
TELLING = {
    "html": """    for name, said in records(sys.argv[1]):
        file.write(f"<tr><td>{html.escape(name)}<td>{len(said)}\\n")""",
    "json": """    for name, said in records(sys.argv[1]):
        json.dump({"name": name, "messages": [{"line": line, "text": text} for line, text in said]}, file)""",
    "csv": """    csv.writer(file).writerows([name, len(said)] for name, said in records(sys.argv[1]))""",
    "xml": """    for name, said in records(sys.argv[1]):
        lines = "".join(f"line {line}: {escape(text)}\\n" for line, text in said)
        file.write(f"<testcase name={quoteattr(name)}><system-out>{lines}</system-out></testcase>")""",
}


def showing():
    with tempfile.TemporaryDirectory(prefix="tarnwick-bench-") as folder:
        shown(making(folder))


def messages():
    shm = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    with tempfile.TemporaryDirectory(prefix="tarnwick-bench-", dir=shm) as folder:
        definition = message_state.make(folder, int(RECORDS))
        log = f"{folder}/bench.state/messages.log"
        for kind, program in TELLING.items():
            path = f"{folder}/report.{kind}"
            quotients, peak = [], 0
            for _ in range(3):
                mine, _, memory = measured([runner, "report", definition, "--drive", f"T:={folder}", "-q",
                                            "--report", path])
                other, _, _ = measured(["/usr/bin/python3", "-c", READER + program, log, f"{folder}/plain"])
                quotients.append(mine / other)
                peak = max(peak, memory)
            # The plain one asks for no file but the log, and trusts each line.
            told(f"1,000,000 messages as .{kind} / by a plain program", statistics.median(quotients), 1.5)
            told("  peak memory", peak, 200, " MB")
            told("  size", os.path.getsize(path) / 1e6, {"html": 25}.get(kind, 250), " MB")
            os.unlink(path)
        several = [option for kind in TELLING for option in ("--report", f"{folder}/report.{kind}")]
        _, _, memory = measured([runner, "report", definition, "--drive", f"T:={folder}", "-q", *several])
        told("all of these by one call, peak memory", memory, 200, " MB")


for figure in (showing, messages):
    if not chosen or figure.__name__ in chosen:
        figure()
end()
