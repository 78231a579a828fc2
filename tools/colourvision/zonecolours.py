#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""zonecolours.py GEOJSON ...: how different the zones of fine maps look that lie beside each other.

Each colour covers 0.6 of the land or the sea below it; differences are those of colourvision.py, over the same ground.
Zones lie beside each other where they share a side of two points.
"""

import itertools
import json
import sys

from colourvision import EYES, difference

OPACITY = 0.6
GROUNDS = {"sea": (0xF1, 0xF5, 0xF7), "land": (0xDD, 0xD5, 0xC3)}


def over(colour, ground):
    return [(OPACITY * a + (1 - OPACITY) * b) / 255 for a, b in zip(colour, ground)]


def sides_of(feature):
    for polygon in feature["geometry"]["coordinates"]:
        for ring in polygon:
            yield from (frozenset(map(tuple, side)) for side in zip(ring, ring[1:]))


def pairs_of(path):
    with open(path, encoding="utf-8") as file:
        features = json.load(file)["features"]
    sides = [(feature, set(sides_of(feature))) for feature in features]
    for (one, of_one), (other, of_other) in itertools.combinations(sides, 2):
        if of_one & of_other:
            yield one["properties"], other["properties"]


def main():
    seen = {}
    for path in sys.argv[1:]:
        for one, other in pairs_of(path):
            seen[one["colour"], other["colour"]] = f"{one['class']} and {other['class']}"
    print("| zones | " + " | ".join(EYES) + " |")
    print("|---|" + "---|" * len(EYES))
    for (one, other), words in sorted(seen.items(), key=lambda item: item[1]):
        colours = [[int(colour[i:i + 2], 16) for i in (1, 3, 5)] for colour in (one, other)]
        least = [min(difference([over(colours[0], ground)], [over(colours[1], ground)], eye)
                     for ground in GROUNDS.values()) for eye in EYES.values()]
        print(f"| {words} ({one}, {other}) | " + " | ".join(f"{value:.0f}" for value in least) + " |")


main()
