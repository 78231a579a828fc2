#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the time zones of the delivered locations.

usage: makezones.py GEONAMES_FOLDER ZONEINFO_FOLDER LOC_FILE OUTPUT_FILE

GEONAMES_FOLDER, ZONEINFO_FOLDER  as of makelocations.py; the latter also holds zone.tab and tzdata.zi
LOC_FILE     the list of locations that makelocations.py has made of them
OUTPUT_FILE  name, latitude and longitude [deg] and IANA zone of each location, in the order of LOC_FILE

A zone has the name that zone.tab gives it; a name of before goes over the links of tzdata.zi. The standard time of
each zone must be the one that LOC_FILE holds.
"""

import csv
import os
import sys
import zoneinfo
from pathlib import Path

from checklocations import read_locations
from makelocations import BadSource, choose_places, read_geonames, standard_time_hours

# Seconds of arc in LOC_FILE are rounded.
SAME_PLACE_DEGREES = 0.001


def words_of_lines(path):
    for line in Path(path).read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            yield line.split()


def present_names(zoneinfo_folder):
    """The function that gives a zone the name in use."""
    named = {words[2] for words in words_of_lines(Path(zoneinfo_folder, "zone.tab"))}
    links = {words[2]: words[1] for words in words_of_lines(Path(zoneinfo_folder, "tzdata.zi")) if words[0] == "L"}

    def present_name(zone):
        name = zone if zone in named else links.get(zone)
        if name not in named:
            raise BadSource(f"zone.tab has no zone {zone}, and tzdata.zi no link from it")
        return name

    return present_name


def row(location, place, present_name):
    if max(abs(location.latitude - place.latitude), abs(location.longitude - place.longitude)) > SAME_PLACE_DEGREES:
        raise BadSource(f"{location.name} stands elsewhere in the table of places")
    zone = present_name(place.zone_name)
    hours = standard_time_hours(zone)
    if hours != location.zone:
        raise BadSource(f"{location.name}: zone {location.zone:g} in the list, {zone} keeps {hours:g}")
    return [location.name, f"{location.latitude:.2f}", f"{location.longitude:.2f}", zone]


def fail(where, what):
    raise BadSource(f"{where}: {what}")


def main(arguments):
    if len(arguments) != 4:
        sys.exit(__doc__)
    geonames_folder, zoneinfo_folder, loc_file, output_file = arguments
    zoneinfo.reset_tzpath([os.path.abspath(zoneinfo_folder)])
    try:
        places = choose_places(read_geonames(geonames_folder))
        present_name = present_names(zoneinfo_folder)
        locations = read_locations(loc_file, fail)
        rows = [row(location, places.pop(location.name), present_name) for location in locations]
        if places:
            raise BadSource(f"{loc_file} lacks {', '.join(places)}")
    except (BadSource, KeyError, OSError, ValueError, zoneinfo.ZoneInfoNotFoundError) as failure:
        sys.exit(f"makezones: {failure}")
    unfinished = Path(output_file + ".new")
    with open(unfinished, "w", encoding="ascii", newline="") as table:
        writer = csv.writer(table, lineterminator="\n")
        writer.writerow(["name", "latitude", "longitude", "zone"])
        writer.writerows(rows)
    unfinished.replace(output_file)


if __name__ == "__main__":
    main(sys.argv[1:])
