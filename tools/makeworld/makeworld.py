#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""makeworld.py TABLES WORLD: the outlines of the world for the fine map, from the tables of Natural Earth.

TABLES  folder of land-50m.csv (columns ring, hole, longitude, latitude) and borders-110m.csv (line, longitude,
        latitude), degrees
WORLD   the file to write: a head line, then a line for each ring of land, each ring of water in it and each border:
        its kind, its first point and from there on the steps to the next one, longitude and latitude in hundredths
        of a degree. The last point of a ring is not repeated.
"""

import csv
import itertools
import pathlib
import sys

HEAD = "world 1: kind, first point, steps; 0.01 degree; Natural Earth, public domain"


def lines_of(path, key_columns):
    """The lines of a table as lists of points in hundredths of a degree, with the columns before the point."""
    with open(path, encoding="ascii", newline="") as table:
        rows = list(csv.reader(table))[1:]
    for key, group in itertools.groupby(rows, lambda row: row[:key_columns]):
        yield key, [tuple(round(float(number) * 100) for number in row[key_columns:]) for row in group]


def without_repeats(points):
    return [point for point, _ in itertools.groupby(points)]


def straight(before, point, after):
    """Whether a point stands on the way from one neighbour to the other."""
    (x0, y0), (x1, y1), (x2, y2) = before, point, after
    cross = (x1 - x0) * (y2 - y1) - (y1 - y0) * (x2 - x1)
    onward = (x1 - x0) * (x2 - x1) + (y1 - y0) * (y2 - y1)
    return cross == 0 and onward > 0


def without_straight(points):
    kept = points[:1]
    for point, after in zip(points[1:], points[2:]):
        if not straight(kept[-1], point, after):
            kept.append(point)
    return kept + points[-1:]


def line_of(kind, points):
    steps = [(b[0] - a[0], b[1] - a[1]) for a, b in zip(points, points[1:])]
    return " ".join([kind, *(str(number) for pair in [points[0], *steps] for number in pair)])


def main(tables, world):
    lines = [HEAD]
    for (_, hole), points in lines_of(tables / "land-50m.csv", 2):
        ring = without_straight(without_repeats(points))[:-1]
        if len(ring) > 2:
            lines.append(line_of("water" if hole == "1" else "land", ring))
    for _, points in lines_of(tables / "borders-110m.csv", 1):
        border = without_straight(without_repeats(points))
        if len(border) > 1:
            lines.append(line_of("border", border))
    world.write_text("\n".join(lines) + "\n", encoding="ascii", newline="\n")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
