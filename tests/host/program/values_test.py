#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Setting, reading and deleting values from a shell.

    values_test.py ZORVANTINE
"""

import os
import pty
import subprocess
import sys
import unittest

from command_line import CommandLine


class Values(CommandLine):
    def test_values_come_back_as_they_were_set(self):
        cases = [
            ("--string", "a line\nand another", "string", "a line\nand another"),
            ("--int", "-9223372036854775808", "integer", -(2**63)),
            ("--bool", "true", "boolean", True),
            ("--real", "0.1", "real", 0.1),
            ("--real", "-inf", "real", "-inf"),
            ("--data", "AP8=", "data", "AP8="),
            ("--date", "2026-03-01T12:30:00.25Z", "date", "2026-03-01T12:30:00.25Z"),
            ("--json", '{"a":[1,true,"b"]}', "dictionary", {"a": [1, True, "b"]}),
        ]
        for number, (option, text, kind, value) in enumerate(cases):
            self.run_host("prefs", "set", f"key {number}", option, text)
            self.assertEqual(self.run_host("prefs", "get", f"key {number}"), text + "\n")
            self.assertEqual(self.listed()[f"key {number}"], {"type": kind, "value": value})
        lines = self.run_host("prefs", "list").splitlines()
        self.assertEqual(len(lines), len(cases))
        self.assertEqual(lines, sorted(lines))

    def test_deleted_key_is_gone(self):
        self.run_host("prefs", "set", "key", "--int", "1")
        self.run_host("prefs", "delete", "key")
        self.run_host("prefs", "get", "key", code=1)
        self.run_host("prefs", "delete", "key", code=1)
        self.assertEqual(self.listed(), {})

    def shown_on_a_terminal(self, *words):
        terminal, end = pty.openpty()
        subprocess.run(self.command(*words), stdout=end, check=True, timeout=120)
        os.close(end)
        try:
            with open(terminal, "rb", buffering=0) as file:
                return file.read(4096).decode()
        except OSError:
            return ""

    def test_stored_control_characters_are_escaped_for_a_person(self):
        text = "\x1b[2J\u009b\u202e\u2066\x7f"
        escaped = r"\x1b[2J\xc2\x9b\xe2\x80\xae\xe2\x81\xa6\x7f"
        self.store = self.folder / f"store{text}"
        self.run_host("prefs", "set", text, "--string", text)
        self.assertEqual(self.run_host("prefs", "list"), f"{escaped}  string      {escaped}\n")
        self.assertEqual(self.run_host("prefs", "get", text), text + "\n")
        self.assertEqual(self.shown_on_a_terminal("prefs", "get", text), escaped + "\r\n")
        self.assertIn(f"store{escaped} is in order", self.run_host("prefs", "verify"))
        self.assertIn(escaped, self.run_host("prefs", "get", text + "!", code=1))
        self.assertEqual(list(self.listed()), [text])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
