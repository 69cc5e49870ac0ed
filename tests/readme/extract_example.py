#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes a C++ example of a Markdown file, a fenced block with a `main`, to a file of its own.

    extract_example.py MARKDOWN NUMBER OUTPUT
"""

import re
import sys
from pathlib import Path


def main():
    text = Path(sys.argv[1]).read_text(encoding="utf-8")
    examples = [
        block
        for block in re.findall(r"^```cpp\n(.*?)^```$", text, re.M | re.S)
        if "int main(" in block
    ]
    number = int(sys.argv[2])
    if number > len(examples):
        sys.exit(
            f"{sys.argv[1]} has {len(examples)} complete examples, and none with the number {number}"
        )
    Path(sys.argv[3]).write_text(examples[number - 1], encoding="utf-8")


if __name__ == "__main__":
    main()
