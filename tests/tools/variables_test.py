#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""variables_test.py SOURCE BUILD: every variable that outlives a call stands in the architecture page.

The symbols of the rooms' archives in writable sections are held against the table under "What changes outside any
argument" of docs/architecture.md. A room without a row has none: engine and tools are values in, numbers out.
"""

import pathlib
import re
import subprocess
import sys

ROW = re.compile(r"^\| `(\w+)/` \| `([^`]+)` \| (\S.*) \|$", re.MULTILINE)
SYMBOL = re.compile(r"^[0-9a-f]+ .{7} (\.(?:bss|data)\S*)\s+[0-9a-f]+\s+(?:\.hidden )?(.+)$")


def plain(name):
    """`halvane::(anonymous namespace)::runs()::under_way` as `runs::under_way`."""
    name = re.sub(r"\(anonymous namespace\)::", "", name)
    name = re.sub(r"\((?:[^()]|\([^()]*\))*\)(?: const)?(\[abi:\w+\])?", "", name)
    return name.removeprefix("halvane::")


def variables(archive):
    listed = subprocess.run(["objdump", "-t", "-C", archive], capture_output=True, text=True, check=True).stdout
    for line in listed.splitlines():
        match = SYMBOL.match(line)
        if not match or match[1].startswith(".data.rel"):
            continue
        # What is no variable of ours: sections, the guards of statics, tables that the libraries make.
        if match[2].startswith("halvane::") and "guard variable" not in match[2]:
            yield plain(match[2])


def archives_of(build, rooms):
    return [(room, path) for room in rooms for path in sorted((build / room).glob("*.a"))]


def rooms_of(text):
    return re.findall(r"^\| `(\w+)/` \|.*\|[^|]*\|$", text.split("## The way of the data")[0], re.MULTILINE)


def main(source, build):
    text = (pathlib.Path(source) / "docs/architecture.md").read_text(encoding="utf-8")
    told = {(room, name) for room, name, _ in ROW.findall(text.split("## The way of the data")[1])}
    archives = archives_of(pathlib.Path(build), rooms_of(text))
    found = {(room, name) for room, path in archives for name in variables(path)}
    lines = [f"{room}/: {name} is not in the table of docs/architecture.md" for room, name in sorted(found - told)]
    lines += [f"{room}/: there is no {name}, which docs/architecture.md tells of" for room, name in sorted(told - found)]
    print("\n".join(lines) or f"{len(found)} variables in {len(archives)} archives, each told of")
    return 1 if lines or not found or not archives else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
