#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a type of a public header does not open with a comment that says what it is for.

    headers_test.py REPOSITORY
"""

import re
import sys
from pathlib import Path

TYPE = re.compile(r"(class|struct|enum class) \w+[^;]*\{$")


def uncommented(header):
    lines = header.read_text(encoding="utf-8").splitlines()
    for at, line in enumerate(lines):
        if not TYPE.match(line):
            continue
        above = at - 1
        while lines[above].startswith("template"):
            above -= 1
        if not lines[above].startswith("//"):
            yield f"{header}:{at + 1}: write above it what this type is for: {line}"


def main():
    root = Path(sys.argv[1])
    headers = [header for room in ("QEVSettings", "contracts", "platform")
               for header in sorted((root / room).glob("**/include/**/*.hpp"))]
    findings = [finding for header in headers for finding in uncommented(header)]
    if len(headers) < 50 or findings:
        sys.exit("\n".join([f"{len(headers)} public headers", *findings]))


if __name__ == "__main__":
    main()
