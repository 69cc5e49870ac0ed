#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Bringing a store up to the current schema from a shell.

    migration_test.py ZORVANTINE SAMPLE
"""

import base64
import json
import plistlib
import re
import subprocess
import sys
import unittest

from command_line import PREFIX, VERSION_KEY, CommandLine

SAMPLE = sys.argv[2]


class Number(str):
    """A number of a JSON text, kept as it is written."""


def migrated_list(data):
    """One protocol list after the migration, or None when the migration leaves it alone."""
    try:
        records = json.loads(data.decode("utf-8"), parse_int=Number, parse_float=Number)
    except (ValueError, RecursionError):
        return None
    if not isinstance(records, list) or not all(isinstance(record, dict) for record in records):
        return None
    changed = False
    for record in records:
        ports = record.get("protocolPorts")
        if not isinstance(ports, list):
            continue
        are_numbers = all(
            isinstance(port, Number) and re.fullmatch("-?[0-9]+", port) for port in ports
        )
        are_texts = all(isinstance(port, str) and not isinstance(port, Number) for port in ports)
        if are_numbers or are_texts:
            record["protocolPorts"] = ",".join(ports)
            changed = True
    return records if changed else None


class Migration(CommandLine):
    def test_verification_names_keys_in_the_form_of_an_older_release(self):
        names = [f"{PREFIX}a_color", f"{PREFIX}b_protocols"]
        ports = base64.b64encode(b'[{"protocolPorts":[80]}]').decode()
        for version, hint in (
            ("0", "next start"),
            ("1", "run “zorvantine"),
            ("2", "run “zorvantine"),
        ):
            self.run_host("prefs", "set", names[0], "--data", "AQID")
            self.run_host("prefs", "set", names[1], "--data", ports)
            self.run_host("prefs", "set", VERSION_KEY, "--int", version)
            report = self.run_host("prefs", "verify")
            self.assertEqual(re.findall("^  (.*)$", report, re.MULTILINE), names)
            self.assertIn(hint, report)
            # The commands that the report names bring the keys up to date.
            for command in re.findall("“zorvantine (.*?)”", report):
                subprocess.run(self.command(*command.split()), check=True, capture_output=True)
            self.assertNotIn("older release", self.run_host("prefs", "verify"))
            self.assertEqual(self.listed()[names[0]], {"type": "string", "value": "AQID"})

    def test_migration_brings_the_sample_up_to_date(self):
        # The list claims the current schema, so the import leaves its older forms alone.
        with open(SAMPLE, "rb") as file:
            self.run_host("prefs", "import", self.plist(plistlib.load(file) | {VERSION_KEY: 2}))
        before = self.listed()
        done = subprocess.run(self.command("prefs", "migrate"), capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout), (0, ""))
        after = self.listed()

        self.assertEqual(after.pop(VERSION_KEY), {"type": "integer", "value": 2})
        self.assertEqual(after.keys(), before.keys())
        colors = lists = 0
        for key, old in before.items():
            is_data = key.startswith(PREFIX) and old["type"] == "data"
            if is_data and key.endswith("_color"):
                colors += 1
                self.assertEqual(after[key], {"type": "string", "value": old["value"]}, key)
                continue
            expected = None
            if is_data and key.endswith("_protocols"):
                expected = migrated_list(base64.b64decode(old["value"]))
            if expected is None:
                self.assertEqual(after[key], old, key)
                continue
            lists += 1
            self.assertEqual(after[key]["type"], "data")
            written = base64.b64decode(after[key]["value"])
            self.assertEqual(
                json.loads(written, parse_int=Number, parse_float=Number), expected, key
            )
        self.assertGreaterEqual(colors, 24)
        self.assertIn(
            f"prefs migration v1: rewrote {colors} color key(s) from Data to base64 String",
            done.stderr,
        )
        self.assertIn(
            f"prefs migration v2: rewrote protocolPorts from array to String in {lists} protocol list(s)",
            done.stderr,
        )
        self.assertLess(done.stderr.index("v1:"), done.stderr.index("v2:"))

        again = subprocess.run(self.command("prefs", "migrate"), capture_output=True, text=True)
        self.assertEqual((again.returncode, again.stdout, again.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
