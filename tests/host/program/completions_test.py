#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The completions of bash, zsh and fish, each run in its shell.

    completions_test.py ZORVANTINE FOLDER

FOLDER holds the three scripts.
"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM, SCRIPTS = Path(sys.argv[1]), Path(sys.argv[2])

BASH = """
source "$0"
COMP_WORDS=(zorvantine "$@")
COMP_CWORD=$#
_zorvantine
printf '%s\\n' "${COMPREPLY[@]}"
"""

# The functions of zsh that add a completion work only in its line editor, so the test replaces
# them.
ZSH = """
compadd() { if [[ $2 == ${words[CURRENT]}* ]]; then print -r -- "$2"; fi }
_files() { print -rl -- ${words[CURRENT]}*(N) }
words=(zorvantine "$@")
CURRENT=$#words
source "$0"
_zorvantine
"""

FISH = 'source $argv[1]; complete -C "$argv[2]"'


class Completions(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        self.environment = os.environ | {
            "HOME": scratch.name,
            "XDG_CONFIG_HOME": scratch.name,
            "PATH": f"{PROGRAM.parent}:{os.environ['PATH']}",
        }
        for store, key in (
            (["--store", "other.sqlite"], "other_key"),
            ([], "first_key"),
            ([], "second_key"),
        ):
            self.run_in(
                self.folder, [PROGRAM, *store, "prefs", "set", key, "--string", "two words"]
            )
        (self.folder / "list.plist").touch()

    def run_in(self, folder, command):
        done = subprocess.run(
            command, cwd=folder, env=self.environment, capture_output=True, text=True, timeout=120
        )
        self.assertEqual((done.returncode, done.stderr), (0, ""), command)
        return done.stdout

    def completed(self, shell, words):
        script = str(SCRIPTS / f"zorvantine.{shell}")
        command = {
            "bash": ["bash", "--norc", "-c", BASH, script, *words],
            "zsh": ["zsh", "-f", "-c", ZSH, script, *words],
            "fish": ["fish", "--no-config", "-c", FISH, script, " ".join(["zorvantine", *words])],
        }[shell]
        lines = self.run_in(self.folder, command).splitlines()
        return {line.split("\t")[0] for line in lines if line}

    def test_each_shell_completes_commands_options_values_files_and_keys(self):
        cases = [
            (["pre"], {"prefs"}),
            (["prefs", "li"], {"list"}),
            (["prefs", "e"], {"edit", "export"}),
            (["ports", ""], {"validate"}),
            (["help", "an"], {"analyzers"}),
            (["prefs", "list", "--format", ""], {"text", "json"}),
            (["prefs", "export", "--format", "b"], {"binary"}),
            (["--tab", "c"], {"capture"}),
            (["describe", "--language", "z"], {"zh-Hans"}),
            (["snapshot", "--app"], {"--appearance"}),
            (["prefs", "set", "--d"], {"--data", "--date"}),
            (["prefs", "list", "--analyzers", ""], set()),
            (["prefs", "get", "f"], {"first_key"}),
            (
                ["prefs", "get", "com_velloquin_zorvantine_capture_b"],
                {"com_velloquin_zorvantine_capture_bufferSize"},
            ),
            (["--store", "other.sqlite", "prefs", "delete", "o"], {"other_key"}),
            (["prefs", "set", "com_velloquin_zorvantine_appearanceUseSystem", "t"], {"true"}),
            (
                ["prefs", "set", "com_velloquin_zorvantine_appearanceName", "NSAppearanceNameD"],
                {"NSAppearanceNameDarkAqua"},
            ),
            (["prefs", "diff", "sta"], {"standard"}),
            (["--profile", "s"], {"standard"}),
            (["prefs", "import", "li"], {"list.plist"}),
            (["--store", "oth"], {"other.sqlite"}),
        ]
        for shell in ("bash", "zsh", "fish"):
            for words, expected in cases:
                with self.subTest(shell=shell, words=words):
                    completed = self.completed(shell, words)
                    if words[0] == "--store" and len(words) == 2:
                        completed = {name for name in completed if name == "other.sqlite"}
                    self.assertEqual(completed, expected)

    def test_each_shell_knows_every_command_of_the_help(self):
        text = self.run_in(self.folder, [PROGRAM, "--help"])
        commands = {
            line.split()[0]
            for line in text.splitlines()
            if line.startswith("  ") and line[2:3].islower()
        }
        self.assertGreater(len(commands), 5)
        for shell in ("bash", "zsh", "fish"):
            self.assertLessEqual(commands, self.completed(shell, [""]), shell)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
