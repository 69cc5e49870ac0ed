#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a type of a public header does not open with a comment that says what it is for and
shows an example: a line of code, indented by four spaces, or "See NAME." for the type that has it.

    headers_test.py REPOSITORY
"""

import re
import sys
from pathlib import Path

TYPE = re.compile(r"(?:class|struct|enum class) (?:\w+::)*(\w+)[^;]*\{")
EXAMPLE = re.compile(r"//     \S")
REFERENCE = re.compile(r"\bSee ((?:\w+::)*(\w+))\.(?:\s|$)")


def public_types(header):
    """The line number, the name and the comment, as lines, of each type of a header."""
    lines = header.read_text(encoding="utf-8").splitlines()
    for at, line in enumerate(lines):
        declared = TYPE.match(line)
        if not declared:
            continue
        end = at
        while lines[end - 1].startswith("template"):
            end -= 1
        start = end
        while lines[start - 1].startswith("//"):
            start -= 1
        yield at + 1, declared[1], lines[start:end]


def has_example(comment):
    return any(EXAMPLE.match(line) for line in comment)


def finding(name, comment, with_example):
    if not comment:
        return f"write above it what {name} is for"
    if has_example(comment):
        return None
    text = " ".join(line.removeprefix("//").strip() for line in comment)
    reference = REFERENCE.search(text)
    if not reference:
        return f'give {name} an example, or write "See NAME." for the type whose example shows it'
    if reference[2] not in with_example:
        return f"{name} refers to {reference[1]}, which has no example"
    return None


def main():
    root = Path(sys.argv[1])
    headers = [
        header
        for room in ("QEVSettings", "contracts", "platform")
        for header in sorted((root / room).glob("**/include/**/*.hpp"))
    ]
    types = [(header, *found) for header in headers for found in public_types(header)]
    with_example = {name for _, _, name, comment in types if has_example(comment)}
    findings = [
        f"{header}:{number}: {missing}"
        for header, number, name, comment in types
        if (missing := finding(name, comment, with_example))
    ]
    if len(headers) < 50 or findings:
        sys.exit("\n".join([f"{len(headers)} public headers, {len(types)} types", *findings]))


if __name__ == "__main__":
    main()
