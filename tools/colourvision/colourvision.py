#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""touchingclasses FOLDER LUNATIONS | colourvision.py: how different the classes that touch on a map look.

Colours as four kinds of eyes see them: all cones, and without those for red (protanopia), green (deuteranopia) and
blue (tritanopia), by the matrices of Machado, Oliveira and Fernandes (2009) for severity 100 in the Debian package
python3-colorspacious. Differences are those of CIE 1976 (L*a*b*). Class 3 is painted by nothing: it has the colours of
the sea and the land of the map, of which the nearer one counts.
"""

import sys
from collections import defaultdict

from colorspacious import cspace_convert, deltaE

EYES = {
    "all cones": None,
    "protanopia": "protanomaly",
    "deuteranopia": "deuteranomaly",
    "tritanopia": "tritanomaly",
}


def seen(colour, deficiency):
    if deficiency is None:
        return colour
    space = {"name": "sRGB1+CVD", "cvd_type": deficiency, "severity": 100}
    return [min(1, max(0, part)) for part in cspace_convert(colour, space, "sRGB1")]


def difference(one, other, deficiency):
    return min(
        deltaE(seen(a, deficiency), seen(b, deficiency), input_space="sRGB1", uniform_space="CIELab")
        for a in one
        for b in other
    )


def read(lines):
    colours = defaultdict(list)
    contacts = []
    for line in lines:
        kind, *fields = line.strip().split(",")
        if kind == "colour":
            colours[fields[0]].append([int(part) / 255 for part in fields[1:]])
        elif kind == "contact":
            contacts.append((fields[0], fields[1], int(fields[2])))
    return colours, contacts


def main():
    colours, contacts = read(sys.stdin)
    print("| classes | contacts | " + " | ".join(EYES) + " |")
    print("|---|---|" + "---|" * len(EYES))
    least = {}
    for one, other, count in contacts:
        row = []
        for name, deficiency in EYES.items():
            value = difference(colours[one], colours[other], deficiency)
            least[name] = min(least.get(name, (value, "")), (value, f"{one} and {other}"))
            row.append(f"{value:.1f}")
        print(f"| {one} and {other} | {count} | " + " | ".join(row) + " |")
    print("| least | | " + " | ".join(f"{least[n][0]:.1f} ({least[n][1]})" for n in EYES) + " |")


if __name__ == "__main__":
    main()
