#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a source does not name its licence in its first lines.

    licences_test.py REPOSITORY
"""

import sys
from pathlib import Path

ENDINGS = {".cpp", ".hpp", ".ipp", ".py", ".sh", ".cmake", ".sed", ".yml"}
IDENTIFIER = "SPDX-License-Identifier: MIT"


def is_source(file):
    return file.suffix in ENDINGS or file.name == "CMakeLists.txt" or file.parent.name == "scripts"


def main():
    root = Path(sys.argv[1])
    rooms = [
        root / room
        for room in (
            "QEVSettings",
            "contracts",
            "platform",
            "host",
            "tests",
            "benchmarks",
            "fuzz",
            "cmake",
            "docs",
            "scripts",
            ".github",
        )
    ]
    sources = [
        file
        for room in rooms
        for file in sorted(room.rglob("*"))
        if file.is_file() and is_source(file) and "__pycache__" not in file.parts
    ]
    missing = []
    for source in sources:
        first_lines = source.read_text(encoding="utf-8").splitlines()[:2]
        if not any(line.endswith(IDENTIFIER) for line in first_lines):
            missing.append(f"{source}: begin it with a comment, {IDENTIFIER}")
    if len(sources) < 500 or missing:
        sys.exit("\n".join([f"{len(sources)} sources", *missing]))


if __name__ == "__main__":
    main()
