#!/usr/bin/python3
"""readers_test.py MAKE_REPORT SCHEMA: reports as other people's programs read them: JSON by a validator that
holds them against the schema, CSV by Python's reader, XML by xmllint."""

import csv
import json
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

import jsonschema

make_report, schema_file = sys.argv[1:3]
KINDS = ["small", "hostile", "300", "0"]
FORMULA = tuple("=+-@\t\r\n＝＋－＠")


class Readers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        for kind in KINDS:
            files = [cls.path(kind, end) for end in ("json", "csv", "xml")]
            subprocess.run([make_report, kind, *files], check=True)
        csv.field_size_limit(1 << 26)

    @classmethod
    def path(cls, kind, end):
        return f"{cls.folder.name}/{kind}.{end}"

    def json_of(self, kind):
        with open(self.path(kind, "json"), encoding="utf-8") as file:
            return json.load(file)

    def lines_of(self, kind):
        with open(self.path(kind, "csv"), encoding="utf-8-sig", newline="") as file:
            return list(csv.reader(file, strict=True))

    def test_The_schema_is_one(self):
        with open(schema_file, encoding="utf-8") as file:
            jsonschema.Draft202012Validator.check_schema(json.load(file))

    def test_Every_JSON_report_is_what_the_schema_says(self):
        with open(schema_file, encoding="utf-8") as file:
            validator = jsonschema.Draft202012Validator(json.load(file))
        for kind in KINDS:
            with self.subTest(kind):
                validator.validate(self.json_of(kind))

    def test_Nothing_that_the_report_holds_is_missing_in_JSON(self):
        report = self.json_of("300")
        self.assertEqual(len(report["records"]), 300)
        messages = [0] * len(report["shapes"])
        for record in report["records"]:
            for finding in record["findings"]:
                messages[finding["shape"]] += finding["messages"]
        self.assertEqual(messages, [shape["messages"] for shape in report["shapes"]])
        self.assertEqual(sum(shape["messages"] for shape in report["shapes"] if not shape["common"]),
                         report["totals"]["messages"])

    def test_JSON_has_the_text_of_every_message_at_its_record(self):
        report = self.json_of("300")
        self.assertGreater(sum(len(record["messages"]) for record in report["records"]), 300)
        for record in report["records"]:
            for finding in record["findings"]:
                of_shape = [message for message in record["messages"] if message["shape"] == finding["shape"]]
                self.assertEqual(len(of_shape), finding["messages"])
                self.assertEqual(of_shape[0]["line"], finding["line"])
            for message in record["messages"]:
                self.assertIn(report["shapes"][message["shape"]]["text"], message["text"])
        texts = [message["text"] for record in self.json_of("hostile")["records"] for message in record["messages"]]
        self.assertIn("nul\0 and \x1b[31m red \x7f", texts)
        self.assertIn("M" * (1 << 20), texts)

    def test_XML_says_each_message_that_is_not_common_at_its_case(self):
        report = self.json_of("300")
        cases = ElementTree.parse(self.path("300", "xml")).getroot().iter("testcase")
        for record, case in zip(report["records"], cases, strict=True):
            expected = [f"line {message['line']}: {message['text']}" for message in record["messages"]
                        if record["state"] == "failed" or not report["shapes"][message["shape"]]["common"]]
            if record["state"] == "failed":
                expected.insert(0, record["why"])
            said = case.findtext("failure" if record["state"] == "failed" else "system-out") or ""
            self.assertEqual(said.splitlines(), expected, record["name"])

    def test_JSON_keeps_every_text_that_is_UTF_8(self):
        remarks = self.json_of("hostile")["remarks"]
        self.assertIn("nul\0 and \x1b[31m red \x7f", remarks)
        self.assertIn("a,b;c\"d\"\"e\nnext line\r\nand next", remarks)
        self.assertIn("M" * (1 << 20), remarks)
        self.assertTrue(any("\ufffd" in remark for remark in remarks))

    def test_A_CSV_report_has_a_line_for_each_record(self):
        for kind, records in (("small", 3), ("300", 300), ("0", 0)):
            lines = self.lines_of(kind)
            self.assertEqual(lines[0], ["record", "state", "why", "shapes", "messages", "seconds", "calls"])
            self.assertEqual(len(lines), records + 1)
        self.assertEqual(self.lines_of("small")[3],
                         ["wells.met", "failed", 'MP ended with status 2: no element: "West"', "0", "0", "0.500",
                          "MP 2 in 0.500 s"])

    def test_No_cell_of_a_CSV_report_is_a_formula(self):
        lines = self.lines_of("hostile")
        self.assertEqual(len(lines), len(self.json_of("hostile")["records"]) + 1)
        for line in lines:
            self.assertEqual(len(line), 7)
            for cell in line:
                self.assertFalse(cell.lstrip(" ").startswith(FORMULA), cell[:80])
        self.assertTrue(any(cell.startswith("'=cmd|") for line in lines for cell in line))

    def test_Every_XML_report_is_well_formed(self):
        for kind in KINDS:
            with self.subTest(kind):
                subprocess.run(["xmllint", "--huge", "--noout", self.path(kind, "xml")], check=True)

    def test_An_XML_report_has_a_case_for_each_record(self):
        suite = ElementTree.parse(self.path("300", "xml")).getroot().find("testsuite")
        self.assertEqual(len(suite.findall("testcase")), int(suite.get("tests")))
        self.assertEqual(len(suite.findall("testcase/failure")), int(suite.get("failures")))
        self.assertEqual(len(suite.findall("testcase/skipped")), int(suite.get("skipped")))

    def test_XML_adds_no_element_for_any_text(self):
        report = self.json_of("hostile")
        root = ElementTree.parse(self.path("hostile", "xml")).getroot()
        known = {"testsuites", "testsuite", "testcase", "failure", "system-out", "system-err", "skipped"}
        self.assertEqual({element.tag for element in root.iter()} - known, set())
        self.assertEqual(len(root.findall("testsuite/testcase")), len(report["records"]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
