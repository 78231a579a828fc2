#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""zoneoffsets_test.py ZONEOFFSETS ZONES_CSV: the clocks of all zones against Python's own reader of the zone files.

Equal must be: the names of the zones, the offset at every local noon from 2020 to 2099, and at the second of each
change, the second before and after it and the noons around it, from the first change of the zone to 2099.
"""

import bisect
import csv
import datetime
import pathlib
import struct
import subprocess
import sys
import zoneinfo

EPOCH = datetime.datetime(1970, 1, 1)
MJD_OF_1970 = 40587
DAY = 86400
FIRST, LAST = datetime.datetime(2020, 1, 1, 12), datetime.datetime(2099, 12, 31, 12)
EARLIEST, LATEST = -62135596800 + 2 * DAY, 253402300799 - 2 * DAY  # what Python's dates hold
# Before any zone had a change: one long before, and the eve of the Gregorian calendar.
OLD_DAYS = [datetime.datetime(1000, 3, 1, 12), datetime.datetime(1582, 10, 15, 12)]


def answers(program, questions):
    done = subprocess.run([program], input="\n".join(questions) + "\n", capture_output=True, text=True, check=True)
    return [line.split() for line in done.stdout.splitlines()]


def seconds(offset):
    return offset.days * DAY + offset.seconds


def mjd(date):
    return (date - EPOCH).days + MJD_OF_1970


def offset_at(zone, second):
    return seconds(zone.fromutc((EPOCH + datetime.timedelta(seconds=second)).replace(tzinfo=zone)).utcoffset())


def offset_at_noon(zone, day):
    return seconds(zone.utcoffset(EPOCH + datetime.timedelta(days=day - MJD_OF_1970, hours=12)))


def changes_of_file(name):
    """The seconds of the changes that stand in a zone file one by one (RFC 9636)."""
    path = next(path for path in (pathlib.Path(folder, name) for folder in zoneinfo.TZPATH) if path.exists())
    data = path.read_bytes()

    def header(start):
        magic, version, *counts = struct.unpack(">4sc15x6l", data[start : start + 44])
        assert magic == b"TZif" and version >= b"2", path
        return counts

    utc, standard, leaps, times, types, letters = header(0)
    start = 44 + times * 5 + types * 6 + letters + leaps * 8 + standard + utc
    times = header(start)[3]
    return struct.unpack(f">{times}q", data[start + 44 : start + 44 + times * 8])


def expected_noons(zone, days):
    """The day of each change at noon with its offset, as the program writes them."""
    noons = []
    before = None
    for number, offset in enumerate(map(zone.utcoffset, days), mjd(days[0])):
        if offset != before:
            noons += [str(number), str(seconds(offset))]
            before = offset
    return noons


def change_between(zone, day, offset_before):
    """The second of the change that the noon of `day` is the first one after."""
    low = (day - 1 - MJD_OF_1970) * DAY + DAY // 2 - offset_before
    return low + 1 + bisect.bisect_left(
        range(low + 1, low + 3 * DAY), True, key=lambda second: offset_at(zone, second) != offset_before
    )


def instants_of(name, zone, noons):
    changes = [second for second in changes_of_file(name) if EARLIEST < second < LATEST]
    days = list(map(int, noons[2::2]))
    befores = list(map(int, noons[1:-2:2]))
    changes += [change_between(zone, day, before) for day, before in zip(days, befores)]
    return sorted({second + near for second in changes for near in (-1, 0, 1)})


def main(program, zones_csv):
    with open(zones_csv, encoding="ascii", newline="") as table:
        delivered = {row["zone"] for row in csv.DictReader(table)}
    names = answers(program, ["names"])[0]
    known = zoneinfo.available_timezones() - {"Factory", "localtime"}
    lines = [f"only one of the two knows {name}" for name in sorted(known ^ set(names))]
    lines += [f"no zone file of {name}" for name in sorted(delivered - set(names))]
    zones = {name: zoneinfo.ZoneInfo(name) for name in sorted(known & set(names))}

    days = [FIRST + datetime.timedelta(days=count) for count in range((LAST - FIRST).days + 1)]
    noons = {name: expected_noons(zone, days) for name, zone in zones.items()}
    found = answers(program, [f"noons {name} {mjd(FIRST)} {mjd(LAST)}" for name in zones])
    lines += [f"{name}: noons {ours} in place of {noons[name]}" for name, ours in zip(zones, found) if ours != noons[name]]

    compared = len(zones) * len(days)
    instants = {name: instants_of(name, zone, noons[name]) for name, zone in zones.items()}
    found = answers(program, [f"at {name} {' '.join(map(str, instants[name]))}" for name in zones])
    for (name, zone), ours in zip(zones.items(), found):
        wanted = [str(offset_at(zone, second)) for second in instants[name]]
        lines += [f"{name}: at {second}: {our} in place of {want}"
                  for second, our, want in zip(instants[name], ours, wanted) if our != want]
        lines += [f"{name}: {len(ours)} answers"] if len(ours) != len(wanted) else []
        compared += len(wanted)

    near = {name: sorted({second // DAY + MJD_OF_1970 + day for second in seconds_ for day in (-1, 0, 1)}
                         | set(map(mjd, OLD_DAYS))) for name, seconds_ in instants.items()}
    found = answers(program, [f"noon {name} {' '.join(map(str, near[name]))}" for name in zones])
    for (name, zone), ours in zip(zones.items(), found):
        wanted = [str(offset_at_noon(zone, day)) for day in near[name]]
        lines += [f"{name}: noon of {day}: {our} in place of {want}"
                  for day, our, want in zip(near[name], ours, wanted) if our != want]
        lines += [f"{name}: {len(ours)} noons"] if len(ours) != len(wanted) else []
        compared += len(wanted)

    print("\n".join(lines[:40]))
    print(f"{len(zones)} zones, {len(delivered)} of them of delivered places; {compared} offsets, {len(lines)} differences")
    return 1 if lines or len(zones) < 400 or len(delivered) < 250 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
