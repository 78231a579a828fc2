#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the delivered list of locations.

usage: makelocations.py GEONAMES_FOLDER ZONEINFO_FOLDER OUTPUT_FILE

GEONAMES_FOLDER  holds cities1000.txt, the GeoNames table of places above 1000 inhabitants
ZONEINFO_FOLDER  holds the compiled IANA time zone files (zoneinfo of tzdata)
OUTPUT_FILE      the list, one location a line of 14 fields, sorted by name

cities.csv beside this program says which places are taken and under which name; additions.csv holds the few
that cities1000.txt lacks, or places, raises or times wrongly.

Elevation: the surveyed one of the table where it gives one, else that of its elevation model; a place that
stands in a sea cell of the model gets 0. Zone: the standard time in force on STANDARD_TIME_DAY.
"""

import csv
import os
import sys
import zoneinfo
from dataclasses import dataclass
from datetime import datetime, timedelta
from pathlib import Path

HERE = Path(__file__).resolve().parent
STANDARD_TIME_DAY = datetime(2026, 12, 15, 12)
NO_ELEVATION = -9999
CITY_OFFSET, PRESSURE, TEMPERATURE = 0, 1010, 10


class BadSource(Exception):
    """A source that is missing, or not of its form. The words name the file and what is wrong."""


@dataclass
class Place:
    latitude: float
    longitude: float
    elevation: int
    zone_name: str


def read_geonames(folder):
    """The places of cities1000.txt by their GeoNames number."""
    path = Path(folder) / "cities1000.txt"
    places = {}
    with open(path, encoding="utf-8", newline="\n") as table:
        for number, line in enumerate(table, 1):
            fields = line.rstrip("\n").split("\t")
            if len(fields) != 19:
                raise BadSource(f"{path}: line {number}: expected 19 fields, found {len(fields)}")
            model = int(fields[16] or NO_ELEVATION)
            elevation = int(fields[15]) if fields[15] else 0 if model == NO_ELEVATION else model
            country = fields[8]
            places[fields[0]] = (country, Place(float(fields[4]), float(fields[5]), elevation, fields[17]))
    return places


def read_table(name):
    with open(HERE / name, encoding="utf-8", newline="") as table:
        return list(csv.DictReader(table))


def choose_places(geonames):
    """The chosen places by their printed name."""
    chosen = {}
    for row in read_table("cities.csv"):
        name = row["name"]
        if name in chosen:
            raise BadSource(f"cities.csv: {name} stands twice")
        if row["geoname"] not in geonames:
            raise BadSource(f"cities.csv: {name}: cities1000.txt has no place {row['geoname']}")
        country, chosen[name] = geonames[row["geoname"]]
        if country != row["country"]:
            raise BadSource(f"cities.csv: {name}: expected a place in {row['country']}, found one in {country}")
    for row in read_table("additions.csv"):
        chosen[row["name"]] = Place(
            float(row["latitude"]), float(row["longitude"]), int(row["elevation"]), row["zone"]
        )
    return chosen


def standard_time_hours(zone_name):
    """Hours of standard time from Universal Time. Summer time in force on the day, as everywhere south of the
    equator that keeps it, is taken off; the negative "summer" time that is Ireland's winter is left in."""
    day = STANDARD_TIME_DAY.replace(tzinfo=zoneinfo.ZoneInfo(zone_name))
    return (day.utcoffset() - max(day.dst(), timedelta(0))) / timedelta(hours=1)


def degrees_minutes_seconds(angle):
    seconds = int(abs(angle) * 3600 + 0.5)
    return seconds // 3600, seconds // 60 % 60, seconds % 60


def record(name, place):
    if '"' in name or not name.isascii():
        raise BadSource(f"{name}: a name is ASCII without double quote marks")
    numbers = [
        *degrees_minutes_seconds(place.latitude),
        *degrees_minutes_seconds(place.longitude),
        int(place.latitude >= 0),
        int(place.longitude >= 0),
        f"{standard_time_hours(place.zone_name):g}",
        place.elevation,
        CITY_OFFSET,
        PRESSURE,
        TEMPERATURE,
    ]
    return f'"{name}",' + ",".join(str(number) for number in numbers) + "\r\n"


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    geonames_folder, zoneinfo_folder, output_file = arguments
    zoneinfo.reset_tzpath([os.path.abspath(zoneinfo_folder)])
    try:
        places = choose_places(read_geonames(geonames_folder))
        lines = [record(name, places[name]) for name in sorted(places, key=lambda name: (name.casefold(), name))]
    except (BadSource, OSError, ValueError, zoneinfo.ZoneInfoNotFoundError) as failure:
        sys.exit(f"makelocations: {failure}")
    unfinished = Path(output_file + ".new")
    unfinished.write_bytes("".join(lines).encode("ascii"))
    unfinished.replace(output_file)


if __name__ == "__main__":
    main(sys.argv[1:])
