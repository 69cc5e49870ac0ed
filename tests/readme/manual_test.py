#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when the manual page or the README lacks a command or an option that `--help` names.

    manual_test.py PROGRAM MANUAL README
"""

import re
import subprocess
import sys
from pathlib import Path


def main():
    text = subprocess.run(
        [sys.argv[1], "--help"], capture_output=True, text=True, check=True
    ).stdout
    manual = re.sub(r"\\f[A-Z]", "", Path(sys.argv[2]).read_text(encoding="utf-8")).replace(
        "\\-", "-"
    )
    readme = Path(sys.argv[3]).read_text(encoding="utf-8")

    options = set(re.findall(r"--[a-z-]+", text))
    commands = set(re.findall(r"^  ([a-z]+(?: [a-z]+)*)", text, re.MULTILINE))
    if len(options) < 10 or len(commands) < 10:
        sys.exit(f"--help could not be read: {options}, {commands}")
    missing = sorted(word for word in options | commands if word not in manual)
    unknown = sorted(set(re.findall(r"--[a-z-]+", manual)) - options)
    shown = set(re.findall(r"^ +scripts/run ([a-z]+(?: [a-z]+)?)", readme, re.MULTILINE))
    unknown += sorted(line for line in shown if not {line, line.split()[0]} & commands)
    if missing or unknown:
        sys.exit(f"not in the manual page: {missing}\nnot in --help: {unknown}")


if __name__ == "__main__":
    main()
