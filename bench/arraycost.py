#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""arraycost.py ARRAYCOST DATA: what a value of an array costs in Python, and how much more than in C++."""

import subprocess
import sys
import time

import numpy as np

import halvane

days = 2451545 + 0.37 * np.arange(100_000)


def least_microseconds(work):
    least = 1e9
    for _ in range(9):
        begin = time.perf_counter()
        work()
        least = min(least, (time.perf_counter() - begin) / days.size * 1e6)
    return least


for line in subprocess.run(sys.argv[1:3], check=True, capture_output=True, text=True).stdout.splitlines():
    body, accuracy, taken = line.split()
    own = least_microseconds(lambda: getattr(halvane, body)(days, accuracy=accuracy))
    more = 100 * (own / float(taken) - 1)
    print(f"{body:5}{accuracy:9} C++ {float(taken):.3f} us, Python {own:.3f} us: {more:+.0f} %")
