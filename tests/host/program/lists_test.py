#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Importing and exporting lists from a shell.

    lists_test.py ZORVANTINE SAMPLE
"""

import base64
import datetime
import json
import plistlib
import subprocess
import sys
import unittest
from pathlib import Path

from command_line import PREFIX, VERSION_KEY, CommandLine

SAMPLE = sys.argv[2]

TYPES = {
    bool: "boolean",
    int: "integer",
    float: "real",
    str: "string",
    bytes: "data",
    datetime.datetime: "date",
    list: "array",
    dict: "dictionary",
}


def plain(value):
    """A value as the JSON output writes it."""
    if isinstance(value, bytes):
        return base64.b64encode(value).decode()
    if isinstance(value, datetime.datetime):
        return value.strftime("%Y-%m-%dT%H:%M:%SZ")
    if isinstance(value, list):
        return [plain(element) for element in value]
    if isinstance(value, dict):
        return {key: plain(element) for key, element in value.items()}
    return value


class Lists(CommandLine):
    def test_import_takes_over_the_list_of_another_writer(self):
        with open(SAMPLE, "rb") as file:
            expected = plistlib.load(file)
        self.run_host("prefs", "set", "mine", "--string", "stays")
        self.run_host("prefs", "import", self.plist(expected | {VERSION_KEY: 2}))
        listed = self.listed()
        self.assertEqual(listed.pop("mine")["value"], "stays")
        self.assertEqual(
            listed,
            {
                key: {"type": TYPES[type(value)], "value": plain(value)}
                for key, value in expected.items()
            },
        )

    def test_import_of_an_older_release_is_as_if_its_store_had_been_migrated(self):
        with open(SAMPLE, "rb") as file:
            old = plistlib.load(file)
        # The store has been migrated before.
        self.run_host("prefs", "migrate")
        text = self.run_host("prefs", "import", SAMPLE)
        imported = self.listed()
        self.assertEqual(imported[VERSION_KEY]["value"], 2)

        self.store = self.folder / "migrated.sqlite"
        self.run_host("prefs", "import", self.plist(old | {VERSION_KEY: 2}))
        before = self.listed()
        done = subprocess.run(self.command("prefs", "migrate"), capture_output=True, text=True)
        self.assertEqual(done.returncode, 0)
        migrated = self.listed()
        self.assertEqual(imported, migrated)
        rewritten = sum(migrated[key] != value for key, value in before.items())
        self.assertEqual(
            text, f"Imported {len(old)} keys, of which {rewritten} were brought up to date.\n"
        )

    def test_import_goes_by_the_schema_of_the_list(self):
        color, ports = f"{PREFIX}a_color", f"{PREFIX}a_protocols"
        old = {color: b"\1\2\3", ports: b'[{"protocolPorts":[80]}]'}
        as_data = {"type": "data", "value": "AQID"}
        as_text = {"type": "string", "value": "AQID"}
        for version, expected, are_text in [
            (None, as_text, True),
            (-1, as_text, True),
            (0, as_text, True),
            (1, as_data, True),
            (2, as_data, False),
        ]:
            self.store = self.folder / f"schema {version}"
            self.run_host(
                "prefs",
                "import",
                self.plist(old if version is None else old | {VERSION_KEY: version}),
            )
            listed = self.listed()
            self.assertNotIn(VERSION_KEY, listed)
            self.assertEqual(listed[color], expected, version)
            records = json.loads(base64.b64decode(listed[ports]["value"]))
            self.assertEqual(records, [{"protocolPorts": "80" if are_text else [80]}], version)
        self.store = self.folder / "newer list"
        self.assertIn(
            "schema 3",
            self.run_host("prefs", "import", self.plist({VERSION_KEY: 3, "key": 1}), code=3),
        )
        self.assertEqual(self.listed(), {})
        self.run_host("prefs", "set", VERSION_KEY, "--int", "3")
        self.assertIn("schema 3", self.run_host("prefs", "import", self.plist({"key": 1}), code=3))
        self.assertEqual(list(self.listed()), [VERSION_KEY])

    def test_import_is_all_or_nothing(self):
        self.run_host("prefs", "set", "mine", "--string", "stays")
        for name, contents in [
            ("missing", None),
            ("no list", b"settings"),
            ("half", Path(SAMPLE).read_bytes()[:-40]),
        ]:
            file = self.folder / name
            if contents is not None:
                file.write_bytes(contents)
            self.run_host("prefs", "import", str(file), code=3)
        self.assertEqual(list(self.listed()), ["mine"])

    def test_import_takes_the_list_that_was_printed_as_json(self):
        self.run_host("prefs", "import", SAMPLE)
        for name, option, text in [
            ("date", "--date", "2026-03-01T12:30:00.25Z"),
            ("far", "--real", "-inf"),
            ("nested", "--json", '{"a":[1,1.0,true,"b"]}'),
            ("bytes", "--data", "AP8="),
        ]:
            self.run_host("prefs", "set", name, option, text)
        self.run_host("prefs", "import", self.plist({VERSION_KEY: 2, "undefined": float("nan")}))
        self.run_host("prefs", "set", VERSION_KEY, "--int", "2")
        printed = self.run_host("prefs", "list", "--format", "json")
        self.store = self.folder / "copy.sqlite"
        text = self.run_host("prefs", "import", "-", text=printed)
        self.assertEqual(text, f"Imported {len(json.loads(printed)) - 1} keys.\n")
        self.run_host("prefs", "set", VERSION_KEY, "--int", "2")
        self.assertEqual(self.run_host("prefs", "list", "--format", "json"), printed)

    def test_import_refuses_json_that_is_no_list_of_typed_values(self):
        for text, expected in [
            ("{", "not JSON"),
            ('{"key": 1}', "“key”: the entry has no type"),
            ('{"key": {"type": "number", "value": 1}}', "“key”: the entry has no type"),
            ('{"key": {"type": "integer", "value": "1"}}', "not of the type integer"),
            ('{"key": {"type": "boolean", "value": 1}}', "not of the type boolean"),
            ('{"key": {"type": "array", "value": {}}}', "not of the type array"),
            ('{"key": {"type": "data", "value": "A"}}', "not base64"),
            ('{"key": {"type": "real", "value": "far"}}', "not a real number"),
            (
                '{"good": {"type": "integer", "value": 1}, "key": {"type": "array", "value": [null]}}',
                "null",
            ),
        ]:
            message = self.run_host("prefs", "import", "-", text=text, code=3)
            self.assertTrue(message.startswith("zorvantine: standard input: "), message)
            self.assertIn(expected, message)
        self.assertEqual(self.listed(), {})

    def test_export_to_standard_output_is_what_a_file_would_hold(self):
        self.run_host("prefs", "import", SAMPLE)
        target = self.folder / "list"
        for form in ("xml", "binary"):
            self.run_host("prefs", "export", str(target), "--format", form)
            done = subprocess.run(
                self.command("prefs", "export", "-", "--format", form),
                capture_output=True,
                check=True,
            )
            self.assertEqual(done.stdout, target.read_bytes())
            self.store = self.folder / f"{form}.sqlite"
            subprocess.run(
                self.command("prefs", "import", "-"),
                input=done.stdout,
                capture_output=True,
                check=True,
            )
            self.assertGreater(len(self.listed()), 20)
            self.store = self.folder / "store.sqlite"
        self.assertFalse((self.folder / "-").exists())

    def test_export_is_readable_by_another_reader(self):
        with open(SAMPLE, "rb") as file:
            expected = plistlib.load(file)
        self.run_host("prefs", "import", self.plist(expected | {VERSION_KEY: 2}))
        for form, beginning in (("xml", b"<?xml"), ("binary", b"bplist00")):
            target = self.folder / form
            self.run_host("prefs", "export", str(target), "--format", form)
            self.assertTrue(target.read_bytes().startswith(beginning))
            with target.open("rb") as file:
                self.assertEqual(plistlib.load(file), expected)
        self.run_host("prefs", "export", str(self.folder / "no" / "such" / "folder"), code=3)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
