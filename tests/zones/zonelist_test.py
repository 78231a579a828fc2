#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""zonelist_test.py SOURCE: zones.csv has the places of loc.txt and, with their standard time, their zones.

The standard time is that of the day of which loc.txt holds it; it takes a tzdata that knows the changes up to then.
"""

import csv
import os
import pathlib
import sys
import zoneinfo

FIRST_TZDATA = "2026f"
ROUNDING = 0.005 + 1e-9


def tzdata_version():
    for folder in zoneinfo.TZPATH:
        table = pathlib.Path(folder, "tzdata.zi")
        if table.exists():
            return table.read_text(encoding="utf-8").split("\n")[0].removeprefix("# version ")
    return ""


def main(source):
    sys.path.insert(0, os.path.join(source, "tools", "makelocations"))
    from checklocations import read_locations
    from makelocations import standard_time_hours

    lines = []
    locations = read_locations(f"{source}/data/loc.txt", lambda where, what: lines.append(f"{where}: {what}"))
    with open(f"{source}/data/zones.csv", encoding="ascii", newline="") as table:
        rows = list(csv.DictReader(table))
    if [row["name"] for row in rows] != [location.name for location in locations]:
        lines.append("the names are not those of loc.txt")
    version = tzdata_version()
    if version < FIRST_TZDATA:
        print(f"tzdata {version or 'of no known version'}: the standard times are left out, which need {FIRST_TZDATA}")
    for row, location in zip(rows, locations):
        off = max(abs(float(row["latitude"]) - location.latitude), abs(float(row["longitude"]) - location.longitude))
        if off > ROUNDING:
            lines.append(f"{location.name}: {off:.3f} degrees off its place")
        hours = standard_time_hours(row["zone"])
        if version >= FIRST_TZDATA and hours != location.zone:
            lines.append(f"{location.name}: zone {location.zone:g}, {row['zone']} keeps {hours:g}")
    print("\n".join(lines))
    print(f"{len(rows)} places, {len(lines)} failures")
    return 1 if lines or len(rows) < 1000 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
