#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the laid-out pages with the golden files next to this script.

    pages_test.py ZORVANTINE            compares
    pages_test.py ZORVANTINE --write    writes the golden files anew

Each golden file is the output of `zorvantine describe` for one state of one page, without the
views that neither draw nor say anything: a view that only places others may come and go. Marks of
changed settings are left out too, so that the files show that a mark moves nothing.
"""

import base64
import difflib
import json
import re
import struct
import sys
import tempfile
from pathlib import Path

from page_program import run

FOLDER = Path(__file__).parent
APP = "com_velloquin_zorvantine_"
# Without it the page shows the time zone of the machine.
TIME_ZONE = {APP + "prefTimezone": "Europe/Berlin"}
SELECTED = "QEVAnalyzerSettingsSelectedIndex"


def fonts(console):
    """Every font chosen, so that the machine's own do not matter."""
    names = [
        "fontPacketTable",
        "fontProtocolDetails",
        "fontBaseProtocolStatistics",
        "fontDataSourcesHead",
        "fontDataSourcesList",
    ]
    text = {"family": "Sample Sans", "style": "Bold", "pointSize": 11.5}
    chosen = {APP + name: text for name in names}
    chosen[APP + "fontConsoleRaw"] = {"family": console, "style": "", "pointSize": 13.0}
    return chosen


def mode(uses_system, name):
    return {APP + "appearanceUseSystem": uses_system, APP + "appearanceName": name}


LIGHT = mode(False, "NSAppearanceNameAqua")
DARK = mode(False, "NSAppearanceNameDarkAqua")
AUTOMATIC = {APP + "appearanceUseSystem": True}
UPDATES = {
    "sparkle_automaticallyChecks": True,
    "sparkle_automaticallyDownloads": True,
    "sparkle_sendsSystemProfile": True,
}

# A colour that was never chosen is a new one each time.
COLOR = base64.b64encode(struct.pack("<4d", 1, 0.5, 0.25, 1)).decode()


def analyzer(index, name):
    return {SELECTED: index, f"com_velloquin_qev_{name}_color": COLOR}


# A golden file's name: the arguments of `describe`, the stored preferences.
STATES = {
    "general-automatic": (["--tab", "general"], {**AUTOMATIC, **UPDATES}),
    "general-light-updates-off": (
        ["--tab", "general"],
        {**LIGHT, "sparkle_automaticallyChecks": False},
    ),
    "general-dark": (["--tab", "general"], {**DARK, **UPDATES}),
    "general-arabic": (["--tab", "general", "--language", "ar"], {**LIGHT, **UPDATES}),
    "capture": (
        ["--tab", "capture"],
        {APP + "capture_filter": "tcp port 443", APP + "capture_usesRingOfFiles": True},
    ),
    "proxy-off": (["--tab", "proxy"], {}),
    "proxy-on": (["--tab", "proxy"], {APP + "proxy_enabled": True}),
    "analyze-options": (["--tab", "analyze"], analyzer(0, "ethernet")),
    "analyze-without-options": (["--tab", "analyze"], {SELECTED: 2}),
    "analyze-ports": (["--tab", "analyze"], analyzer(8, "quic")),
    "analyze-no-analyzers": (["--tab", "analyze", "--analyzers", "0"], {}),
    "fonts": (["--tab", "appearance"], fonts("Sample Mono")),
    "fonts-proportional-console": (["--tab", "appearance"], fonts("Sample Sans")),
}

FRAME = r"\(-?[0-9.]+, -?[0-9.]+\) [0-9.]+ x [0-9.]+"
ONLY_PLACES_OTHERS = re.compile(rf' *[^ "(]+ {FRAME}')


def depth(line):
    return len(line) - len(line.lstrip())


def condensed(description):
    """The lines of the views that draw or say something, each two blanks below such a view."""
    lines = []
    outer = []
    for line in description.splitlines():
        while outer and outer[-1] >= depth(line):
            outer.pop()
        if ONLY_PLACES_OTHERS.fullmatch(line):
            continue
        lines.append("  " * len(outer) + line.lstrip())
        outer.append(depth(line))
    return lines


NOTE = re.compile(r' note ("(?:[^"\\]|\\.)*")')


def without_marks(lines):
    """The page without the marks before changed settings, and without what is said of them."""
    notes = {note for line in lines for note in NOTE.findall(line)}
    kept = []
    mark = None
    for line in lines:
        if mark is not None and depth(line) > mark:
            continue
        mark = None
        if any(line.lstrip().startswith(f"AccessibilityRole image {note} ") for note in notes):
            mark = depth(line)
        else:
            kept.append(NOTE.sub("", line))
    return kept


def without_interfaces(lines):
    """The capture page without its list of interfaces, which is the machine's own."""
    kept = []
    inside = None
    for line in lines:
        if inside is not None and depth(line) > inside:
            continue
        inside = None
        if line.lstrip().startswith("ScrollView list "):
            inside = depth(line)
            line = re.sub(r"content [0-9.]+ x [0-9.]+", "content of this machine", line)
        kept.append(line)
    if kept == lines:
        raise AssertionError("the capture page shows no list of interfaces")
    return kept


def option_of(value):
    if isinstance(value, bool):
        return ["--bool", str(value).lower()]
    if isinstance(value, int):
        return ["--int", str(value)]
    if isinstance(value, str):
        return ["--string", value]
    return ["--json", json.dumps(value)]


def describe(program, arguments, preferences):
    with tempfile.TemporaryDirectory() as folder:
        store = folder + "/preferences.sqlite"
        for key, value in {**TIME_ZONE, **preferences}.items():
            run(program, store, "prefs", "set", key, *option_of(value))
        language = [] if "--language" in arguments else ["--language", "en"]
        lines = without_marks(condensed(run(program, store, "describe", *arguments, *language)))
    return without_interfaces(lines) if "capture" in arguments else lines


def main():
    program = sys.argv[1]
    writes = "--write" in sys.argv[2:]
    differs = {path.stem for path in FOLDER.glob("*.txt")} - STATES.keys() - {"CMakeLists"}
    for name in differs:
        print(f"{name}.txt belongs to no state; delete it")
    for name, (arguments, preferences) in STATES.items():
        lines = describe(program, arguments, preferences)
        golden = FOLDER / f"{name}.txt"
        if writes:
            golden.write_text("\n".join(lines) + "\n", encoding="utf-8")
            continue
        expected = golden.read_text(encoding="utf-8").splitlines() if golden.exists() else []
        if lines != expected:
            differs.add(name)
            print(
                "\n".join(
                    difflib.unified_diff(expected, lines, f"{name}.txt", "the program", lineterm="")
                )
            )
    if differs and not writes:
        print("Where the change is meant, write the files anew with --write and read the diff.")
    return 1 if differs else 0


sys.exit(main())
