#!/usr/bin/python3
"""page_test.py MAKE_REPORT: the page of a report in a real browser, by hand, by keyboard and without its script."""

import sys
import tempfile
import unittest

from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select, WebDriverWait

import browser as browsers

make_report = sys.argv[1]
PATIENCE = 120  # seconds; only what is broken lets anybody wait so long


class Page(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = folder.name
        cls.pages = {kind: browsers.make(make_report, kind, cls.folder) for kind in ("small", "hostile", "findings", "1200")}
        cls.products = browsers.make_products(cls.pages["small"][1], cls.folder)
        cls.browser = browsers.start()
        cls.addClassCleanup(cls.browser.quit)

    def setUp(self):
        browsers.scripts(self.browser, True)
        browsers.media(self.browser)
        self.browser.get("about:blank")
        self.browser.get_log("browser")
        browsers.requests(self.browser)

    def tearDown(self):
        self.assertEqual(self.browser.get_log("browser"), [], "the console is empty")

    def open(self, kind, place=""):
        path, report = self.pages[kind]
        self.browser.get(browsers.address(path) + place)
        return report

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def column(self, number):
        """The texts of a column of the records that are shown."""
        return self.browser.execute_script(
            "return [...document.querySelectorAll('#list tbody tr')].map(row => row.cells[arguments[0]].textContent)",
            number)

    def wait(self, condition):
        return WebDriverWait(self.browser, PATIENCE, 0.05).until(lambda _: condition())

    def press(self, *keys):
        self.browser.switch_to.active_element.send_keys(*keys)

    def focused(self):
        return self.browser.switch_to.active_element

    def tab_to(self, selector):
        """Goes there by the key alone."""
        wanted = self.one(selector)
        for _ in range(400):
            self.press(Keys.TAB)
            if self.focused() == wanted:
                return wanted
        self.fail(f"no way to {selector} by the keyboard")

    def is_open(self, selector):
        """Whether it is seen, and not folded away."""
        return self.browser.execute_script(
            "return arguments[0].checkVisibility({contentVisibilityAuto: true})", self.one(selector))

    def status(self):
        return self.one("#shown").text


class Records(Page):
    def test_All_records_are_shown_by_name(self):
        report = self.open("small")
        self.assertEqual(self.column(0), [record["name"] for record in report["records"]])
        self.assertEqual(self.column(1), ["made", "up to date", "failed"])
        self.assertEqual(self.column(2), ["#1 #2", "", ""])
        self.assertEqual(self.column(3), ["14", "0", "0"])
        self.assertEqual(self.column(4), ["0.015", "1.500", "0.500"])
        self.assertEqual(self.status(), "3 records")

    def test_Typing_filters_by_parts_of_names_whatever_their_case(self):
        report = self.open("1200")
        self.one("#filter").send_keys("TIDES 00111")
        names = [record["name"] for record in report["records"] if "00111" in record["name"]]
        self.wait(lambda: self.status() == f"{len(names)} of 1,200 records")
        self.assertEqual(self.column(0), names)
        self.one("#filter").clear()
        self.one("#filter").send_keys("no such record")
        self.wait(lambda: self.status() == "0 of 1,200 records")
        self.assertEqual(self.column(0), [])

    def test_A_number_filters_by_a_finding_and_by_no_other_that_begins_alike(self):
        report = self.open("1200")
        self.one("#filter").send_keys("#3")
        names = [record["name"] for record in report["records"]
                 if any(finding["shape"] == 2 for finding in record["findings"])]
        self.wait(lambda: self.status() == f"{len(names)} of 1,200 records")
        self.assertEqual(self.column(0), names)

    def test_A_state_can_be_chosen(self):
        report = self.open("1200")
        for choice, fits in (("failed", lambda record: record["state"] == "failed"),
                             ("with findings", lambda record: any(not report["shapes"][finding["shape"]]["common"]
                                                                 for finding in record["findings"]))):
            Select(self.one("#state")).select_by_visible_text(choice)
            names = [record["name"] for record in report["records"] if fits(record)]
            self.wait(lambda: self.status() == f"{len(names):,} of 1,200 records")
            self.assertEqual(self.column(0), names[:len(self.column(0))])

    def test_A_click_on_a_heading_sorts_and_another_turns_the_order(self):
        report = self.open("1200")
        order = sorted(report["records"], key=lambda record: -sum(call["seconds"] for call in record["calls"]))
        seconds = self.one("#list th:nth-child(5)")
        seconds.find_element(By.TAG_NAME, "button").click()
        self.assertEqual(seconds.get_attribute("aria-sort"), "descending")
        self.assertEqual(len(self.all("#list [aria-sort]")), 1)
        shown = [float(text) for text in self.column(4)]
        self.assertEqual(shown, sorted(shown, reverse=True))
        self.assertEqual(self.column(0)[0], order[0]["name"])
        seconds.find_element(By.TAG_NAME, "button").click()
        self.assertEqual(seconds.get_attribute("aria-sort"), "ascending")
        self.assertEqual(self.column(4)[0], "")  # it has not run

        name = self.one("#list th:nth-child(1)")
        name.find_element(By.TAG_NAME, "button").click()
        self.assertEqual(name.get_attribute("aria-sort"), "ascending")
        self.assertEqual(self.column(0)[0], report["records"][0]["name"])
        name.find_element(By.TAG_NAME, "button").click()
        self.assertEqual(self.column(0)[0], report["records"][-1]["name"])

    def test_States_sort_with_what_failed_first(self):
        self.open("small")
        self.one("#list th:nth-child(2) button").click()
        self.assertEqual(self.column(1), ["failed", "made", "up to date"])

    def test_What_is_filtered_stays_sorted(self):
        report = self.open("1200")
        self.one("#list th:nth-child(4) button").click()
        self.one("#filter").send_keys("0011")
        count = sum("0011" in record["name"] for record in report["records"])
        self.wait(lambda: self.status() == f"{count} of 1,200 records")
        numbers = [int(text) for text in self.column(3)]
        self.assertEqual(numbers, sorted(numbers, reverse=True))

    def test_More_records_come_when_they_are_scrolled_to(self):
        self.open("1200")
        self.assertEqual(len(self.column(0)), 500)
        self.assertTrue(self.one("#part").is_displayed())
        for count in (1000, 1200):
            self.browser.execute_script("scrollTo(0, document.documentElement.scrollHeight)")
            self.wait(lambda: len(self.column(0)) >= count)
        self.wait(lambda: not self.one("#part").is_displayed())
        self.assertEqual(len(set(self.column(0))), 1200)

    def test_Every_link_leads_to_its_product(self):
        self.open("small")
        links = [link.get_attribute("href") for link in self.all("#list tbody a:not([href^='#'])")]
        self.assertEqual(sorted(links), sorted(browsers.address(path) for path in self.products))
        for link in links:
            self.browser.get(link)
            if link.endswith(".html"):
                self.assertIn("Html of ", self.browser.title)

    def test_A_report_and_its_products_can_move_together(self):
        path, _ = self.pages["small"]
        with open(path, encoding="utf-8") as file:
            self.assertNotIn(self.folder, file.read())


class Findings(Page):
    def test_A_finding_opens_its_examples_and_records(self):
        self.open("small")
        self.assertFalse(self.is_open("#s1 .names"))
        self.one("#s1 summary").click()
        self.assertTrue(self.is_open("#s1 .names"))
        self.assertEqual(self.one("#s1 .examples q").text, 'Error (line 3): "soon" is no date')

    def test_Common_messages_are_folded_at_the_end(self):
        self.open("small")
        self.assertFalse(self.is_open("#s2"))
        self.one(".common > summary").click()
        self.assertTrue(self.is_open("#s2"))

    def test_The_records_of_a_finding_are_found_by_a_click(self):
        report = self.open("1200")
        self.one("#s3 summary").click()
        self.one("#s3 .show a").click()
        self.wait(lambda: self.status() == f"{report['shapes'][2]['records']:,} of 1,200 records")
        self.assertEqual(self.focused(), self.one("#filter"))

    def test_As_many_are_found_as_the_link_says_also_of_the_thirtieth_finding_of_a_record(self):
        report = self.open("findings")
        for number in (30, 1):
            self.one(f"#s{number} summary").click()
            link = self.one(f"#s{number} .show a")
            self.assertEqual(link.text, "Find all 3 among the records")
            link.click()
            self.wait(lambda: self.status() == "3 of 4 records")
            self.assertEqual(self.column(0), [record["name"] for record in report["records"][:3]])

    def test_The_number_of_a_finding_leads_to_it_also_where_it_is_folded(self):
        self.open("small")
        self.one("#list a[href='#s2']").click()
        self.wait(lambda: self.is_open("#s2 .names"))
        self.open("small", "#s1")
        self.wait(lambda: self.is_open("#s1 .names"))

    def test_What_is_gone_is_counted(self):
        self.open("small")
        self.assertIn("gone: 1", [heading.text for heading in self.all("#changes h3")])


class LinksToRecords(Page):
    def follow(self, link, name, of):
        """Clicks on the link, which stands in view, and sees that record alone."""
        self.assertEqual(link.text, name)
        link.click()
        self.wait(lambda: self.status() == f"1 of {of} records")
        self.assertEqual(self.column(0), [name])
        self.assertEqual(self.one("#filter").get_attribute("value"), f'"{name}"')
        self.assertEqual(self.focused().text, name)
        for place in ("#records h2", "#filter", "#list tbody th"):
            self.assertTrue(self.in_view(place), place)
        self.assertLess(self.browser.execute_script("return arguments[0].getBoundingClientRect().top",
                                                    self.one("#records h2")), 100)

    def in_view(self, selector):
        return self.browser.execute_script(
            "const box = arguments[0].getBoundingClientRect(); return box.top >= 0 && box.bottom <= innerHeight",
            self.one(selector))

    def test_A_name_in_a_finding_shows_that_record_alone_and_the_way_back_all(self):
        self.open("small")
        self.one("#s1 summary").click()
        for selector in ("#s1 .names a", "#s1 .examples a"):
            link = self.one(selector)
            self.follow(link, "lakes & rivers.met", 3)
            self.browser.back()
            self.wait(lambda: self.status() == "3 records")
            self.assertEqual(self.one("#filter").get_attribute("value"), "")
            self.wait(lambda: self.focused() == link)
            self.assertTrue(self.in_view(selector))
        self.browser.forward()
        self.wait(lambda: self.status() == "1 of 3 records")

    def test_Names_of_failures_changes_and_slow_calls_do_too(self):
        self.open("small")
        self.follow(self.one(".failures tbody th a"), "wells.met", 3)
        self.follow(self.one(".changes tbody th a"), "lakes & rivers.met", 3)
        self.follow(self.one(".slowest tbody th a"), "tide.stations.met", 3)
        for _ in range(3):
            self.browser.back()
        self.wait(lambda: self.status() == "3 records")

    def test_A_record_is_shown_however_far_down_and_whatever_was_chosen_which_comes_back(self):
        report = self.open("1200")
        last = [record["name"] for record in report["records"] if record["state"] == "failed"][-1]
        Select(self.one("#state")).select_by_visible_text("made")
        self.one("#filter").send_keys("0011")
        self.one("#list th:nth-child(5) button").click()
        status, names = self.status(), self.column(0)
        self.follow(self.all(".failures tbody th a")[-1], last, "1,200")
        self.assertEqual(self.one("#state").get_attribute("value"), "")
        self.browser.back()
        self.wait(lambda: self.status() == status)
        self.assertEqual(self.column(0), names)
        self.assertEqual(self.one("#filter").get_attribute("value"), "0011")
        self.assertEqual(self.one("#state").get_attribute("value"), "made")

    def test_Whoever_has_typed_something_else_meanwhile_keeps_it(self):
        self.open("small")
        self.follow(self.one(".failures tbody th a"), "wells.met", 3)
        self.one("#filter").send_keys(Keys.CONTROL, "a")
        self.one("#filter").send_keys("tide")
        self.wait(lambda: self.column(0) == ["tide.stations.met"])
        self.one("nav a[href='#runs']").click()
        self.browser.back()
        self.browser.back()
        self.wait(lambda: self.browser.execute_script("return location.hash") == "")
        self.assertEqual(self.one("#filter").get_attribute("value"), "tide")

    def test_The_same_link_shows_it_again(self):
        self.open("small")
        link = self.one(".failures tbody th a")
        self.follow(link, "wells.met", 3)
        self.one("#filter").clear()
        self.one("#filter").send_keys("t")
        self.wait(lambda: self.status() != "1 of 3 records")
        self.follow(link, "wells.met", 3)

    def test_A_link_from_elsewhere_opens_the_page_at_that_record(self):
        self.open("small", "#r2")
        self.wait(lambda: self.status() == "1 of 3 records")
        self.assertEqual(self.column(0), ["tide.stations.met"])

    def test_A_finding_of_the_record_opens_and_the_way_back_leads_to_the_record(self):
        self.open("small")
        self.follow(self.one(".changes tbody th a"), "lakes & rivers.met", 3)
        self.one("#list a[href='#s1']").click()
        self.wait(lambda: self.is_open("#s1 .names"))
        self.assertEqual(self.status(), "1 of 3 records")
        self.browser.back()
        self.wait(lambda: self.focused().text == "lakes & rivers.met")
        self.browser.back()
        self.wait(lambda: self.status() == "3 records")

    def test_Keys_alone_lead_to_a_record_to_its_products_and_back(self):
        self.open("small")
        link = self.tab_to(".changes tbody th a")
        self.press(Keys.ENTER)
        self.wait(lambda: self.status() == "1 of 3 records")
        self.assertEqual(self.focused().text, "lakes & rivers.met")
        self.press(Keys.TAB)
        self.assertEqual(self.focused(), self.one("#list tbody a"))  # on to what the row has
        self.browser.back()
        self.wait(lambda: self.status() == "3 records")
        self.wait(lambda: self.focused() == link)

    def test_A_whole_name_between_quotation_marks_finds_no_longer_one(self):
        self.open("small")
        self.one("#filter").send_keys('"wells.met"')
        self.wait(lambda: self.column(0) == ["wells.met"])
        self.one("#filter").clear()
        self.one("#filter").send_keys('"ells.met"')
        self.wait(lambda: self.status() == "0 of 3 records")

    def test_Without_the_script_every_name_leads_to_its_row(self):
        browsers.scripts(self.browser, False)
        for kind in ("small", "1200"):
            report = self.open(kind)
            places = self.browser.execute_cdp_cmd("DOM.getDocument", {"depth": 0})["root"]["nodeId"]
            for link in self.all("main a[href^='#r']:not([href='#records']):not([href='#runs'])")[:50]:
                place = link.get_attribute("href").partition("#")[2]
                found = self.browser.execute_cdp_cmd("DOM.querySelector", {"nodeId": places, "selector": f"tr#{place}"})
                self.assertNotEqual(found["nodeId"], 0, place)
                name = report["records"][int(place[1:]) - 1]["name"]
                self.assertEqual(link.get_attribute("textContent"), name)
                self.assertEqual(self.one(f"tr#{place} th").text, name)

    def test_A_failure_leads_to_what_the_tools_said_first(self):
        report = self.open("1200")
        names = [record["name"] for record in report["records"] if record["state"] == "failed"]
        rows = self.all(".failures tbody tr")
        self.assertEqual([row.find_element(By.TAG_NAME, "a").text for row in rows], names)
        said = self.all(".failures .said")
        self.assertGreater(len(said), 0)
        finding = said[0].find_element(By.CSS_SELECTOR, "a[href^='#s']")
        links = self.all(".failures .left")[0].find_elements(By.TAG_NAME, "a")
        self.assertEqual([link.text for link in links], ["Error", "Leftovers", "Html"])
        place = finding.get_attribute("href").partition("#")[2]
        finding.click()
        self.wait(lambda: self.is_open(f"#{place} .names"))


class EveryReader(Page):
    def test_Keys_alone_filter_sort_open_and_follow(self):
        self.open("small")
        self.tab_to("#s1 summary")
        self.press(Keys.ENTER)
        self.wait(lambda: self.is_open("#s1 .names"))
        self.tab_to("#filter")
        self.press("wells")
        self.wait(lambda: self.status() == "1 of 3 records")
        self.press(Keys.ENTER)  # sends nothing anywhere
        self.assertEqual(self.status(), "1 of 3 records")
        self.press(Keys.CONTROL, "a")
        self.press(Keys.DELETE)
        self.wait(lambda: self.status() == "3 records")
        self.tab_to("#list th:nth-child(5) button")
        self.press(Keys.SPACE)
        self.wait(lambda: self.column(4) == ["1.500", "0.500", "0.015"])
        self.tab_to("#list tbody tr:nth-child(1) a")
        self.press(Keys.ENTER)
        self.wait(lambda: self.browser.title == "Html of tide.stations")

    def test_Whoever_asks_for_more_by_a_key_reads_on_there(self):
        self.open("1200")
        self.browser.execute_script("document.getElementById('more').click()")
        self.wait(lambda: len(self.column(0)) >= 1000)
        self.assertEqual(self.focused().text, self.column(0)[500])

    def test_Programs_that_read_aloud_are_told_what_is_what(self):
        self.open("small")
        tree = self.browser.execute_cdp_cmd("Accessibility.getFullAXTree", {})["nodes"]
        told = {(node["role"]["value"], node.get("name", {}).get("value", "")) for node in tree if not node["ignored"]}
        for wanted in [("heading", "nightly.ini"), ("heading", "Failures 1"), ("heading", "Findings 1"),
                       ("heading", "All records 3"),
                       ("navigation", "Contents"), ("main", ""), ("searchbox", "Filter"), ("combobox", "State"),
                       ("columnheader", "Seconds"), ("rowheader", "lakes & rivers.met"), ("status", ""),
                       ("image", "1 made, 1 up to date, 1 failed, 0 not run"), ("search", "")]:
            self.assertIn(wanted, told)
        self.assertEqual(self.one("html").get_attribute("lang"), "en")
        self.assertEqual(self.one("#shown").get_attribute("aria-live"), "polite")
        levels = [int(heading.tag_name[1]) for heading in self.all("h1, h2, h3")]
        self.assertEqual(levels[0], 1)
        self.assertEqual(levels.count(1), 1)
        self.assertTrue(all(after - before <= 1 for before, after in zip(levels, levels[1:])), levels)

    def test_Every_number_names_its_column_by_a_heading(self):
        self.open("small")
        for table in self.all("table"):
            heads = table.find_elements(By.CSS_SELECTOR, "thead th, thead td.bar")
            for row in table.find_elements(By.CSS_SELECTOR, "tbody tr"):
                self.assertEqual(len(row.find_elements(By.XPATH, "./th|./td")), len(heads))

    def test_Without_the_script_everything_can_be_read_and_followed(self):
        browsers.scripts(self.browser, False)
        report = self.open("small")
        rows = self.all("noscript tbody tr")
        self.assertEqual([row.find_element(By.TAG_NAME, "th").text for row in rows],
                         [record["name"] for record in report["records"]])
        self.assertTrue(rows[0].is_displayed())
        self.assertFalse(self.one("#controls").is_displayed())
        self.assertFalse(self.one("#list").is_displayed())
        links = [link.get_attribute("href") for link in self.all("noscript tbody a")]
        self.assertEqual(sorted(links), sorted(browsers.address(path) for path in self.products))
        self.one("#s1 summary").click()
        self.assertTrue(self.is_open("#s1 .names"))

    def test_Nothing_is_fetched_but_the_page(self):
        for kind in self.pages:
            self.open(kind)
            browsers_own = ("data:", "about:", "chrome")
            fetched = [url for url in browsers.requests(self.browser) if not url.startswith(browsers_own)]
            self.assertEqual(fetched, [browsers.address(self.pages[kind][0])])

    def test_In_the_dark_the_page_is_dark(self):
        self.open("small")
        lightness = {}
        for scheme in ("light", "dark"):
            browsers.media(self.browser, prefers_color_scheme=scheme)
            colour = self.one("body").value_of_css_property("background-color")
            lightness[scheme] = sum(int(part) for part in colour.strip("rgba()").split(",")[:3])
        self.assertLess(lightness["dark"], 150)
        self.assertGreater(lightness["light"], 700)

    def test_On_paper_stand_the_records_and_nothing_to_click(self):
        self.open("1200")
        browsers.media(self.browser, media="print")
        self.browser.execute_script("dispatchEvent(new Event('beforeprint'))")
        self.wait(lambda: len(self.column(0)) == 1200)
        self.assertTrue(self.one("#list").is_displayed())
        self.assertFalse(self.one("#filter").is_displayed())
        self.assertFalse(self.one("nav").is_displayed())

    def test_A_narrow_window_needs_no_scrolling_aside(self):
        self.browser.set_window_size(500, 900)
        self.addCleanup(self.browser.set_window_size, 1280, 1000)
        for kind in ("small", "hostile"):
            self.open(kind)
            width, room = self.browser.execute_script(
                "return [document.documentElement.scrollWidth, document.documentElement.clientWidth]")
            self.assertLessEqual(width, room, kind)


class HostileTexts(Page):
    def check(self):
        self.assertNotEqual(self.browser.title, "broken")
        self.assertEqual(self.all("h1")[0].text, "<script>document.title='broken'</script>")
        self.assertEqual(len(self.all("h1")), 1)
        for selector in ("img", "b", "broken", "[onerror]", "[onmouseover]", "a[href^='javascript:']",
                         "a[href^='data:']"):
            self.assertEqual(self.all(selector), [], selector)

    def test_They_are_shown_and_do_nothing(self):
        report = self.open("hostile")
        self.check()
        self.assertEqual(len(self.column(0)), len(report["records"]))
        self.assertEqual(self.column(0)[0], "<script>document.title='broken'</script> 0.met")
        self.assertEqual(self.column(0)[4], "nul<U+0000> and <U+001B>[31m red <U+007F> 4.met")

    def test_They_are_filtered_and_sorted_like_others(self):
        self.open("hostile")
        self.one("#filter").send_keys("<script>document.title='broken'")
        self.wait(lambda: self.status().startswith("1 of"))
        self.one("#list th:nth-child(3) button").click()
        self.check()

    def test_Without_the_script_they_do_nothing_either(self):
        browsers.scripts(self.browser, False)
        report = self.open("hostile")
        self.check()
        self.assertEqual(len(self.all("noscript tbody tr")), len(report["records"]))

    def test_A_link_to_each_shows_that_record_alone(self):
        self.open("hostile")
        names = self.column(0)
        for place, link in enumerate(self.all(".changes tbody th a")):
            self.browser.execute_script("arguments[0].click()", link)
            self.wait(lambda: self.column(0) == [names[place]])
            self.check()

    def test_Links_lead_to_files_and_run_nothing(self):
        self.open("hostile")
        links = [link.get_attribute("href") for link in self.all("#list tbody a:not([href^='#'])")]
        self.assertGreater(len(links), 100)
        self.assertEqual([link[:100] for link in links if not link.startswith("file://")], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
