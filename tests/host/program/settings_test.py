#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The catalogue, the layers and the profiles as a shell sees them.

    settings_test.py ZORVANTINE
"""

import json
import os
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from host_program import output_of

PROGRAM = sys.argv[1]
APPEARANCE = "com_velloquin_zorvantine_appearanceName"
USE_SYSTEM = "com_velloquin_zorvantine_appearanceUseSystem"
BUFFER = "com_velloquin_zorvantine_capture_bufferSize"
DNS = "com_velloquin_qev_dns_"
MEMBERS = {"type", "default", "range", "title", "purpose", "value", "origin", "locked"}
IS_ROOT = os.getuid() == 0


class Settings(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        self.system = self.folder / "xdg"
        self.environment = os.environ | {
            "XDG_CONFIG_HOME": str(self.folder / "home"),
            "XDG_CONFIG_DIRS": str(self.system),
            "TMPDIR": scratch.name,
        }

    def run_host(self, *words, code=0, **variables):
        done = subprocess.run(
            [PROGRAM, *words],
            env=self.environment | variables,
            capture_output=True,
            text=True,
            timeout=120,
        )
        return output_of(self, done, code)

    def described(self, *words):
        return json.loads(
            self.run_host(*words[:-1], "prefs", "describe", words[-1], "--format", "json")
        )[words[-1]]

    def administer(self, name, text):
        file = self.system / "zorvantine" / name
        file.parent.mkdir(parents=True, exist_ok=True)
        (file.parent / ".new").write_text(text)
        (file.parent / ".new").rename(file)

    def test_every_setting_is_described_with_its_members(self):
        settings = json.loads(self.run_host("prefs", "describe", "--format", "json"))
        self.assertGreater(len(settings), 100)
        for key, setting in settings.items():
            self.assertEqual(setting.keys(), MEMBERS, key)
            self.assertEqual((setting["origin"], setting["locked"]), ("default", False))
            self.assertEqual(setting["value"], setting["default"])
            self.assertTrue(setting["title"] and setting["purpose"].endswith("."), key)
        self.assertEqual(settings[BUFFER]["range"], {"lowest": 1, "highest": 1024})
        self.assertIn("NSAppearanceNameAqua", settings[APPEARANCE]["range"])
        self.assertIsNone(settings[DNS + "color"]["default"])
        text = self.run_host("prefs", "describe", BUFFER)
        for part in (BUFFER, "1 to 1024", "default: 16", "origin: default"):
            self.assertIn(part, text)

    def test_get_answers_with_the_value_in_force(self):
        self.assertEqual(self.run_host("prefs", "get", BUFFER), "16\n")
        self.run_host("prefs", "set", BUFFER, "32")
        self.assertEqual(self.run_host("prefs", "get", BUFFER), "32\n")
        self.assertEqual(self.run_host("prefs", "get", BUFFER, "--default"), "16\n")
        self.assertEqual(self.run_host("prefs", "get", BUFFER, "--origin"), "user\n")
        self.assertEqual(self.run_host("--set", BUFFER + "=64", "prefs", "get", BUFFER), "64\n")
        self.assertEqual(
            self.run_host("prefs", "get", BUFFER, "--origin", "--set", BUFFER + "=64"),
            "command-line\n",
        )
        self.assertEqual(self.run_host("prefs", "get", USE_SYSTEM, "--origin"), "default\n")
        self.run_host("prefs", "get", "unknown", code=1)
        self.assertIn("1 to 1024", self.run_host("--set", BUFFER + "=0", "prefs", "list", code=2))
        self.assertIn(BUFFER, self.run_host("--set", BUFFER[:-1] + "=1", "prefs", "list", code=2))

    def test_set_takes_the_type_of_the_setting_and_refuses_what_does_not_fit(self):
        for key, text, message in (
            (BUFFER, "banana", "from 1 to 1024"),
            (BUFFER, "1025", "from 1 to 1024"),
            (USE_SYSTEM, "yes", "true or false"),
            (APPEARANCE, "blue", "NSAppearanceNameAqua or NSAppearanceNameDarkAqua"),
            (DNS + "color", "red", "a colour"),
            (DNS + "protocols", "AP8=", "a list of protocols"),
        ):
            self.assertIn(message, self.run_host("prefs", "set", key, text, code=2))
        self.assertIn(
            "from 1 to 1024", self.run_host("prefs", "set", BUFFER, "--string", "banana", code=2)
        )
        self.assertIn("did you mean", self.run_host("prefs", "set", BUFFER + "s", "3", code=1))
        self.assertEqual(self.run_host("prefs", "list"), "")
        self.run_host("prefs", "set", BUFFER, "--string", "banana", "--force")
        self.assertIn("from 1 to 1024", self.run_host("prefs", "verify"))
        for words, note in (
            (["a key of nobody"], ""),
            ([BUFFER + "s"], f"“{BUFFER}”"),
            ([BUFFER + "s", "--force"], ""),
        ):
            done = subprocess.run(
                [PROGRAM, "prefs", "set", *words, "--int", "3"],
                env=self.environment,
                capture_output=True,
                text=True,
            )
            self.assertEqual((done.returncode, bool(done.stderr)), (0, bool(note)))
            self.assertIn(note, done.stderr)
        self.run_host(
            "prefs",
            "set",
            DNS + "protocols",
            '[{"protocolName":"D","protocolPorts":"54","sourceProtocol":3}]',
        )
        # The form of an older release, which the migration brings up to date.
        self.run_host("prefs", "set", DNS + "color", "--data", "AQID")
        self.run_host("prefs", "set", BUFFER, code=2)
        self.run_host("prefs", "set", BUFFER, "1", "--int", "1", code=2)

    def test_reset_removes_the_persons_values_and_brings_factory_ports_back(self):
        self.run_host("prefs", "set", BUFFER, "32")
        self.run_host("prefs", "set", DNS + "colors_packets", "true")
        self.run_host("prefs", "set", DNS + "protocols", "[]")
        self.assertIn(BUFFER, self.run_host("prefs", "diff"))
        self.run_host("prefs", "reset", BUFFER)
        self.assertEqual(self.run_host("prefs", "get", BUFFER, "--origin"), "default\n")
        self.assertIn("2 settings", self.run_host("prefs", "reset", "--analyzer", "dns"))
        self.assertEqual(self.run_host("prefs", "diff"), "")
        self.assertIn('"DNS"', self.run_host("prefs", "list"))
        self.run_host("prefs", "set", BUFFER, "32")
        self.run_host("prefs", "reset", "--all")
        self.assertEqual(self.run_host("prefs", "diff"), "")
        self.run_host("prefs", "reset", code=2)
        self.run_host("prefs", "reset", "unknown", code=1)
        self.run_host("prefs", "reset", "--analyzer", "nobody", code=1)

    def test_edit_stores_all_of_a_text_or_nothing(self):
        self.run_host("prefs", "set", BUFFER, "32")
        self.run_host("prefs", "set", USE_SYSTEM, "true")
        self.run_host("prefs", "edit", code=3, EDITOR="", VISUAL="")
        self.assertIn("failed", self.run_host("prefs", "edit", code=3, EDITOR="false"))
        for script, message in (("s/32/3200/", "from 1 to 1024"), ("s/}/]/", "JSON")):
            error = self.run_host("prefs", "edit", code=3, EDITOR=f"sed -i '{script}'")
            self.assertIn(message, error)
            kept = Path(error.rsplit(" ", 1)[1].strip())
            self.assertTrue(kept.exists())
        self.assertEqual(self.run_host("prefs", "get", BUFFER), "32\n")
        edited = self.run_host(
            "prefs", "edit", EDITOR=f"sed -i -e 's/32/33/' -e 's/}},$/}}/' -e '/{USE_SYSTEM}/d'"
        )
        self.assertEqual(edited, "Changed 2 keys.\n")
        self.assertEqual(self.run_host("prefs", "get", BUFFER), "33\n")
        self.assertEqual(self.run_host("prefs", "get", USE_SYSTEM, "--origin"), "default\n")

    @unittest.skipUnless(IS_ROOT, "only root can make administrators' files")
    def test_locked_settings_are_in_force_and_every_way_of_writing_them_fails(self):
        self.run_host("prefs", "set", BUFFER, "32")
        self.administer("defaults.d/1.json", json.dumps({USE_SYSTEM: True, "unknown": 1}))
        self.assertEqual(self.described(USE_SYSTEM)["origin"], "administrator")
        self.administer("locks.d/1.json", json.dumps({BUFFER: 64}))
        locked = self.described("--set", BUFFER + "=8", BUFFER)
        self.assertEqual(
            (locked["value"], locked["origin"], locked["locked"]), (64, "locked", True)
        )
        exported = self.folder / "list.plist"
        self.run_host("prefs", "export", str(exported))
        for words in (
            ["set", BUFFER, "16"],
            ["set", BUFFER, "--int", "16", "--force"],
            ["delete", BUFFER],
            ["reset", BUFFER],
        ):
            self.assertIn("managed by your organization", self.run_host("prefs", *words, code=3))
        self.assertIn(
            "managed by", self.run_host("prefs", "edit", code=3, EDITOR="sed -i s/32/33/")
        )
        self.assertIn(
            f"Left out what your organization manages: {BUFFER}",
            self.run_host("prefs", "import", str(exported)),
        )
        self.assertIn("left 1", self.run_host("prefs", "reset", "--all"))
        self.administer("locks.d/1.json", "{}")
        self.assertEqual(self.run_host("prefs", "get", BUFFER), "32\n")

    @unittest.skipUnless(IS_ROOT, "only root can make administrators' files")
    def test_broken_file_is_one_line_and_changes_are_told_while_a_process_watches(self):
        self.administer("locks.d/1.json", "{")
        done = subprocess.run(
            [PROGRAM, "prefs", "get", BUFFER], env=self.environment, capture_output=True, text=True
        )
        self.assertEqual((done.returncode, done.stdout), (0, "16\n"))
        self.assertRegex(done.stderr, r"\Azorvantine: [^\n]*locks.d/1.json[^\n]*byte[^\n]*\n\Z")
        self.run_host("prefs", "migrate")
        watch = subprocess.Popen(
            [PROGRAM, "prefs", "watch"], env=self.environment, stdout=subprocess.PIPE, text=True
        )
        try:
            time.sleep(0.5)
            begun = time.monotonic()
            self.administer("locks.d/1.json", json.dumps({BUFFER: 64}))
            self.assertRegex(watch.stdout.readline(), BUFFER + " +integer +64")
            self.assertLess(time.monotonic() - begun, 60)
        finally:
            watch.terminate()
            watch.communicate()

    def test_profiles_are_stores_of_their_own(self):
        self.assertEqual(self.run_host("profiles", "list"), "standard\n")
        self.run_host("prefs", "set", BUFFER, "32")
        self.run_host("profiles", "create", "Anlage Süd", "--from", "standard")
        self.run_host("profiles", "create", "büro")
        self.assertEqual(
            json.loads(self.run_host("profiles", "list", "--format", "json")),
            ["standard", "Anlage Süd", "büro"],
        )
        self.assertEqual(self.run_host("--profile", "Anlage Süd", "prefs", "get", BUFFER), "32\n")
        self.run_host("--profile", "Anlage Süd", "prefs", "set", BUFFER, "33")
        self.assertEqual(self.run_host("prefs", "get", BUFFER), "32\n")
        self.assertEqual(self.run_host("prefs", "get", BUFFER, "--profile", "büro"), "16\n")
        self.assertIn("33", self.run_host("prefs", "diff", "Anlage Süd"))
        exported = self.folder / "list.plist"
        self.run_host("profiles", "export", "Anlage Süd", str(exported))
        self.assertIn("33", self.run_host("prefs", "diff", str(exported)))
        self.run_host("profiles", "import", "neu", str(exported))
        self.assertEqual(self.run_host("--profile", "neu", "prefs", "get", BUFFER), "33\n")
        self.run_host("profiles", "rename", "neu", "alt")
        self.run_host("profiles", "delete", "alt")
        self.assertEqual(self.run_host("profiles", "list"), "standard\nAnlage Süd\nbüro\n")
        for words in (
            ["profiles", "create", "büro"],
            ["profiles", "create", "x", "--from", "nobody"],
            ["profiles", "rename", "standard", "x"],
            ["profiles", "rename", "büro", "Anlage Süd"],
            ["profiles", "delete", "standard"],
            ["profiles", "delete", "nobody"],
            ["profiles", "export", "nobody", "-"],
            ["--profile", "nobody", "prefs", "list"],
            ["prefs", "diff", "nobody"],
        ):
            self.run_host(*words, code=3)
        for name in ("../x", ".x", "", "a/b", " a", "x" * 101, "a\nb"):
            self.run_host("profiles", "create", name, code=2)
        self.run_host("--profile", "büro", "--store", "x", "prefs", "list", code=2)
        mode = (self.folder / "home/zorvantine/profiles/büro").stat().st_mode
        self.assertEqual(mode & 0o077, 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
