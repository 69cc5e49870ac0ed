#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The history of changes as a shell sees it, and taking changes back.

    history_test.py ZORVANTINE
"""

import datetime
import json
import sys
import unittest

from command_line import CommandLine


class History(CommandLine):
    def history(self, *words):
        return json.loads(self.run_host("prefs", "history", *words, "--format", "json"))

    def test_history_tells_each_change_the_newest_first(self):
        begin = datetime.datetime.now(datetime.timezone.utc) - datetime.timedelta(seconds=1)
        self.run_host("prefs", "set", "a", "--int", "1")
        self.run_host("prefs", "set", "b", "--json", '{"x":[true,"y"]}')
        self.run_host("prefs", "set", "a", "--string", "one")
        self.run_host("prefs", "delete", "b")
        changes = self.history()
        sides = [(change["key"], change["before"], change["after"]) for change in changes]
        b = {"x": [True, "y"]}
        self.assertEqual(sides, [("b", b, None), ("a", 1, "one"), ("b", None, b), ("a", None, 1)])
        times = [
            datetime.datetime.fromisoformat(change["time"].replace("Z", "+00:00"))
            for change in changes
        ]
        self.assertEqual(times, sorted(times, reverse=True))
        self.assertGreater(times[-1], begin)
        version = self.run_host("--version").split()[-1]
        self.assertEqual({change["program"] for change in changes}, {f"zorvantine {version}"})
        self.assertEqual(self.history("a"), [changes[1], changes[3]])
        lines = self.run_host("prefs", "history").splitlines()
        self.assertEqual(len(lines), 4)
        self.assertIn("  a  1 → one  (zorvantine", lines[1])
        self.assertIn("no key", self.run_host("prefs", "history", "nothing", code=1))

    def test_undo_takes_changes_back_and_can_be_undone(self):
        self.run_host("prefs", "set", "a", "--int", "1")
        self.run_host("prefs", "set", "a", "--int", "2")
        self.run_host("prefs", "set", "b", "--string", "text")
        before = self.listed()
        self.run_host("prefs", "undo")
        self.assertNotIn("b", self.listed())
        self.run_host("prefs", "undo")
        self.assertEqual(self.listed(), before)
        self.assertIn("Undid 5 changes of 2 settings.", self.run_host("prefs", "undo", "5"))
        self.assertEqual(self.listed(), {})
        moment = self.history()[-2]["time"]
        self.run_host("prefs", "undo", "--to", moment)
        self.assertEqual(self.listed(), {"a": {"type": "integer", "value": 2}})
        self.assertIn(
            "Undid 0 changes", self.run_host("prefs", "undo", "--to", "2900-01-01T00:00:00Z")
        )

    def test_undo_is_all_or_nothing(self):
        self.run_host("prefs", "set", "large", "--string", "x" * 70_000)
        self.run_host("prefs", "set", "large", "--string", "small")
        self.run_host("prefs", "set", "a", "--int", "1")
        self.assertEqual(self.history("large")[0]["beforeBytes"], 70_000)
        self.assertIsNone(self.history("large")[0]["before"])
        before = self.listed()
        self.assertIn("“large” cannot be put back", self.run_host("prefs", "undo", "2", code=3))
        self.assertIn("no more than 3 changes", self.run_host("prefs", "undo", "4", code=3))
        self.assertIn(
            "does not reach back",
            self.run_host("prefs", "undo", "--to", "2020-01-01T00:00:00Z", code=3),
        )
        for words in (
            ["0"],
            ["1001"],
            ["x"],
            ["--to", "yesterday"],
            ["1", "--to", "2026-01-01T00:00:00Z"],
        ):
            self.run_host("prefs", "undo", *words, code=2)
        self.assertEqual(self.listed(), before)

    def test_history_is_off_by_a_setting(self):
        key = "com_velloquin_zorvantine_keepsHistory"
        self.run_host("prefs", "set", "a", "--string", "remember me")
        self.run_host("prefs", "set", key, "false")
        self.run_host("prefs", "set", "a", "--string", "forget me")
        self.assertEqual(self.history(), [])
        self.assertNotIn(b"remember me", self.store.read_bytes())
        self.run_host("prefs", "reset", key)
        self.run_host("prefs", "set", "a", "--string", "again")
        self.assertEqual(self.history()[0]["before"], "forget me")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
