# SPDX-License-Identifier: MIT
"""What the tests of the command line share: the program over a store in a folder of its own."""

import hashlib
import json
import plistlib
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from host_program import output_of

PROGRAM = sys.argv[1]
PREFIX = "com_velloquin_qev_"
VERSION_KEY = "com_velloquin_zorvantine_prefs_schema_version"


class CommandLine(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        self.store = self.folder / "store.sqlite"

    def command(self, *words):
        return [PROGRAM, "--store", str(self.store), *words]

    def run_host(self, *words, code=0, text=""):
        done = subprocess.run(
            self.command(*words), input=text, capture_output=True, text=True, timeout=120
        )
        return output_of(self, done, code)

    def listed(self):
        return json.loads(self.run_host("prefs", "list", "--format", "json"))

    def files(self):
        """The mode and the hash of every file of the folder."""
        return {
            file.name: (oct(file.stat().st_mode), hashlib.sha256(file.read_bytes()).hexdigest())
            for file in self.folder.iterdir()
        }

    def plist(self, values, name="list.plist"):
        file = self.folder / name
        file.write_bytes(plistlib.dumps(values))
        return str(file)
