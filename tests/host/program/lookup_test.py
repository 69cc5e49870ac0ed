#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Commands that look something up: analyzers, find, help and ports.

    lookup_test.py ZORVANTINE
"""

import json
import re
import subprocess
import sys
import unittest

from command_line import PREFIX, CommandLine


class Lookup(CommandLine):
    def test_analyzers_show_their_defaults_and_what_is_stored(self):
        self.run_host("prefs", "set", f"{PREFIX}tcp_checksums", "--bool", "true")
        analyzers = {
            analyzer["title"]: analyzer
            for analyzer in json.loads(self.run_host("analyzers", "--format", "json"))
        }
        option = next(o for o in analyzers["TCP"]["options"] if o["label"] == "Compute checksums")
        self.assertEqual((option["default"], option["value"]), (False, True))
        self.assertEqual(
            analyzers["SSH"]["ports"]["default"][0], {"name": "SSH", "ports": "22", "source": "TCP"}
        )
        self.assertIsNone(analyzers["LLDP"]["ports"])
        text = self.run_host("analyzers")
        for title in analyzers:
            self.assertRegex(text, f"(?m)^{re.escape(title)} ")

    def test_settings_are_found_wherever_the_window_shows_them(self):
        self.run_host("prefs", "set", f"{PREFIX}tcp_checksums", "--bool", "true")
        found = json.loads(self.run_host("find", "5353", "--format", "json"))
        self.assertEqual(
            found[0],
            {
                "title": "Multicast DNS",
                "tab": "analyze",
                "analyzer": "DNS",
                "key": f"{PREFIX}dns_protocols",
            },
        )
        self.assertIn({"title": "DNS", "tab": "analyze", "analyzer": "DNS", "key": None}, found)
        capture = json.loads(self.run_host("find", "CAPTURE", "--format", "json"))[0]
        self.assertEqual(
            capture, {"title": "Capture", "tab": "capture", "analyzer": None, "key": None}
        )
        self.assertEqual(
            self.run_host("find", "Checksums", "tcp"),
            f"Compute checksums  Analyzer › TCP  {PREFIX}tcp_checksums\n",
        )
        changed = json.loads(self.run_host("find", "is:changed", "--format", "json"))
        self.assertEqual([each["key"] for each in changed], [f"{PREFIX}tcp_checksums"])
        described = json.loads(self.run_host("prefs", "describe", "--format", "json"))
        for each in json.loads(self.run_host("find", "e", "--format", "json")):
            self.assertIn(each["tab"], ("general", "capture", "proxy", "analyze", "appearance"))
            if each["key"] is not None:
                self.assertIn(each["key"], described)
        nothing = subprocess.run(
            self.command("find", "zebra", "--format", "json"), capture_output=True, text=True
        )
        self.assertEqual((nothing.returncode, json.loads(nothing.stdout)), (1, []))
        self.assertRegex(nothing.stderr, r"\Azorvantine: no setting has “zebra”[^\n]*\n\Z")
        self.run_host("find", code=2)

    def test_help_on_a_command_describes_that_command_alone(self):
        text = self.run_host("prefs", "set", "--help")
        self.assertEqual(text, self.run_host("help", "prefs", "set"))
        self.assertIn(
            "Usage: zorvantine prefs set KEY [VALUE] [(--string|--int", " ".join(text.split())
        )
        self.assertIn("base64", text)
        self.assertNotIn("prefs get", text)
        group = self.run_host("prefs", "--help")
        for name in (
            "list",
            "get",
            "set",
            "delete",
            "import",
            "export",
            "migrate",
            "watch",
            "verify",
        ):
            self.assertIn(f"Usage: zorvantine prefs {name}", group)
        self.run_host("frobnicate", "--help", code=2)
        self.assertLessEqual(max(map(len, self.run_host("--help").splitlines())), 80)

    def test_ports_are_put_in_order(self):
        done = subprocess.run(
            self.command("ports", "validate", "90000; 443,80 80", "--format", "json"),
            capture_output=True,
            text=True,
        )
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"\Azorvantine: [^\n]+ left out[^\n]*\n\Z")
        result = json.loads(done.stdout)
        self.assertEqual(result["ports"], "80,443")
        self.assertEqual(
            [correction["kind"] for correction in result["corrections"]],
            ["outOfRange", "duplicate"],
        )
        lines = self.run_host("ports", "validate", "-", text="8010-8000\n").splitlines()
        self.assertEqual(lines[0], "8000-8010")
        self.assertEqual(len(lines), 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
