#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The command line as a shell sees it: what it prints, where, and how it exits.

    commandline_test.py ZORVANTINE SAMPLE
"""

import base64
import datetime
import hashlib
import json
import os
import plistlib
import pty
import re
import signal
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from host_program import output_of

PROGRAM, SAMPLE = sys.argv[1:3]
PREFIX = "com_velloquin_qev_"
VERSION_KEY = "com_velloquin_zorvantine_prefs_schema_version"


def plain(value):
    """A value as the JSON output writes it."""
    if isinstance(value, bytes):
        return base64.b64encode(value).decode()
    if isinstance(value, datetime.datetime):
        return value.strftime("%Y-%m-%dT%H:%M:%SZ")
    if isinstance(value, list):
        return [plain(element) for element in value]
    if isinstance(value, dict):
        return {key: plain(element) for key, element in value.items()}
    return value


TYPES = {
    bool: "boolean",
    int: "integer",
    float: "real",
    str: "string",
    bytes: "data",
    datetime.datetime: "date",
    list: "array",
    dict: "dictionary",
}


class Number(str):
    """A number of a JSON text, kept as it is written."""


def migrated_list(data):
    """One protocol list after the migration, or None when the migration leaves it alone."""
    try:
        records = json.loads(data.decode("utf-8"), parse_int=Number, parse_float=Number)
    except (ValueError, RecursionError):
        return None
    if not isinstance(records, list) or not all(isinstance(record, dict) for record in records):
        return None
    changed = False
    for record in records:
        ports = record.get("protocolPorts")
        if not isinstance(ports, list):
            continue
        are_numbers = all(
            isinstance(port, Number) and re.fullmatch("-?[0-9]+", port) for port in ports
        )
        are_texts = all(isinstance(port, str) and not isinstance(port, Number) for port in ports)
        if are_numbers or are_texts:
            record["protocolPorts"] = ",".join(ports)
            changed = True
    return records if changed else None


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

    def test_commands_that_read_refuse_a_store_that_is_not_there(self):
        for words in (
            ["prefs", "list"],
            ["prefs", "get", "key"],
            ["prefs", "export", str(self.folder / "exported")],
            ["prefs", "verify"],
            ["prefs", "watch"],
            ["analyzers"],
            ["find", "dns"],
            ["describe"],
        ):
            self.assertIn(f"no store {self.store}", self.run_host(*words, code=3))
        self.assertEqual(list(self.folder.iterdir()), [])

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

    def files(self):
        """The mode and the hash of every file of the folder."""
        return {
            file.name: (oct(file.stat().st_mode), hashlib.sha256(file.read_bytes()).hexdigest())
            for file in self.folder.iterdir()
        }

    def reading(self):
        exported = str(self.folder / "no" / "such" / "folder")
        return [
            ["prefs", "list"],
            ["prefs", "get", "key"],
            ["prefs", "export", exported],
            ["analyzers"],
            ["find", "dns"],
            ["describe"],
        ]

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
        for words, code in zip(self.reading(), [0, 1, 3, 0, 0]):
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

    def plist(self, values, name="list.plist"):
        file = self.folder / name
        file.write_bytes(plistlib.dumps(values))
        return str(file)

    def test_import_takes_over_the_list_of_another_writer(self):
        with open(SAMPLE, "rb") as file:
            expected = plistlib.load(file)
        self.run_host("prefs", "set", "mine", "--string", "stays")
        self.run_host("prefs", "import", self.plist(expected | {VERSION_KEY: 2}))
        listed = self.listed()
        self.assertEqual(listed.pop("mine")["value"], "stays")
        self.assertEqual(
            listed,
            {
                key: {"type": TYPES[type(value)], "value": plain(value)}
                for key, value in expected.items()
            },
        )

    def test_import_of_an_older_release_is_as_if_its_store_had_been_migrated(self):
        with open(SAMPLE, "rb") as file:
            old = plistlib.load(file)
        # The store has been migrated before.
        self.run_host("prefs", "migrate")
        text = self.run_host("prefs", "import", SAMPLE)
        imported = self.listed()
        self.assertEqual(imported[VERSION_KEY]["value"], 2)

        self.store = self.folder / "migrated.sqlite"
        self.run_host("prefs", "import", self.plist(old | {VERSION_KEY: 2}))
        before = self.listed()
        done = subprocess.run(self.command("prefs", "migrate"), capture_output=True, text=True)
        self.assertEqual(done.returncode, 0)
        migrated = self.listed()
        self.assertEqual(imported, migrated)
        rewritten = sum(migrated[key] != value for key, value in before.items())
        self.assertEqual(
            text, f"Imported {len(old)} keys, of which {rewritten} were brought up to date.\n"
        )

    def test_import_goes_by_the_schema_of_the_list(self):
        color, ports = f"{PREFIX}a_color", f"{PREFIX}a_protocols"
        old = {color: b"\1\2\3", ports: b'[{"protocolPorts":[80]}]'}
        as_data = {"type": "data", "value": "AQID"}
        as_text = {"type": "string", "value": "AQID"}
        for version, expected, are_text in [
            (None, as_text, True),
            (-1, as_text, True),
            (0, as_text, True),
            (1, as_data, True),
            (2, as_data, False),
        ]:
            self.store = self.folder / f"schema {version}"
            self.run_host(
                "prefs",
                "import",
                self.plist(old if version is None else old | {VERSION_KEY: version}),
            )
            listed = self.listed()
            self.assertNotIn(VERSION_KEY, listed)
            self.assertEqual(listed[color], expected, version)
            records = json.loads(base64.b64decode(listed[ports]["value"]))
            self.assertEqual(records, [{"protocolPorts": "80" if are_text else [80]}], version)
        self.store = self.folder / "newer list"
        self.assertIn(
            "schema 3",
            self.run_host("prefs", "import", self.plist({VERSION_KEY: 3, "key": 1}), code=3),
        )
        self.assertEqual(self.listed(), {})
        self.run_host("prefs", "set", VERSION_KEY, "--int", "3")
        self.assertIn("schema 3", self.run_host("prefs", "import", self.plist({"key": 1}), code=3))
        self.assertEqual(list(self.listed()), [VERSION_KEY])

    def test_verification_names_keys_in_the_form_of_an_older_release(self):
        names = [f"{PREFIX}a_color", f"{PREFIX}b_protocols"]
        ports = base64.b64encode(b'[{"protocolPorts":[80]}]').decode()
        for version, hint in (
            ("0", "next start"),
            ("1", "run “zorvantine"),
            ("2", "run “zorvantine"),
        ):
            self.run_host("prefs", "set", names[0], "--data", "AQID")
            self.run_host("prefs", "set", names[1], "--data", ports)
            self.run_host("prefs", "set", VERSION_KEY, "--int", version)
            report = self.run_host("prefs", "verify")
            self.assertEqual(re.findall("^  (.*)$", report, re.MULTILINE), names)
            self.assertIn(hint, report)
            # The commands that the report names bring the keys up to date.
            for command in re.findall("“zorvantine (.*?)”", report):
                subprocess.run(self.command(*command.split()), check=True, capture_output=True)
            self.assertNotIn("older release", self.run_host("prefs", "verify"))
            self.assertEqual(self.listed()[names[0]], {"type": "string", "value": "AQID"})

    def test_import_is_all_or_nothing(self):
        self.run_host("prefs", "set", "mine", "--string", "stays")
        for name, contents in [
            ("missing", None),
            ("no list", b"settings"),
            ("half", Path(SAMPLE).read_bytes()[:-40]),
        ]:
            file = self.folder / name
            if contents is not None:
                file.write_bytes(contents)
            self.run_host("prefs", "import", str(file), code=3)
        self.assertEqual(list(self.listed()), ["mine"])

    def test_import_takes_the_list_that_was_printed_as_json(self):
        self.run_host("prefs", "import", SAMPLE)
        for name, option, text in [
            ("date", "--date", "2026-03-01T12:30:00.25Z"),
            ("far", "--real", "-inf"),
            ("nested", "--json", '{"a":[1,1.0,true,"b"]}'),
            ("bytes", "--data", "AP8="),
        ]:
            self.run_host("prefs", "set", name, option, text)
        self.run_host("prefs", "import", self.plist({VERSION_KEY: 2, "undefined": float("nan")}))
        self.run_host("prefs", "set", VERSION_KEY, "--int", "2")
        printed = self.run_host("prefs", "list", "--format", "json")
        self.store = self.folder / "copy.sqlite"
        text = self.run_host("prefs", "import", "-", text=printed)
        self.assertEqual(text, f"Imported {len(json.loads(printed)) - 1} keys.\n")
        self.run_host("prefs", "set", VERSION_KEY, "--int", "2")
        self.assertEqual(self.run_host("prefs", "list", "--format", "json"), printed)

    def test_import_refuses_json_that_is_no_list_of_typed_values(self):
        for text, expected in [
            ("{", "not JSON"),
            ('{"key": 1}', "“key”: the entry has no type"),
            ('{"key": {"type": "number", "value": 1}}', "“key”: the entry has no type"),
            ('{"key": {"type": "integer", "value": "1"}}', "not of the type integer"),
            ('{"key": {"type": "boolean", "value": 1}}', "not of the type boolean"),
            ('{"key": {"type": "array", "value": {}}}', "not of the type array"),
            ('{"key": {"type": "data", "value": "A"}}', "not base64"),
            ('{"key": {"type": "real", "value": "far"}}', "not a real number"),
            (
                '{"good": {"type": "integer", "value": 1}, "key": {"type": "array", "value": [null]}}',
                "null",
            ),
        ]:
            message = self.run_host("prefs", "import", "-", text=text, code=3)
            self.assertTrue(message.startswith("zorvantine: standard input: "), message)
            self.assertIn(expected, message)
        self.assertEqual(self.listed(), {})

    def test_export_to_standard_output_is_what_a_file_would_hold(self):
        self.run_host("prefs", "import", SAMPLE)
        target = self.folder / "list"
        for form in ("xml", "binary"):
            self.run_host("prefs", "export", str(target), "--format", form)
            done = subprocess.run(
                self.command("prefs", "export", "-", "--format", form),
                capture_output=True,
                check=True,
            )
            self.assertEqual(done.stdout, target.read_bytes())
            self.store = self.folder / f"{form}.sqlite"
            subprocess.run(
                self.command("prefs", "import", "-"),
                input=done.stdout,
                capture_output=True,
                check=True,
            )
            self.assertGreater(len(self.listed()), 20)
            self.store = self.folder / "store.sqlite"
        self.assertFalse((self.folder / "-").exists())

    def test_export_is_readable_by_another_reader(self):
        with open(SAMPLE, "rb") as file:
            expected = plistlib.load(file)
        self.run_host("prefs", "import", self.plist(expected | {VERSION_KEY: 2}))
        for form, beginning in (("xml", b"<?xml"), ("binary", b"bplist00")):
            target = self.folder / form
            self.run_host("prefs", "export", str(target), "--format", form)
            self.assertTrue(target.read_bytes().startswith(beginning))
            with target.open("rb") as file:
                self.assertEqual(plistlib.load(file), expected)
        self.run_host("prefs", "export", str(self.folder / "no" / "such" / "folder"), code=3)

    def test_migration_brings_the_sample_up_to_date(self):
        # The list claims the current schema, so the import leaves its older forms alone.
        with open(SAMPLE, "rb") as file:
            self.run_host("prefs", "import", self.plist(plistlib.load(file) | {VERSION_KEY: 2}))
        before = self.listed()
        done = subprocess.run(self.command("prefs", "migrate"), capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout), (0, ""))
        after = self.listed()

        self.assertEqual(after.pop(VERSION_KEY), {"type": "integer", "value": 2})
        self.assertEqual(after.keys(), before.keys())
        colors = lists = 0
        for key, old in before.items():
            is_data = key.startswith(PREFIX) and old["type"] == "data"
            if is_data and key.endswith("_color"):
                colors += 1
                self.assertEqual(after[key], {"type": "string", "value": old["value"]}, key)
                continue
            expected = None
            if is_data and key.endswith("_protocols"):
                expected = migrated_list(base64.b64decode(old["value"]))
            if expected is None:
                self.assertEqual(after[key], old, key)
                continue
            lists += 1
            self.assertEqual(after[key]["type"], "data")
            written = base64.b64decode(after[key]["value"])
            self.assertEqual(
                json.loads(written, parse_int=Number, parse_float=Number), expected, key
            )
        self.assertGreaterEqual(colors, 24)
        self.assertIn(
            f"prefs migration v1: rewrote {colors} color key(s) from Data to base64 String",
            done.stderr,
        )
        self.assertIn(
            f"prefs migration v2: rewrote protocolPorts from array to String in {lists} protocol list(s)",
            done.stderr,
        )
        self.assertLess(done.stderr.index("v1:"), done.stderr.index("v2:"))

        again = subprocess.run(self.command("prefs", "migrate"), capture_output=True, text=True)
        self.assertEqual((again.returncode, again.stdout, again.stderr), (0, "", ""))

    def test_watch_prints_each_change_until_interrupted(self):
        self.run_host("prefs", "set", "started", "--int", "-1")
        for stop in (signal.SIGINT, signal.SIGTERM):
            watcher = subprocess.Popen(
                self.command("prefs", "watch"), stdout=subprocess.PIPE, text=True
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
                self.assertRegex(line, r"\Astarted +integer +[0-9]+\n\Z")
                os.set_blocking(watcher.stdout.fileno(), True)
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
            finally:
                watcher.kill()
                watcher.wait()

    def test_watch_prints_the_named_keys_as_json(self):
        self.run_host("prefs", "set", "started", "--int", "0")
        watcher = subprocess.Popen(
            self.command("prefs", "watch", "--format", "json", "started", "key"),
            stdout=subprocess.PIPE,
            text=True,
        )
        self.addCleanup(watcher.stdout.close)
        try:
            # The first changes may be made before the watcher observes the store.
            os.set_blocking(watcher.stdout.fileno(), False)
            line = ""
            for attempt in range(1, 1000):
                self.run_host("prefs", "set", "started", "--int", str(attempt))
                if line := watcher.stdout.readline():
                    break
            os.set_blocking(watcher.stdout.fileno(), True)
            self.run_host("prefs", "set", "other", "--int", "1")
            self.run_host("prefs", "set", "key", "--json", '["a"]')
            changes = [json.loads(line)]
            while changes[-1]["key"] != "key":
                changes.append(json.loads(watcher.stdout.readline()))
            self.assertEqual(changes.pop(), {"key": "key", "type": "array", "value": ["a"]})
            self.assertEqual({change["key"] for change in changes}, {"started"})
            self.run_host("prefs", "delete", "key")
            self.assertEqual(json.loads(watcher.stdout.readline()), {"key": "key", "removed": True})
        finally:
            watcher.kill()
            watcher.wait()

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
