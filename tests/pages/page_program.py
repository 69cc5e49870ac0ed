# SPDX-License-Identifier: MIT
"""Runs the program for the tests of the pages."""

import os
import subprocess
import sys
from pathlib import Path


def run(zorvantine, store, *arguments):
    """The output of the program with this store, in an environment that is the same everywhere.

    The folder of the store stands for all folders of the user. A failed run ends the test.
    """
    folder = str(Path(store).parent)
    environment = {
        "PATH": os.environ.get("PATH", ""),
        "LC_ALL": "C.UTF-8",
        "TZ": "UTC",
        "HOME": folder,
        "XDG_CONFIG_HOME": folder,
        "XDG_DATA_HOME": folder,
        "XDG_RUNTIME_DIR": folder,
    }
    result = subprocess.run(
        [zorvantine, "--store", store, *arguments],
        env=environment,
        capture_output=True,
        encoding="utf-8",
        check=False,
    )
    if result.returncode != 0:
        sys.exit(f"{' '.join(arguments)}: {result.stderr}")
    return result.stdout
