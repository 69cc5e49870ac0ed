#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when the sources of the command line and its English string table name different messages.

    messages_test.py HOST VALUES
"""

import re
import sys
from pathlib import Path

LITERAL = r'"((?:[^"\\]|\\.)*)"'
LITERALS = rf"((?:{LITERAL}\s*)+)"


def joined(literals):
    return "".join(re.findall(LITERAL, literals))


def main():
    host = Path(sys.argv[1])
    used = set()
    for source in [file for folder in sys.argv[1:] for file in Path(folder).rglob("*.[ch]pp")]:
        # Examples in comments are no uses.
        text = re.sub(r"^ *//.*$", "", source.read_text(encoding="utf-8"), flags=re.M)
        used |= {joined(match[1]) for match in re.finditer(rf"translated\(\s*{LITERALS}", text)}
        used |= {match[1] for match in re.finditer(rf"\.needs = {LITERAL}", text)}
        # A message that has a name, or is chosen between two.
        used |= {
            joined(match[1])
            for match in re.finditer(rf"[=?:]\s*{LITERALS}", text)
            if "%1" in joined(match[1])
        }
    table = (host / "resources/en.lproj/Localizable.strings").read_text(encoding="utf-8")
    known = set(
        re.findall(rf"^{LITERAL} = ", table.split("/* Messages of the command line.")[1], re.M)
    )
    if len(used) < 50 or used != known:
        sys.exit(
            f"not in the table: {sorted(used - known)}\nnot in the sources: {sorted(known - used)}"
        )


if __name__ == "__main__":
    main()
