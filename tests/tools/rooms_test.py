#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""rooms_test.py SOURCE: every include of a room's file must stand in the table of rooms.

The table is that of docs/architecture.md: folder, what lives there, which rooms it may use. A room may also use what
its rooms may use. The forms of a tool (the sources of its halvane_panel target) may use `panel` besides.
"""

import pathlib
import re
import sys


def rooms_of(architecture):
    """The rooms that each folder may use, with those of its rooms."""
    table = architecture.split("## The way of the data")[0]
    rows = re.findall(r"^\| `(\w+)/` \|.*\|([^|]*)\|$", table, re.MULTILINE)
    direct = {folder: set(re.findall(r"`(\w+)/`", uses)) for folder, uses in rows}
    whole = {}

    def closed(folder):
        if folder not in whole:
            whole[folder] = set(direct[folder])
            for below in direct[folder]:
                whole[folder] |= closed(below)
        return whole[folder]

    for folder in direct:
        closed(folder)
    return whole


def form_names(folder):
    """The sources of a room's halvane_panel targets, without their endings."""
    makefile = folder / "CMakeLists.txt"
    targets = re.findall(r"halvane_panel\(([^)]*)\)", makefile.read_text()) if makefile.exists() else []
    return {pathlib.Path(word).stem for words in targets for word in words.split() if word.endswith(".cpp")}


def broken_arrows(source, rooms):
    for room, may_use in rooms.items():
        forms = form_names(source / room)
        for file in sorted((source / room).rglob("*")):
            if file.suffix not in (".cpp", ".h", ".inc"):
                continue
            allowed = may_use | {room}
            if file.stem in forms:
                allowed |= {"panel"} | rooms["panel"]
            for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
                include = re.match(r'\s*#\s*include\s+"(\w+)/', line)
                if include and include[1] not in allowed and (source / include[1]).is_dir():
                    yield f"{file.relative_to(source)}:{number}: {room}/ may not use {include[1]}/: {line.strip()}"


def main():
    source = pathlib.Path(sys.argv[1])
    rooms = rooms_of((source / "docs/architecture.md").read_text(encoding="utf-8"))
    known = {path.parent.name for path in source.glob("*/*.cpp")}
    outside = known - set(rooms) - {"tests", "bench", "fuzz", "tools", "data"}
    lines = [f"{folder}/ does not stand in the table of rooms" for folder in sorted(outside)]
    lines += [f"{folder}/ stands in the table of rooms only" for folder in sorted(set(rooms) - known)]
    lines += list(broken_arrows(source, rooms)) if set(rooms) <= known else []
    print("\n".join(lines))
    return 1 if lines or len(rooms) < 10 else 0


if __name__ == "__main__":
    sys.exit(main())
