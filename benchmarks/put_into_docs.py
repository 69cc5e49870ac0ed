#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Puts the output of a benchmark into the page of a folder that has a place for it.

    put_into_docs.py FOLDER NAME OUTPUT

The place is between the lines `<!-- scripts/bench NAME -->` and `<!-- end of NAME -->`. Output
without a table is put there as it is, in a fenced block, except for a paragraph about the machine.
"""

import sys
from pathlib import Path


def main():
    folder, name, output = Path(sys.argv[1]), sys.argv[2], Path(sys.argv[3])
    begin, end = f"<!-- scripts/bench {name} -->\n", f"<!-- end of {name} -->\n"
    printed = output.read_text(encoding="utf-8").strip()
    if not printed:
        sys.exit(f"put_into_docs.py: the benchmark {name} has printed nothing")
    if "|---" not in printed:
        begin_of_figures = printed.find("\n\n") + 2 if printed.startswith("Measured on ") else 0
        machine, figures = printed[:begin_of_figures], printed[begin_of_figures:]
        printed = f"{machine}```\n{figures}\n```"
    for page in sorted(folder.glob("*.md")):
        text = page.read_text(encoding="utf-8")
        if begin not in text:
            continue
        before, _, rest = text.partition(begin)
        _, found, after = rest.partition(end)
        if not found:
            sys.exit(f"{page}: there is no line {end.strip()} after {begin.strip()}")
        page.write_text(f"{before}{begin}\n{printed}\n\n{end}{after}", encoding="utf-8")
        return
    sys.exit(f"put_into_docs.py: no page of {folder} has the line {begin.strip()}")


if __name__ == "__main__":
    main()
