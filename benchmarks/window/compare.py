#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Drives our window and its twin through the same actions, in turns, and prints a table of ratios.

    compare.py FOLDER [--rounds N] [--repetitions N] [--analyzers N,…] [--platforms offscreen,xcb]

FOLDER holds the two programs. For X windows, an X server without a screen is started. The table is
Markdown. For each measure it has our median, the twin's and their ratio, and, where it was measured,
the ratio of the processor time until the window was idle.
"""

import argparse
import contextlib
import os
import statistics
import subprocess
import sys
import time
from collections import defaultdict
from pathlib import Path

CONTENDERS = ("ours", "twin")

# The name of a line of output, its name in the table, the column of the line, and the unit.
MEASURES = [
    ("first-frame", "process start to first frame", 0, "ms"),
    ("own-part", "of that, after the application stands", 0, "ms"),
    ("selection", "another analyzer clicked", 0, "ms"),
    ("selection", "the same, 99th percentile", 0, "p99"),
    ("selection", "the same, on the processor", 1, "ms"),
    ("switch", "a switch flipped", 0, "ms"),
    ("hover", "a row hovered", 0, "ms"),
    ("key", "a key typed into a ports field", 0, "ms"),
    ("menu", "the time-zone menu opened", 0, "ms"),
    ("resize", "a resize step", 0, "ms"),
    ("memory-first-frame", "peak memory up to the first frame", 0, "MB"),
    ("memory-peak", "peak memory of all of it", 0, "MB"),
]


@contextlib.contextmanager
def display(platform):
    """The environment of a process that opens a window there."""
    environment = dict(os.environ, QT_QPA_PLATFORM=platform, LC_ALL="C.UTF-8")
    if platform != "xcb":
        yield environment
        return
    reader, writer = os.pipe()
    command = ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"]
    server = subprocess.Popen(command, pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as answer:
        number = answer.readline().strip()
    if not number:
        sys.exit("compare.py: Xvfb does not start; install the package xvfb")
    try:
        yield environment | {"DISPLAY": f":{number}"}
    finally:
        server.terminate()
        server.wait()


def run(folder, contender, analyzers, repetitions, environment):
    """What one process printed: the numbers of each line, by its name."""
    program = folder / f"window_benchmark_{contender}"
    started = time.clock_gettime_ns(time.CLOCK_MONOTONIC)
    command = [program, str(analyzers), str(repetitions), str(started)]
    done = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{done.stderr}compare.py: {program.name} failed (exit code {done.returncode})")
    lines = defaultdict(list)
    for line in done.stdout.splitlines():
        name, *numbers = line.split()
        lines[name].append([float(number) for number in numbers])
    return lines


def measure(folder, options, analyzers, environment):
    """All lines of all processes. The contenders take turns, so other load slows both alike."""
    results = {contender: defaultdict(list) for contender in CONTENDERS}
    for number in range(options.starts + options.rounds):
        repetitions = options.repetitions if number < options.rounds else 0
        for contender in CONTENDERS if number % 2 == 0 else reversed(CONTENDERS):
            for name, lines in run(folder, contender, analyzers, repetitions, environment).items():
                results[contender][name] += lines
    return results


def summary(lines, column, unit):
    """One number for many lines: the median, unless the unit asks for something else."""
    values = [line[column] for line in lines]
    if unit == "p99":
        return statistics.quantiles(values, n=100)[98] / 1000
    median = statistics.median(values)
    if unit == "MB":
        return median / 1024
    return median / 1000 if len(lines[0]) == 2 else median


def processor_ratio(results, name, unit):
    """The ratio of the processor's times, which other processes of the machine disturb less."""
    if unit == "p99" or len(results["ours"][name][0]) < 2:
        return ""
    ours, twin = (statistics.median(line[1] for line in results[each][name]) for each in CONTENDERS)
    return f"{ours / twin:.2f}"


def table(results, counts):
    heads = [f"{count:,} analyzers" for count in counts]
    print("| | " + " | ".join(f"{head}: ours / twin | ratio | processor" for head in heads) + " |")
    print("|---|" + "---:|---:|---:|" * len(counts))
    for name, title, column, unit in MEASURES:
        cells = [f"{title} ({'MB' if unit == 'MB' else 'ms'})"]
        for count in counts:
            ours, twin = (summary(results[count][each][name], column, unit) for each in CONTENDERS)
            cells += [f"{ours:.2f} / {twin:.2f}", f"{ours / twin:.2f}", processor_ratio(results[count], name, unit)]
        print("| " + " | ".join(cells) + " |")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=Path)
    parser.add_argument("--rounds", type=int, default=5, help="processes that do everything, for each contender")
    parser.add_argument("--starts", type=int, default=16, help="further processes that only start")
    parser.add_argument("--repetitions", type=int, default=80, help="how often a process does each thing")
    parser.add_argument("--analyzers", default="10,1000,10000")
    parser.add_argument("--platforms", default="offscreen,xcb")
    options = parser.parse_args()

    counts = [int(count) for count in options.analyzers.split(",")]
    titles = {"offscreen": "Without a screen (Qt's offscreen platform)", "xcb": "In a window of an X server"}
    for platform in options.platforms.split(","):
        with display(platform) as environment:
            results = {count: measure(options.folder, options, count, environment) for count in counts}
        print(f"\n### {titles[platform]}\n")
        table(results, counts)


if __name__ == "__main__":
    main()
