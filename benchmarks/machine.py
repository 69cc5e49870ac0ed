#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints on which machine a benchmark is about to run, and whether other programs use it."""

import os
import platform
import time
from pathlib import Path

# Other programs that use more than this share of the processors disturb a measurement.
QUIET = 0.1
SECONDS_WATCHED = 2


def processor():
    for line in Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines():
        name, _, value = line.partition(":")
        if name.strip() == "model name":
            return value.strip()
    return platform.machine()


def times():
    """The time of all processors so far: all of it, and the part in which they were idle."""
    first_line = Path("/proc/stat").read_text(encoding="utf-8").splitlines()[0]
    fields = [int(field) for field in first_line.split()[1:]]
    return sum(fields), fields[3] + fields[4]


def busy_share():
    before, idle_before = times()
    time.sleep(SECONDS_WATCHED)
    after, idle_after = times()
    return 1 - (idle_after - idle_before) / (after - before)


def main():
    share = busy_share()
    print(f"Measured on {processor()}, {os.cpu_count()} processors, Linux {platform.release()}.")
    if share > QUIET:
        print(
            f"**Other programs used {share:.0%} of the processors**, so only the ratios count, "
            "and the processor's before the others."
        )
    print(flush=True)


if __name__ == "__main__":
    main()
