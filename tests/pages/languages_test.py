#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Looks for English in the pages of every other language.

    languages_test.py ZORVANTINE SOURCE_FOLDER

A text that the English pages show may stand in another language only if the tables of that
language say so, or if it is data: a name of a protocol or an interface, a number, a font.
"""

import json
import os
import sys
import tempfile
from pathlib import Path

from page_program import run

LANGUAGES = ["de", "fr", "es", "ja", "zh-Hans", "ar"]
TABS = ["general", "capture", "proxy", "analyze", "appearance"]
BUNDLES = [
    "QEVSettings/resources/QEVSettings_QEVSettings.bundle",
    "host/resources",
    "contracts/QEVCommonTools/resources/QEVCommonTools_QEVCommonTools.bundle",
]
APP = "com_velloquin_zorvantine_"
# Shown as they are in every language.
TRANSPORTS = {"TCP", "UDP", "UDP/TCP", "None"}


def texts(node):
    """What a page shows and says, with the roles that only carry data left out."""
    accessibility = [node["label"], node["help"]]
    if node["role"] in ("menuButton", "tabList"):
        accessibility.append(node["value"])
    found = set(accessibility)
    visual = node["visual"]
    if visual.startswith("placeholder "):
        found.add(visual.removeprefix("placeholder ").split(", up to ")[0])
    for child in node["children"]:
        found |= texts(child)
    return found


def table(source, language):
    """The keys of all tables with their translations."""
    entries = {}
    for bundle in BUNDLES:
        path = Path(source) / bundle / f"{language}.lproj" / "Localizable.strings"
        for line in path.read_text("utf-8").splitlines():
            if line.startswith('"') and line.endswith('";') and '" = "' in line:
                key, text = line[1:-2].split('" = "', 1)
                entries.setdefault(key, set()).add(text)
    return entries


def names(analyzers):
    """The titles and the protocols of the analyzers."""
    found = set()
    for analyzer in analyzers:
        found.add(analyzer["title"])
        ports = analyzer.get("ports") or {}
        found |= {protocol["name"] for protocol in ports.get("default", [])}
    return found


def walk(zorvantine, folder, language, count):
    """Every text of every page, and of the page of each analyzer."""
    store = str(Path(folder) / f"{language}.store")
    run(zorvantine, store, "prefs", "set", APP + "proxy_enabled", "--bool", "true")
    run(zorvantine, store, "prefs", "set", APP + "proxy_interceptsTLS", "--bool", "true")
    run(zorvantine, store, "prefs", "set", APP + "prefTimezone", "--string", "Europe/Berlin")
    found = set()
    for tab in TABS:
        page = run(
            zorvantine, store, "describe", "--tab", tab, "--language", language, "--format", "json"
        )
        found |= texts(json.loads(page))
    for index in range(count):
        run(
            zorvantine,
            store,
            "prefs",
            "set",
            "QEVAnalyzerSettingsSelectedIndex",
            "--int",
            str(index),
        )
        page = run(
            zorvantine,
            store,
            "describe",
            "--tab",
            "analyze",
            "--language",
            language,
            "--format",
            "json",
        )
        found |= texts(json.loads(page))
    return found


def is_word(text):
    return sum(letter.isalpha() for letter in text) > 2


def main():
    zorvantine, source = sys.argv[1:3]
    failures = []
    with tempfile.TemporaryDirectory() as folder:
        store = str(Path(folder) / "list.store")
        run(zorvantine, store, "prefs", "set", APP + "proxy_enabled", "--bool", "true")
        analyzers = json.loads(run(zorvantine, store, "analyzers", "--format", "json"))
        english = {text for text in walk(zorvantine, folder, "en", len(analyzers)) if is_word(text)}
        if len(english) < 100:
            sys.exit("the English pages show too few texts to compare")
        same = names(analyzers) | TRANSPORTS
        interfaces = {name for name in os.listdir("/sys/class/net")}
        for language in LANGUAGES:
            entries = table(source, language)
            meant = {text for key, translations in entries.items() for text in translations}
            shown = walk(zorvantine, folder, language, len(analyzers))
            for text in sorted(shown & english):
                is_data = text in same or text.split(" ")[0] in interfaces or text in meant
                # Fonts, the time zone, and the addresses of this machine.
                if not is_data and not text.startswith(
                    ("Sans ", "Monospace ", "Europe/", "\u2066")
                ):
                    failures.append(f"{language}: {text}")
    for failure in failures:
        print(failure)
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
