#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when `scripts/bench` could not put what a benchmark prints into the documents.

    measured_tables_test.py REPOSITORY
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(sys.argv[1])
SCRIPT = ROOT / "benchmarks" / "put_into_docs.py"


def put(folder, name, printed):
    output = folder / "output"
    output.write_text(printed, encoding="utf-8")
    return subprocess.run(
        [sys.executable, "-B", SCRIPT, folder, name, output],
        capture_output=True,
        text=True,
        check=False,
    )


def check(condition, complaint):
    if not condition:
        sys.exit(complaint)


def test_every_benchmark_has_its_place():
    loop = re.search(
        r"^for name in (.*); do$", (ROOT / "scripts" / "bench").read_text(encoding="utf-8"), re.M
    )
    names = loop[1].split()
    check(len(names) >= 5, f"scripts/bench measures {names} only")
    pages = "".join(page.read_text(encoding="utf-8") for page in (ROOT / "docs").glob("*.md"))
    for name in names:
        place = f"<!-- scripts/bench {name} -->\n"
        check(
            pages.count(place) == 1,
            f"docs/ has {pages.count(place)} places for the benchmark {name}",
        )
        check(
            f"<!-- end of {name} -->\n" in pages.split(place)[1],
            f"the place of {name} in docs/ has no end",
        )


def test_only_the_tables_are_replaced(folder):
    page = folder / "page.md"
    page.write_text(
        "Before.\n<!-- scripts/bench a -->\nold\n<!-- end of a -->\nAfter.\n", encoding="utf-8"
    )
    done = put(folder, "a", "| new |\n|---|\n")
    check(done.returncode == 0, done.stderr)
    text = page.read_text(encoding="utf-8")
    check(
        text
        == "Before.\n<!-- scripts/bench a -->\n\n| new |\n|---|\n\n<!-- end of a -->\nAfter.\n",
        f"the page has become\n{text}",
    )
    put(folder, "a", "Measured on a machine.\n\nno table\n")
    text = page.read_text(encoding="utf-8")
    check(
        "\nMeasured on a machine.\n\n```\nno table\n```\n" in text, f"no table is fenced in\n{text}"
    )


def test_nothing_is_put_where_no_place_is(folder):
    page = folder / "page.md"
    page.write_text("<!-- scripts/bench a -->\nold\n", encoding="utf-8")
    for name, printed in (("a", "new"), ("b", "new"), ("a", "\n")):
        done = put(folder, name, printed)
        check(done.returncode != 0 and done.stderr, f"{name!r} with {printed!r} is not refused")
    check(
        page.read_text(encoding="utf-8") == "<!-- scripts/bench a -->\nold\n",
        "the page was changed",
    )


def main():
    test_every_benchmark_has_its_place()
    for test in (test_only_the_tables_are_replaced, test_nothing_is_put_where_no_place_is):
        with tempfile.TemporaryDirectory() as folder:
            test(Path(folder))


if __name__ == "__main__":
    main()
