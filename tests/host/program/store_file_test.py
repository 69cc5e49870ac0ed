#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the commands do to the file of a store and to its folder, and what they say of a file that
they cannot use.

    store_file_test.py ZORVANTINE SAMPLE
"""

import os
import sqlite3
import subprocess
import sys
import unittest

from command_line import PROGRAM, CommandLine

SAMPLE = sys.argv[2]


class StoreFile(CommandLine):
    def reading(self, exported="no/such/folder"):
        """The commands that read. Exporting fails unless the folder of the file is there."""
        return [
            ["prefs", "list"],
            ["prefs", "get", "key"],
            ["prefs", "export", str(self.folder / exported)],
            ["analyzers"],
            ["find", "dns"],
            ["describe"],
        ]

    def test_commands_that_read_refuse_a_store_that_is_not_there(self):
        for words in self.reading("exported") + [["prefs", "verify"], ["prefs", "watch"]]:
            self.assertIn(f"no store {self.store}", self.run_host(*words, code=3))
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_failures_say_what_to_do(self):
        self.assertIn("--help", self.run_host("prefs", "frobnicate", code=2))
        self.assertIn("--help", self.run_host("prefs", "get", "two\nlines", "more", code=2))
        self.store.mkdir()
        for words in (["list"], ["get", "key"], ["set", "key", "--int", "1"], ["delete", "key"]):
            self.run_host("prefs", *words, code=3)

    def test_verification_tells_a_good_store_from_a_damaged_one(self):
        self.run_host("prefs", "set", "key", "--string", "a value")
        report = self.run_host("prefs", "verify")
        self.assertIn("in order: 1 key", report)
        self.assertNotIn("a value", report)
        self.store.write_bytes(b"no store any more" * 1000)
        done = subprocess.run(self.command("prefs", "verify"), capture_output=True, text=True)
        self.assertEqual(done.returncode, 3)
        self.assertIn(str(self.store), done.stdout)
        self.assertRegex(done.stderr, r"\Azorvantine: [^\n]+\n\Z")

    def test_folder_of_the_store_is_closed_to_other_users(self):
        folder = self.folder / "config" / "zorvantine"
        folder.mkdir(parents=True)
        for mode in (0o755, 0o770, 0o701):
            folder.chmod(mode)
            environment = os.environ | {"XDG_CONFIG_HOME": str(folder.parent)}
            subprocess.run(
                [PROGRAM, "prefs", "set", "key", "--int", "1"], env=environment, check=True
            )
            self.assertEqual(oct(folder.stat().st_mode & 0o777), "0o700")

    def test_commands_refuse_a_file_that_is_no_store_and_leave_it_alone(self):
        database = self.folder / "other.sqlite"
        other = sqlite3.connect(database)
        other.execute("CREATE TABLE preferences (a, b)")
        other.commit()
        other.close()
        thesis = self.folder / "thesis.txt"
        thesis.write_text("A thesis.\n" * 1000)
        for file in (database, thesis):
            file.chmod(0o644)
            self.store = file
            before = self.files()
            writing = [
                ["set", "key", "--int", "1"],
                ["delete", "key"],
                ["import", SAMPLE],
                ["migrate"],
            ]
            for words in (
                self.reading() + [["prefs", *words] for words in writing] + [["prefs", "watch"]]
            ):
                self.assertIn(file.name, self.run_host(*words, code=3))
                self.assertEqual(self.files(), before, words)
            done = subprocess.run(self.command("prefs", "verify"), capture_output=True, text=True)
            self.assertEqual(done.returncode, 3)
            self.assertEqual(self.files(), before)

    def test_every_command_says_once_that_the_store_was_restored(self):
        """`delete` runs last, because it opens the store for writing and so repairs it."""
        self.run_host("prefs", "set", "mine", "--string", "kept")
        self.store.write_bytes(b"\0" * self.store.stat().st_size)
        damaged = self.files()
        openings = set()
        for words, code in zip(self.reading(), [0, 1, 3, 0, 0, 0], strict=True):
            done = subprocess.run(self.command(*words), capture_output=True, text=True)
            self.assertEqual(done.returncode, code, done.stderr)
            lines = done.stderr.splitlines()
            self.assertEqual(len(lines), 1 if code == 0 else 2, done.stderr)
            openings.add(lines[0])
            for line in lines:
                self.assertTrue(line.startswith("zorvantine: "), line)
            self.assertEqual(self.files(), damaged, words)
        self.assertEqual(len(openings), 1, openings)
        done = subprocess.run(
            self.command("prefs", "delete", "key"), capture_output=True, text=True
        )
        self.assertEqual((done.returncode, len(done.stderr.splitlines())), (1, 2), done.stderr)
        self.assertEqual(self.run_host("prefs", "get", "mine"), "kept\n")

    def test_commands_that_read_leave_the_folder_as_it_is(self):
        self.run_host("prefs", "set", "key", "--string", "value")
        before = self.files()
        for words in (
            ["prefs", "list"],
            ["prefs", "get", "key"],
            ["prefs", "verify"],
            ["analyzers"],
            ["find", "dns"],
            ["describe"],
        ):
            self.run_host(*words)
            self.assertEqual(self.files(), before, words)

    def test_own_store_that_does_not_exist_yet_is_empty(self):
        for words in (["prefs", "list"], ["analyzers"], ["describe"], ["prefs", "verify"]):
            done = subprocess.run(
                [PROGRAM, *words],
                env=os.environ | {"XDG_CONFIG_HOME": str(self.folder)},
                capture_output=True,
                text=True,
            )
            self.assertEqual((done.returncode, done.stderr), (0, ""), words)
        self.assertEqual(list(self.folder.iterdir()), [])

    @unittest.skipUnless(os.path.exists("/dev/full"), "no device that is full")
    def test_result_that_cannot_be_written_is_a_failure(self):
        with open("/dev/full", "w") as full:
            done = subprocess.run(
                self.command("--help"), stdout=full, stderr=subprocess.PIPE, text=True
            )
        self.assertEqual(done.returncode, 3)
        self.assertRegex(done.stderr, r"\Azorvantine: [^\n]+\n\Z")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
