#!/usr/bin/python3
"""report_bench.py MAKE_REPORT: what reports over 100,000 records cost: to make, beside a plain program that reads
the same report as JSON and writes its records as text; and until a browser shows them. Fails when a limit is
missed."""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests/browser"))

import browser as browsers
from figures import end, measured, told

make_report = os.path.abspath(sys.argv[1])
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


def showing(page):
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


with tempfile.TemporaryDirectory(prefix="tarnwick-bench-") as folder:
    showing(making(folder))
end()
