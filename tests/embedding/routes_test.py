#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Builds the Qt host with the library's sources, in one of the ways that CMake has for that.

    routes_test.py ROUTE HOST SOURCE SCRATCH CXX_COMPILER LAUNCHER all|some OPEN_EXAMPLE

ROUTE is add_subdirectory or FetchContent. With `all` the host is built and started. With `some`
only one library is built, which shows that the project configures and compiles.
"""

import subprocess
import sys
from pathlib import Path


def run(*command):
    done = subprocess.run([str(word) for word in command], text=True, capture_output=True)
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed ({done.returncode}):\n{done.stdout}{done.stderr}")
    return done.stdout


def main():
    route, host, source, scratch, compiler, launcher, extent, open_example = sys.argv[1:]
    run(
        "cmake",
        "-S",
        host,
        "-B",
        scratch,
        "-G",
        "Ninja",
        f"-DROUTE={route}",
        f"-DQEVSettings_SOURCE={source}",
        f"-DCMAKE_CXX_COMPILER={compiler}",
        f"-DCMAKE_CXX_COMPILER_LAUNCHER={launcher}",
        "-DCMAKE_BUILD_TYPE=Debug",
        "-DFETCHCONTENT_FULLY_DISCONNECTED=ON",
    )
    run(
        "cmake",
        "--build",
        scratch,
        "--target",
        "packet_viewer" if extent == "all" else "QEVSettings_preferences",
    )

    # The project around the library gets neither its tests nor its program, and decides about
    # warnings itself.
    targets = run("cmake", "--build", scratch, "--target", "help")
    for name in ["zorvantine", "qt_test"]:
        if f"{name}:" in targets.split():
            sys.exit(f"the host's project has the target {name}")
    commands = (Path(scratch) / "build.ninja").read_text(encoding="utf-8")
    if "-Werror" in commands:
        sys.exit("warnings are errors in the host's project")
    if extent == "all":
        run(sys.executable, "-B", open_example, Path(scratch) / "packet_viewer")


if __name__ == "__main__":
    main()
