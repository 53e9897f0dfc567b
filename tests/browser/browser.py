"""A browser without a screen, whose address is a report, and a report among its products."""

import html
import json
import os
import subprocess
import urllib.parse

from selenium import webdriver
from selenium.webdriver.chrome.service import Service


def start():
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     "--hide-scrollbars", "--force-color-profile=srgb", "--window-size=1280,1000"):
        options.add_argument(argument)
    options.ignore_local_proxy_environment_variables()  # the browser is on this machine
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def address(path):
    return "file://" + urllib.parse.quote(path)


def make(make_report, kind, folder):
    """The path of a page in FOLDER/reports, and what it says as JSON."""
    os.makedirs(f"{folder}/reports", exist_ok=True)
    files = [f"{folder}/reports/{kind}.{end}" for end in ("html", "json")]
    subprocess.run([make_report, kind, *files], check=True)
    with open(files[1], encoding="utf-8") as file:
        return files[0], json.load(file)


def make_products(report, folder):
    """Writes each product of each record where a link from FOLDER/reports leads; gives their paths."""
    paths = []
    for product in report["products"]:
        place = os.path.normpath(f"{folder}/reports/" + urllib.parse.unquote(product["folder"]))
        os.makedirs(place, exist_ok=True)
        for record in report["records"]:
            stem = record["cnsStem" if product["tool"] == "CNS" else "mpStem"]
            if stem:
                paths.append(f"{place}/{stem}{product['suffix']}")
                with open(paths[-1], "w", encoding="utf-8") as file:
                    file.write(f"<!DOCTYPE html><title>{html.escape(product['label'])} of {html.escape(stem)}</title>")
    return paths


def media(browser, **features):
    browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {
        "media": features.pop("media", ""),
        "features": [{"name": name.replace("_", "-"), "value": value} for name, value in features.items()]})


def scripts(browser, enabled):
    browser.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": not enabled})


def requests(browser):
    """What was fetched since the last call."""
    messages = (json.loads(entry["message"])["message"] for entry in browser.get_log("performance"))
    return [message["params"]["request"]["url"] for message in messages
            if message["method"] == "Network.requestWillBeSent"]
