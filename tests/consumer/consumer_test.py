#!/usr/bin/env python3
"""Installs the library into a folder of its own, then configures, builds and runs a project that uses it.

    consumer_test.py BUILD SCRATCH CXX_COMPILER CXX_FLAGS
"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

SOURCE = Path(__file__).parent / "project"
BUNDLES = ["QEVSettings_QEVSettings.bundle", "QEVCommonTools_QEVCommonTools.bundle"]


def run(*command, **options):
    done = subprocess.run([str(word) for word in command], text=True, capture_output=True, **options)
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed ({done.returncode}):\n{done.stdout}{done.stderr}")
    return done.stdout


def expect(condition, what):
    if not condition:
        sys.exit(f"expected: {what}")


def main():
    build, scratch, compiler, flags = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3], sys.argv[4]
    shutil.rmtree(scratch, ignore_errors=True)
    installed, moved, project = scratch / "installed", scratch / "moved", scratch / "project"

    run("cmake", "--install", build, "--prefix", installed, "--component", "dev")
    # An installed tree is good wherever it is put.
    installed.rename(moved)
    run("cmake", "-S", SOURCE, "-B", project, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={moved}",
        f"-DCMAKE_CXX_COMPILER={compiler}", f"-DCMAKE_CXX_FLAGS={flags}", "-DCMAKE_BUILD_TYPE=Debug")
    run("cmake", "--build", project)

    environment = dict(os.environ, XDG_CONFIG_HOME=str(scratch / "config"), LC_ALL="C.UTF-8")
    # The project's folder has its bundles; the folder it was started from has none.
    page = run(project / "consumer", cwd=scratch, env=environment)
    expect("Schriften" in page, f"the fonts page in German, not:\n{page}")

    # Without the module's bundle the program must stop rather than show half a window.
    for bundle in BUNDLES:
        shutil.rmtree(project / bundle)
    stopped = subprocess.run([project / "consumer"], text=True, capture_output=True, cwd=scratch, env=environment)
    expect(stopped.returncode != 0, "a failure without the bundle")
    expect("unable to find bundle named QEVSettings_QEVSettings" in stopped.stderr, f"its reason, not:\n{stopped.stderr}")
    shutil.rmtree(scratch)


if __name__ == "__main__":
    main()
