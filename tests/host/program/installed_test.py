#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The installed programs, in a tree that was moved after it was installed.

    installed_test.py BUILD SCRATCH
"""

import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

BUILD, SCRATCH = Path(sys.argv[1]), Path(sys.argv[2])
BINARIES, DATA, PROGRAMS = "bin", "share", "libexec/QEVSettings"


class InstalledTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        shutil.rmtree(SCRATCH, ignore_errors=True)
        installed, cls.tree = SCRATCH / "installed", SCRATCH / "moved"
        subprocess.run(
            ["cmake", "--install", BUILD, "--prefix", installed, "--component", "runtime"],
            check=True,
            capture_output=True,
        )
        installed.rename(cls.tree)
        cls.program = cls.tree / BINARIES / "zorvantine"

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(SCRATCH)

    def run_host(self, program, *words, code=0):
        environment = os.environ | {
            "XDG_CONFIG_HOME": str(SCRATCH / "config"),
            "LC_ALL": "C.UTF-8",
            "LANGUAGE": "de",
        }
        done = subprocess.run(
            [program, *words],
            env=environment,
            cwd=SCRATCH,
            capture_output=True,
            text=True,
            timeout=120,
        )
        self.assertEqual(done.returncode, code, done.stderr)
        return done.stdout if code == 0 else done.stderr

    def picture(self, program, name):
        self.run_host(program, "snapshot", "--tab", "general", "--out", str(SCRATCH / name))
        return (SCRATCH / name / "general.png").read_bytes()

    def test_program_of_the_shell_does_not_link_qt(self):
        libraries = subprocess.run(
            ["ldd", self.program], check=True, capture_output=True, text=True
        ).stdout
        self.assertIn("libsqlite3", libraries)
        unwanted = ["libQt6", "libicu", "libsodium"]
        if "libasan" not in libraries:  # which brings the standard library with it
            unwanted.append("libstdc++")
        for library in unwanted:
            self.assertNotIn(library, libraries)

    def test_programs_find_each_other_and_their_texts(self):
        self.run_host(self.program, "prefs", "set", "key", "--int", "1")
        self.assertEqual(self.run_host(self.program, "prefs", "get", "key"), "1\n")
        self.assertIn("Allgemein", self.run_host(self.program, "describe"))
        drawn = self.picture(self.program, "moved pictures")
        self.assertEqual(drawn, self.picture(BUILD / "bin" / "zorvantine", "built pictures"))

    def test_program_that_is_missing_is_a_failure(self):
        programs = self.tree / PROGRAMS
        hidden = programs.with_name("hidden")
        programs.rename(hidden)
        try:
            for name, words in (
                ("window", ["settings"]),
                ("window", ["run"]),
                ("window", ["snapshot", "--out", "pictures"]),
                ("pages", ["describe"]),
                ("pages", ["analyzers"]),
            ):
                message = self.run_host(self.program, *words, code=3)
                self.assertRegex(
                    message, rf"\Azorvantine: [^\n]*/zorvantine-{name} [^\n]*install[^\n]*\n\Z"
                )
        finally:
            hidden.rename(programs)

    def test_manual_and_completions_are_installed(self):
        for file in (
            "man/man1/zorvantine.1",
            "bash-completion/completions/zorvantine",
            "zsh/vendor-completions/_zorvantine",
            "fish/vendor_completions.d/zorvantine.fish",
        ):
            self.assertIn("prefs", (self.tree / DATA / file).read_text(encoding="utf-8"), file)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
