#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The commands about the window, as a shell sees them, without a display.

    window_test.py ZORVANTINE
"""

import base64
import json
import os
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

PROGRAM = sys.argv[1]
TABS = ["general", "capture", "proxy", "analyze", "appearance"]
MEMBERS = {
    "kind",
    "role",
    "label",
    "value",
    "help",
    "note",
    "enabled",
    "selected",
    "visual",
    "frame",
    "children",
}


def pixels(picture):
    """The width and height of a PNG file."""
    data = picture.read_bytes()
    assert data.startswith(b"\x89PNG\r\n\x1a\n"), picture
    return struct.unpack(">II", data[16:24])


def nodes(tree):
    yield tree
    for child in tree["children"]:
        yield from nodes(child)


class WindowCommands(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        hidden = {
            "DISPLAY",
            "WAYLAND_DISPLAY",
            "QT_QPA_PLATFORM",
            "XDG_RUNTIME_DIR",
            "LANGUAGE",
            "LC_ALL",
            "LC_MESSAGES",
        }
        self.environment = {name: value for name, value in os.environ.items() if name not in hidden}
        self.environment["LANG"] = "C.UTF-8"
        self.run_host("prefs", "migrate")

    def command(self, *words, program=PROGRAM):
        return [str(program), "--store", str(self.folder / "store.sqlite"), *words]

    def run_host(self, *words, code=0, program=PROGRAM, **variables):
        done = subprocess.run(
            self.command(*words, program=program),
            capture_output=True,
            text=True,
            timeout=120,
            cwd=self.folder,
            env=self.environment | variables,
        )
        self.assertEqual(done.returncode, code, done.stderr)
        return done

    def described(self, tab, *words, **variables):
        return json.loads(
            self.run_host("describe", "--tab", tab, "--format", "json", *words, **variables).stdout
        )

    def test_snapshot_draws_every_tab_as_large_as_the_page(self):
        for scale in (1, 2):
            target = self.folder / f"scale {scale}"
            done = self.run_host("snapshot", "--out", str(target), "--scale", str(scale))
            self.assertEqual((done.stdout, done.stderr), ("", ""))
            self.assertEqual(
                {picture.name for picture in target.iterdir()}, {f"{tab}.png" for tab in TABS}
            )
        for tab in TABS:
            width, height = pixels(self.folder / "scale 1" / f"{tab}.png")
            self.assertEqual(width, 720)
            self.assertEqual(
                pixels(self.folder / "scale 2" / f"{tab}.png"), (2 * width, 2 * height)
            )

    def test_a_language_whose_letters_no_font_has_is_reported(self):
        fonts = self.folder / "fonts.conf"
        fonts.write_text(
            "<fontconfig><dir>/usr/share/fonts/truetype/dejavu</dir>"
            f"<cachedir>{self.folder}/cache</cachedir></fontconfig>"
        )
        for language, package in (
            ("ja", "fonts-noto-cjk"),
            ("zh-Hans", "fonts-noto-cjk"),
            ("de", None),
            ("ar", None),
        ):
            done = self.run_host(
                "snapshot",
                "--out",
                "pictures",
                "--tab",
                "general",
                "--language",
                language,
                FONTCONFIG_FILE=str(fonts),
            )
            lines = done.stderr.splitlines()
            self.assertEqual(
                [package in line for line in lines], [True] if package else [], done.stderr
            )

    def test_snapshot_refuses_what_it_cannot_do(self):
        (self.folder / "file").write_text("in the way")
        cases = [
            (["--out", "pictures", "--tab", "sixth"], 2),
            (["--out", "pictures", "--tab", "proxy", "--no-proxy"], 2),
            (["--out", "file/pictures"], 3),
        ]
        for words, code in cases:
            done = self.run_host("snapshot", *words, code=code)
            self.assertRegex(done.stderr, r"\Azorvantine: [^\n]+\n\Z")
        self.assertFalse((self.folder / "pictures").exists())

    def test_snapshot_leaves_a_link_in_the_place_of_a_picture_alone(self):
        pictures = self.folder / "pictures"
        pictures.mkdir()
        (self.folder / "mine").write_text("kept")
        (pictures / "general.png").symlink_to(self.folder / "mine")
        (pictures / "capture.png").symlink_to(self.folder / "nowhere")
        for tab in ("general", "capture"):
            done = self.run_host("snapshot", "--out", str(pictures), "--tab", tab, code=3)
            self.assertRegex(done.stderr, rf"\Azorvantine: [^\n]*{tab}\.png[^\n]*\n\Z")
        self.assertEqual((self.folder / "mine").read_text(), "kept")
        self.assertFalse((self.folder / "nowhere").exists())
        self.assertEqual(
            {picture.name for picture in pictures.iterdir()}, {"general.png", "capture.png"}
        )

    def test_commands_that_show_a_page_change_no_preference(self):
        self.run_host("prefs", "delete", "com_velloquin_zorvantine_prefs_schema_version")
        self.run_host("prefs", "set", "QEVAnalyzerSettingsSelectedIndex", "--int", "30")
        self.run_host("prefs", "set", "com_velloquin_qev_dns_color", "--data", "AQID")
        before = self.run_host("prefs", "list").stdout
        for words in (
            ["describe"],
            ["snapshot", "--out", str(self.folder / "pictures")],
            ["settings"],
        ):
            self.run_host(*words, "--tab", "analyze", "--analyzers", "3")
            self.assertEqual(self.run_host("prefs", "list").stdout, before, words)

    def test_description_escapes_stored_text(self):
        names = [
            {"protocolName": "HTTP\x1b[2J\u009b\u202e", "protocolPorts": "80", "sourceProtocol": 0}
        ]
        protocols = base64.b64encode(json.dumps(names).encode()).decode()
        self.run_host("prefs", "set", "com_velloquin_qev_http_protocols", "--data", protocols)
        titles = [
            analyzer["title"]
            for analyzer in json.loads(self.run_host("analyzers", "--format", "json").stdout)
        ]
        self.run_host(
            "prefs", "set", "QEVAnalyzerSettingsSelectedIndex", "--int", str(titles.index("HTTP"))
        )
        for words in (["describe", "--tab", "analyze"], ["analyzers"]):
            shown = self.run_host(*words).stdout
            self.assertIn("HTTP\\", shown)
            self.assertNotRegex(shown, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202a-\u202e]")

    def test_description_has_the_same_members_everywhere(self):
        for tab in TABS:
            page = self.described(tab)
            for node in nodes(page):
                self.assertEqual(set(node), MEMBERS)
                self.assertEqual(set(node["frame"]), {"x", "y", "width", "height"})
            self.assertEqual(
                sum(node["enabled"] and node["role"] == "helpButton" for node in nodes(page)), 1
            )
        labels = {node["label"] for node in nodes(self.described("general"))}
        text = self.run_host("describe", "--tab", "general").stdout
        for label in labels - {""}:
            self.assertIn(label, text)

    def test_language_is_that_of_the_desktop_unless_an_option_names_one(self):
        def tab_bar(*words, **variables):
            page = self.described("general", *words, **variables)
            return next(node for node in nodes(page) if node["kind"] == "TabBar")

        self.assertEqual(tab_bar()["value"], "General")
        self.assertEqual(tab_bar(LANG="de_AT.UTF-8")["value"], "Allgemein")
        self.assertEqual(tab_bar(LC_MESSAGES="fr_FR.UTF-8", LANG="de_DE.UTF-8")["value"], "Général")
        self.assertEqual(tab_bar("--language", "ar", LANG="de_DE.UTF-8")["value"], "عام")

        def picture(*words):
            target = self.folder / "-".join(["picture", *words])
            self.run_host(
                "snapshot", "--out", str(target), "--tab", "general", *words, LANG="ar_EG.UTF-8"
            )
            return (target / "general.png").read_bytes()

        self.assertEqual(picture(), picture("--language", "ar"))
        self.assertNotEqual(picture(), picture("--language", "en"))

    def test_module_texts_come_from_the_resources_before_the_program_folder(self):
        program = self.folder / "programs" / "zorvantine"
        program.parent.mkdir()
        shutil.copy(PROGRAM, program)
        shutil.copy(Path(PROGRAM).with_name("zorvantine-pages"), program.parent)
        resources = program.parent / "Resources"
        resources.mkdir()

        def place(folder, general):
            tables = folder / "QEVSettings_QEVSettings.bundle" / "de.lproj"
            tables.mkdir(parents=True)
            (tables / "Localizable.strings").write_text(
                f'"General" = "{general}";', encoding="utf-16"
            )

        def title():
            done = self.run_host(
                "describe", "--format", "json", "--language", "de", program=program
            )
            return next(
                each for each in nodes(json.loads(done.stdout)) if each["role"] == "tabList"
            )["value"]

        stopped = self.run_host("describe", program=program, code=-signal.SIGABRT)
        self.assertIn("unable to find bundle named QEVSettings_QEVSettings\n", stopped.stderr)
        place(program.parent, "beside the program")
        self.assertEqual(title(), "beside the program")
        place(resources, "in the resources")
        self.assertEqual(title(), "in the resources")

    def test_without_a_display_the_window_is_drawn(self):
        for number, variables in enumerate([{}, {"DISPLAY": ":4747"}]):
            done = self.run_host("settings", **variables)
            self.assertRegex(done.stderr, r"\Azorvantine: no display [^\n]+\n\Z")
            pictures = self.folder / "zorvantine-settings"
            self.assertEqual(
                {picture.name for picture in pictures.iterdir()}, {f"{tab}.png" for tab in TABS}
            )
            pictures.rename(self.folder / f"drawn {number}")
        self.assertRegex(
            self.run_host("run", code=3).stderr, r"\Azorvantine: no display [^\n]+\n\Z"
        )

    def test_window_stays_open_until_a_signal_closes_it(self):
        for words, signum in (
            (["settings", "--tab", "analyze"], signal.SIGTERM),
            (["settings"], signal.SIGHUP),
            (["run"], signal.SIGTERM),
        ):
            window = subprocess.Popen(
                self.command(*words),
                stderr=subprocess.PIPE,
                env=self.environment | {"QT_QPA_PLATFORM": "offscreen"},
            )
            try:
                # The process blocks the signals as soon as they close the window.
                status = Path(f"/proc/{window.pid}/status")
                while (
                    not int(status.read_text().split("SigBlk:")[1].split()[0], 16) & 1 << signum - 1
                ):
                    self.assertIsNone(window.poll(), "the window did not stay open")
                    time.sleep(0.01)
                window.send_signal(signum)
                self.assertEqual((window.communicate(timeout=60)[1], window.returncode), (b"", 0))
            finally:
                window.kill()
                window.wait()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
