#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Installs the library into a folder of its own, then builds and runs projects that use it.

    consumer_test.py BUILD SCRATCH CXX_COMPILER CXX_FLAGS COMPONENTS [QT_HOST OPEN_EXAMPLE]

COMPONENTS are those to install, with commas between them; shared libraries are in `runtime`.
QT_HOST is the folder of a project with a QApplication of its own, and OPEN_EXAMPLE the script that
starts it; both are left out of a build without Qt.
"""

import os
import shlex
import shutil
import subprocess
import sys
from pathlib import Path

SOURCE = Path(__file__).parent / "project"
BUNDLES = ["QEVSettings_QEVSettings.bundle", "QEVCommonTools_QEVCommonTools.bundle"]


def run(*command, **options):
    done = subprocess.run(
        [str(word) for word in command], text=True, capture_output=True, **options
    )
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed ({done.returncode}):\n{done.stdout}{done.stderr}")
    return done.stdout


def expect(condition, what):
    if not condition:
        sys.exit(f"expected: {what}")


def build(source, folder, prefix, compiler, flags, *more):
    run(
        "cmake",
        "-S",
        source,
        "-B",
        folder,
        "-G",
        "Ninja",
        f"-DCMAKE_PREFIX_PATH={prefix}",
        f"-DCMAKE_CXX_COMPILER={compiler}",
        f"-DCMAKE_CXX_FLAGS={flags}",
        "-DCMAKE_BUILD_TYPE=Debug",
        *more,
    )
    run("cmake", "--build", folder)


def build_plainly(sources, program, packages, compiler, flags, environment):
    options = run("pkg-config", "--cflags", "--libs", *packages, env=environment)
    run(compiler, "-std=c++20", *shlex.split(flags), *sources, "-o", program, *shlex.split(options))


def check_program(program, scratch, environment):
    # The program's folder has the bundles; the folder it is started from has none.
    page = run(program, cwd=scratch, env=environment)
    expect("Schriften" in page, f"the fonts page in German, not:\n{page}")


def main():
    build_folder, scratch, compiler, flags = (
        Path(sys.argv[1]),
        Path(sys.argv[2]),
        sys.argv[3],
        sys.argv[4],
    )
    shutil.rmtree(scratch, ignore_errors=True)
    installed, moved, project = scratch / "installed", scratch / "moved", scratch / "project"
    environment = dict(os.environ, XDG_CONFIG_HOME=str(scratch / "config"), LC_ALL="C.UTF-8")

    for component in sys.argv[5].split(","):
        run("cmake", "--install", build_folder, "--prefix", installed, "--component", component)
    # An installed tree is good wherever it is put.
    installed.rename(moved)

    # The component `headless` does without Qt.
    build(SOURCE, project, moved, compiler, flags, "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON")
    check_program(project / "consumer", scratch, environment)

    # The same without CMake.
    with_package = dict(environment, PKG_CONFIG_PATH=next(moved.glob("lib/**/pkgconfig")))
    plain = project / "plain"
    build_plainly([SOURCE / "main.cpp"], plain, ["QEVSettings"], compiler, flags, with_package)
    check_program(plain, scratch, environment)

    # Without the module's bundle the program must stop rather than show half a window.
    for bundle in BUNDLES:
        shutil.rmtree(project / bundle)
    stopped = subprocess.run(
        [project / "consumer"], text=True, capture_output=True, cwd=scratch, env=environment
    )
    expect(stopped.returncode != 0, "a failure without the bundle")
    expect(
        "unable to find bundle named QEVSettings_QEVSettings" in stopped.stderr,
        f"its reason, not:\n{stopped.stderr}",
    )

    if len(sys.argv) > 6:
        host, open_example = Path(sys.argv[6]), Path(sys.argv[7])
        build(host, scratch / "qt_host", moved, compiler, flags)
        run(sys.executable, "-B", open_example, scratch / "qt_host" / "packet_viewer")
        plain = scratch / "plain_qt_host"
        bundles = run(
            "pkg-config", "--variable=bundlesdir", "QEVSettings", env=with_package
        ).strip()
        shutil.copytree(bundles, plain)
        sources = [host / "main.cpp", host / "MainWindow.cpp"]
        packages = ["QEVSettingsQt", "Qt6Widgets"]
        # Qt demands code that does not depend on its position.
        build_plainly(
            sources, plain / "packet_viewer", packages, compiler, flags + " -fPIC", with_package
        )
        run(sys.executable, "-B", open_example, plain / "packet_viewer")
    shutil.rmtree(scratch)


if __name__ == "__main__":
    main()
