#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Measures the Analyzer page in turns with other programs, and prints tables of ratios.

    compare.py FOLDER [--rounds N] [--repetitions N] [--analyzers N,…]
                      [--environments offscreen,xcb,xcb+bus] [--peers N]

FOLDER holds the programs. The first tables have our window and its twin, driven through the same
actions: for each measure our median, the twin's and their ratio, and, where it was measured, the
ratio of the processor time. The last table has the peers as well, in an X window with a session
bus. For X windows, an X server without a screen is started. The tables are Markdown.
"""

import argparse
import contextlib
import os
import statistics
import subprocess
import sys
import tempfile
import time
from collections import defaultdict
from pathlib import Path

TWINS = ("ours", "twin")
# What the peers' columns are called. `empty` is an empty window: the limit of the first frame.
PEERS = {
    "empty": "an empty Qt window",
    "ours": "ours",
    "twin": "Qt Widgets, the twin",
    "quick": "Qt Quick Controls",
    "adwaita": "libadwaita",
}
PACKAGES = {
    "quick": "qt6-declarative-dev qml6-module-qtquick-controls qml6-module-qtquick-layouts",
    "adwaita": "libadwaita-1-dev",
}
TITLES = {
    "offscreen": "Without a screen (Qt's offscreen platform)",
    "xcb": "In a window of an X server",
    "xcb+bus": "In a window of an X server, with a session bus",
}

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
    ("resize", "a resize step", 0, "ms"),
    ("tab-first", "the tab Analyzer shown for the first time", 0, "ms"),
    ("tab-general-again", "the tab General shown again", 0, "ms"),
    ("tab-analyzer-again", "the tab Analyzer shown again", 0, "ms"),
    ("menu", "the time-zone menu opened", 0, "ms"),
    ("memory-first-frame", "peak memory up to the first frame", 0, "MB"),
    ("memory-peak", "peak memory of all of it", 0, "MB"),
]
PEER_MEASURES = [
    ("first-frame", "process start to first frame", 0, "ms"),
    ("first-frame", "the same, on the processor", 1, "ms"),
    ("selection", "another analyzer until painted", 0, "ms"),
    ("selection", "the same, on the processor", 1, "ms"),
    ("memory-first-frame", "peak memory up to the first frame", 0, "MB"),
]


@contextlib.contextmanager
def session_bus():
    """The address of a session bus that ends with the block."""
    command = ["dbus-daemon", "--session", "--nofork", "--print-address=1"]
    with subprocess.Popen(
        command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True
    ) as bus:
        try:
            yield bus.stdout.readline().strip()
        finally:
            bus.terminate()


@contextlib.contextmanager
def x_server():
    """The name of a display of 24 bits that ends with the block."""
    reader, writer = os.pipe()
    # A server that resets itself when its last client leaves would keep the next one waiting.
    screen = ["-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset"]
    command = ["Xvfb", "-displayfd", str(writer), *screen]
    server = subprocess.Popen(command, pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as answer:
        number = answer.readline().strip()
    if not number:
        sys.exit("compare.py: Xvfb does not start; install the package xvfb")
    try:
        yield f":{number}"
    finally:
        server.terminate()
        server.wait()


@contextlib.contextmanager
def surroundings(name):
    """The environment of a process that opens a window there, with a session bus or without."""
    platform, _, bus = name.partition("+")
    environment = dict(os.environ)
    environment |= {"QT_QPA_PLATFORM": platform, "GDK_BACKEND": "x11", "LC_ALL": "C.UTF-8"}
    for inherited in ("DBUS_SESSION_BUS_ADDRESS", "WAYLAND_DISPLAY", "DISPLAY"):
        environment.pop(inherited, None)
    with contextlib.ExitStack() as stack:
        # A bus is also looked for in this folder.
        environment["XDG_RUNTIME_DIR"] = stack.enter_context(tempfile.TemporaryDirectory())
        if platform == "xcb":
            environment["DISPLAY"] = stack.enter_context(x_server())
        if bus:
            environment["DBUS_SESSION_BUS_ADDRESS"] = stack.enter_context(session_bus())
        yield environment


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


def measure(folder, options, contenders, analyzers, environment):
    """All lines of all processes. The contenders take turns, so other load slows all alike."""
    results = {contender: defaultdict(list) for contender in contenders}
    for number in range(options.rounds):
        for contender in contenders if number % 2 == 0 else reversed(contenders):
            lines = run(folder, contender, analyzers, options.repetitions, environment)
            for name, numbers in lines.items():
                results[contender][name] += numbers
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
    ours, twin = (statistics.median(line[1] for line in results[each][name]) for each in TWINS)
    return f"{ours / twin:.2f}"


def table(results, counts):
    heads = [f"{count:,} analyzers" for count in counts]
    print("| | " + " | ".join(f"{head}: ours / twin | ratio | processor" for head in heads) + " |")
    print("|---|" + "---:|---:|---:|" * len(counts))
    for name, title, column, unit in MEASURES:
        if not results[counts[0]]["ours"][name]:
            continue
        cells = [f"{title} ({'MB' if unit == 'MB' else 'ms'})"]
        for count in counts:
            ours, twin = (summary(results[count][each][name], column, unit) for each in TWINS)
            ratio = processor_ratio(results[count], name, unit)
            cells += [f"{ours:.2f} / {twin:.2f}", f"{ours / twin:.2f}", ratio]
        print("| " + " | ".join(cells) + " |")


def peer_table(results, contenders):
    """Each peer's figure, and ours divided by it."""
    print("| | " + " | ".join(PEERS[contender] for contender in contenders) + " |")
    print("|---|" + "---:|" * len(contenders))
    for name, title, column, unit in PEER_MEASURES:
        if not results["ours"][name]:
            continue
        ours = summary(results["ours"][name], column, unit)
        cells = [f"{title} ({'MB' if unit == 'MB' else 'ms'})"]
        for contender in contenders:
            lines = results[contender].get(name)
            if not lines:
                cells.append("–")
                continue
            value = summary(lines, column, unit)
            ratio = "" if contender == "ours" else f", ratio {ours / value:.2f}"
            cells.append(f"{value:.2f}{ratio}")
        print("| " + " | ".join(cells) + " |")


def built(folder, contender):
    if (folder / f"window_benchmark_{contender}").exists():
        return True
    print(f"\nLeft out: {PEERS[contender]}; install {PACKAGES[contender]}, and build again.")
    return False


def options_of_command_line():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    add = parser.add_argument
    add("folder", type=Path)
    add("--rounds", type=int, default=20, help="processes of each contender")
    add("--repetitions", type=int, default=10, help="per process; 0 measures the start only")
    add("--analyzers", default="10,10000", help="in the tables of the twin; may be empty")
    add("--environments", default=",".join(TITLES))
    add("--peers", type=int, default=25, help="analyzers in the peers' table; 0 leaves it out")
    return parser.parse_args()


def compare_with_twin(options, counts, name):
    with surroundings(name) as environment:
        results = {
            count: measure(options.folder, options, TWINS, count, environment) for count in counts
        }
    print(f"\n### {TITLES[name]}\n")
    table(results, counts)


def compare_with_peers(options):
    count = options.peers
    print(f"\n### Beside other toolkits: {count} analyzers, an X window and a session bus")
    contenders = [each for each in PEERS if each not in PACKAGES or built(options.folder, each)]
    with surroundings("xcb+bus") as environment:
        results = measure(options.folder, options, contenders, count, environment)
    print()
    peer_table(results, contenders)


def main():
    options = options_of_command_line()
    print(
        f"Each figure is a median of {options.rounds} processes in turns, of which each does each "
        f"thing {options.repetitions} times."
    )
    counts = [int(count) for count in options.analyzers.split(",") if count]
    for name in options.environments.split(",") if counts else []:
        compare_with_twin(options, counts, name)
    if options.peers:
        compare_with_peers(options)


if __name__ == "__main__":
    main()
