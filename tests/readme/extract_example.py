#!/usr/bin/env python3
"""Writes the C++ example of a Markdown file, the one fenced block with a `main`, to a file of its own.

    extract_example.py MARKDOWN OUTPUT
"""

import re
import sys
from pathlib import Path


def main():
    text = Path(sys.argv[1]).read_text(encoding="utf-8")
    examples = [block for block in re.findall(r"^```cpp\n(.*?)^```$", text, re.M | re.S) if "int main(" in block]
    if len(examples) != 1:
        sys.exit(f"{sys.argv[1]}: {len(examples)} complete examples, where one is expected")
    Path(sys.argv[2]).write_text(examples[0], encoding="utf-8")


if __name__ == "__main__":
    main()
