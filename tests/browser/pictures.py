#!/usr/bin/python3
"""pictures.py MAKE_REPORT FOLDER: leaves pictures of the page in FOLDER: in light and dark, open, narrow, hostile,
and on paper. It looks at nothing: that is for people."""

import base64
import os
import sys
import tempfile

import browser as browsers

make_report, pictures = sys.argv[1:3]
os.makedirs(pictures, exist_ok=True)


def take(browser, name, width=1280, most=6000):
    def size(height):
        browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
    size(1000)
    size(min(most, browser.execute_script("return document.documentElement.scrollHeight")))
    browser.save_screenshot(f"{pictures}/{name}.png")
    browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})


def show(browser, page):
    browser.get(browsers.address(page))


with tempfile.TemporaryDirectory() as folder:
    pages = {kind: browsers.make(make_report, kind, folder)[0] for kind in ("small", "hostile", "400")}
    browser = browsers.start()
    try:
        show(browser, pages["400"])
        for scheme in ("light", "dark"):
            browsers.media(browser, prefers_color_scheme=scheme)
            take(browser, f"report-{scheme}", most=4000)
        browsers.media(browser, prefers_color_scheme="light")
        take(browser, "report-narrow", width=420)
        browser.execute_script("document.querySelectorAll('#s2 details, .common, #runs details')"
                               ".forEach(each => { each.open = true; })")
        take(browser, "report-open")
        with open(f"{pictures}/report-on-paper.pdf", "wb") as file:
            file.write(base64.b64decode(browser.execute_cdp_cmd("Page.printToPDF", {
                "paperWidth": 8.27, "paperHeight": 11.69})["data"]))
        browsers.media(browser, media="print")
        take(browser, "report-on-paper", width=794)
        browsers.media(browser)
        show(browser, pages["hostile"])
        take(browser, "report-hostile")
        browsers.scripts(browser, False)
        show(browser, pages["small"])
        take(browser, "report-without-script")
    finally:
        browser.quit()
