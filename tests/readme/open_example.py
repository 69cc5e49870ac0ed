#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Starts an example without a display, waits until it has migrated its store, and ends it.

    open_example.py PROGRAM
"""

import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path


def main():
    with tempfile.TemporaryDirectory() as scratch:
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_CONFIG_HOME=scratch)
        example = subprocess.Popen(
            [sys.argv[1]], env=environment, stderr=subprocess.PIPE, text=True
        )
        while example.poll() is None and not list(Path(scratch).rglob("*.sqlite")):
            time.sleep(0.05)
        # A window that opened stays open; a second is what one that cannot needs to say so.
        try:
            example.wait(timeout=1)
        except subprocess.TimeoutExpired:
            example.terminate()
            example.communicate()
            return
        sys.exit(f"the example ended by itself ({example.returncode}):\n{example.stderr.read()}")


if __name__ == "__main__":
    main()
