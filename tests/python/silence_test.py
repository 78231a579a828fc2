#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""silence_test.py PROGRAM ARGUMENT ...: a test prints nothing but its own success in Python's development mode, with
its checks of memory and with warnings as errors."""

import os
import subprocess
import sys

command = [sys.executable, "-X", "dev", "-W", "error", *sys.argv[1:]]
environment = {**os.environ, "PYTHONMALLOC": "debug"}
done = subprocess.run(command, capture_output=True, text=True, env=environment)
lines = [line for line in (done.stdout + done.stderr).splitlines() if line.strip(".-")]
print("\n".join(lines))
sys.exit(done.returncode or len(lines) != 2 or not lines[0].startswith("Ran ") or lines[1] != "OK")
