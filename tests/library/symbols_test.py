#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""symbols_test.py SOURCE LIBRARY: the shared library has the symbols of library/symbols.txt, all of HALVANE_1, and no other."""

import pathlib
import subprocess
import sys


def main():
    source, library = map(pathlib.Path, sys.argv[1:])
    listed = (source / "library/symbols.txt").read_text(encoding="utf-8").split()
    told = subprocess.run(["nm", "-D", "--defined-only", library], capture_output=True, text=True, check=True).stdout
    names = [line.split()[2] for line in told.splitlines() if " A " not in line]
    found = {name.partition("@")[0] for name in names}
    lines = [f"{name} is not of the version HALVANE_1" for name in names if not name.endswith("@@HALVANE_1")]
    lines += [f"{name} is gone: programs that call it do not start" for name in listed if name not in found]
    lines += [f"{name} is new: library/symbols.txt has it not" for name in sorted(found - set(listed))]
    if listed != sorted(set(listed)):
        lines.append("library/symbols.txt is not in the order of its bytes")
    print("\n".join(lines))
    return 1 if lines or len(listed) < 100 else 0


if __name__ == "__main__":
    sys.exit(main())
