#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Watching a store from a shell.

    watch_test.py ZORVANTINE
"""

import contextlib
import json
import os
import signal
import subprocess
import sys
import unittest

from command_line import CommandLine


class Watch(CommandLine):
    @contextlib.contextmanager
    def watching(self, *words):
        """A watcher that observes the store, and the first line that it printed."""
        self.run_host("prefs", "set", "started", "--int", "-1")
        watcher = subprocess.Popen(
            self.command("prefs", "watch", *words), stdout=subprocess.PIPE, text=True
        )
        self.addCleanup(watcher.stdout.close)
        try:
            # The first changes may be made before the watcher observes the store.
            os.set_blocking(watcher.stdout.fileno(), False)
            line = ""
            for attempt in range(1000):
                self.run_host("prefs", "set", "started", "--int", str(attempt))
                if line := watcher.stdout.readline():
                    break
            os.set_blocking(watcher.stdout.fileno(), True)
            yield watcher, line
        finally:
            watcher.kill()
            watcher.wait()

    def test_watch_prints_each_change_until_interrupted(self):
        for stop in (signal.SIGINT, signal.SIGTERM):
            with self.watching() as (watcher, line):
                self.assertRegex(line, r"\Astarted +integer +[0-9]+\n\Z")
                # The watcher takes changes over in turns. It reports one change of a key for each
                # turn, and none when the value is as before, so each change is awaited.
                changes = (["set", "key", "--string", "one\ntwo"], "key  string"), (
                    ["delete", "key"],
                    "key  removed",
                )
                for change, beginning in changes:
                    self.run_host("prefs", *change)
                    line = ""
                    while not line.startswith(beginning):
                        line = watcher.stdout.readline()
                        self.assertTrue(line, "the watcher ended by itself")
                watcher.send_signal(stop)
                self.assertEqual(watcher.wait(timeout=60), 0)

    def test_watch_prints_the_named_keys_as_json(self):
        with self.watching("--format", "json", "started", "key") as (watcher, line):
            self.run_host("prefs", "set", "other", "--int", "1")
            self.run_host("prefs", "set", "key", "--json", '["a"]')
            changes = [json.loads(line)]
            while changes[-1]["key"] != "key":
                changes.append(json.loads(watcher.stdout.readline()))
            self.assertEqual(changes.pop(), {"key": "key", "type": "array", "value": ["a"]})
            self.assertEqual({change["key"] for change in changes}, {"started"})
            self.run_host("prefs", "delete", "key")
            self.assertEqual(json.loads(watcher.stdout.readline()), {"key": "key", "removed": True})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
