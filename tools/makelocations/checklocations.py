#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks a list of locations and names every location that fails.

usage: checklocations.py LOC_FILE [--land LAND_FILE] [--zoneinfo ZONEINFO_FOLDER] [--geonames GEONAMES_FOLDER]

Always checked: the form of every record, unique names, at least 300 of them, every capital of capitals.csv,
zones against longitudes, elevations against known limits and against aerodromes.
--land       no location in the sea: land polygons as lines of ring, hole, longitude, latitude
--zoneinfo   place and zone of each location that zone.tab of tzdata names too
--geonames   every place above a million inhabitants in cities1000.txt, where Muslims are many
Exit status 1 when anything fails.
"""

import argparse
import csv
import math
import re
import sys
import zoneinfo
from dataclasses import dataclass
from datetime import datetime, timedelta
from pathlib import Path

HERE = Path(__file__).resolve().parent
KM_PER_DEGREE = 111.2

FEWEST_LOCATIONS = 300
FIELDS = 14
LARGEST = (90, 59, 59, 180, 59, 59, 1, 1)

# Lowest and highest towns of the list's kind: Jericho on its plain, and La Paz up to its rim.
LOWEST_METRES, HIGHEST_METRES = -260, 4150
# Towns below sea level lie in three hollows: the Jordan valley, the Caspian shore, the Dutch polders.
BELOW_SEA_LEVEL = {"Aktau", "Amsterdam", "Astrakhan", "Atyrau", "Baku", "Derbent", "Jericho", "Rotterdam"}

# Aerodrome elevations in metres, as on aeronautical charts. Aerodromes lie at the edge of a town, not in it.
AERODROME_TOLERANCE_METRES = 250
AERODROMES = {
    "Addis Ababa": 2334, "Almaty": 681, "Amman": 779, "Ankara": 953, "Antananarivo": 1279, "Baghdad": 35,
    "Bogota": 2548, "Cairo": 116, "Damascus": 616, "Delhi": 237, "Denver": 1656, "Dhaka": 8, "Dushanbe": 785,
    "Erzurum": 1758, "Harare": 1490, "Isfahan": 1546, "Johannesburg": 1694, "Kabul": 1791, "Karachi": 30,
    "Kathmandu": 1338, "Khartoum": 386, "Lahore": 217, "London": 25, "Madinah": 656, "Mashhad": 995,
    "Mexico City": 2230, "Moscow": 190, "Nairobi": 1624, "Quetta": 1605, "Riyadh": 625, "Sanaa": 2206,
    "Shiraz": 1500, "Singapore": 7, "Srinagar": 1655, "Tashkent": 432, "Tehran": 1208, "Tunis": 7, "Yerevan": 865,
}

# Hours that a kept zone may differ from the Sun's. None of the locations needs an exception today.
ZONE_TOLERANCE_HOURS = 2
KEEPS_ANOTHER_ZONE = set()

# A coast drawn for a scale of 1 : 50 million is generalised to about 0.2 mm on paper, which is 10 km.
SHORE_TOLERANCE_KM = 10
# Atolls and small islands that a map of that scale leaves out.
NOT_ON_THE_MAP = {"Addu City", "Kavaratti", "Labuan"}

# Reference places of zone.tab are rounded to whole minutes and may mean another quarter of a wide city.
REFERENCE_TOLERANCE_KM = 25
STANDARD_TIME_DAY = datetime(2026, 12, 15, 12)

# Members of the Organisation of Islamic Cooperation, and others with many Muslims.
MUSLIM_COUNTRIES = set(
    "AE AF AL AZ BD BF BH BJ BN CI CM DJ DZ EG GA GM GN GW GY ID IQ IR JO KG KM KW KZ LB LY MA ML MR MV MY MZ NE NG "
    "OM PK PS QA SA SD SL SN SO SR SY TD TG TJ TM TN TR UG UZ YE "
    "BA CY EH ER ET GH IN KE LK LR MK MM MW SG SS TH TZ XK".split()
)
MILLION = 1_000_000
# The city may be another part of the same built-up area.
SAME_CITY_KM = 25
# Towns whose count in the table is that of their district: Nabarangpur in Odisha, Gorakhpur in Haryana and Theni
# in Tamil Nadu have less than 100000 inhabitants.
OVERCOUNTED = {"Nowrangapur", "Gorakhpur", "Teni"}


@dataclass
class Location:
    name: str
    latitude: float
    longitude: float
    zone: float
    elevation: float


def distance_km(latitude_a, longitude_a, latitude_b, longitude_b):
    """Distance on a plane at the mean latitude, good for the short distances judged here."""
    east = (longitude_b - longitude_a + 180) % 360 - 180
    east *= math.cos(math.radians((latitude_a + latitude_b) / 2))
    return KM_PER_DEGREE * math.hypot(latitude_b - latitude_a, east)


def read_locations(path, fail):
    content = Path(path).read_bytes()
    if not content.endswith(b"\r\n") or content.count(b"\n") != content.count(b"\r\n"):
        fail("the file", "every line must end in CR LF")
    locations = []
    for fields in csv.reader(content.decode("ascii").splitlines()):
        if len(fields) != FIELDS:
            fail(fields[0], f"{len(fields)} fields in place of {FIELDS}")
            continue
        numbers = [float(field) for field in fields[1:]]
        for number, largest in zip(numbers, LARGEST):
            if number != int(number) or not 0 <= number <= largest:
                fail(fields[0], f"{number:g} is not a whole number from 0 to {largest}")
        if numbers[10:] != [0, 1010, 10]:
            fail(fields[0], "city offset, pressure and temperature must be 0, 1010 and 10")
        latitude = numbers[0] + numbers[1] / 60 + numbers[2] / 3600
        longitude = numbers[3] + numbers[4] / 60 + numbers[5] / 3600
        locations.append(
            Location(
                fields[0],
                latitude if numbers[6] else -latitude,
                longitude if numbers[7] else -longitude,
                numbers[8],
                numbers[9],
            )
        )
    return locations


def check_names(locations, fail):
    names = [location.name for location in locations]
    if len(names) < FEWEST_LOCATIONS:
        fail("the list", f"{len(names)} locations, fewer than {FEWEST_LOCATIONS}")
    for name in {name for name in names if names.count(name) > 1}:
        fail(name, "stands more than once")
    if names != sorted(names, key=lambda name: (name.casefold(), name)):
        fail("the list", "is not sorted by name")
    with open(HERE / "capitals.csv", encoding="utf-8", newline="") as table:
        for row in csv.DictReader(table):
            if row["capital"] not in names:
                fail(row["capital"], f"the capital of {row['state']} is missing")


def check_zones(locations, fail):
    for location in locations:
        off_the_sun = (location.zone - location.longitude / 15 + 12) % 24 - 12
        if abs(off_the_sun) > ZONE_TOLERANCE_HOURS and location.name not in KEEPS_ANOTHER_ZONE:
            fail(location.name, f"the zone {location.zone:g} is {off_the_sun:+.1f} hours off the longitude's")
        if location.zone * 4 != int(location.zone * 4) or not -12 <= location.zone <= 14:
            fail(location.name, f"{location.zone:g} is no zone")


def check_elevations(locations, fail):
    for location in locations:
        if not LOWEST_METRES <= location.elevation <= HIGHEST_METRES:
            fail(location.name, f"an elevation of {location.elevation:g} m")
        if location.elevation < 0 and location.name not in BELOW_SEA_LEVEL:
            fail(location.name, f"{location.elevation:g} m, below the sea")
    by_name = {location.name: location for location in locations}
    for name, metres in AERODROMES.items():
        if name not in by_name:
            fail(name, "has an aerodrome to compare with, but is not in the list")
        elif abs(by_name[name].elevation - metres) > AERODROME_TOLERANCE_METRES:
            fail(name, f"{by_name[name].elevation:g} m, its aerodrome {metres} m")


def read_rings(path):
    rings = {}
    with open(path, encoding="utf-8", newline="") as table:
        for row in csv.DictReader(table):
            _, points = rings.setdefault(row["ring"], (row["hole"] == "1", []))
            points.append((float(row["longitude"]), float(row["latitude"])))
    return list(rings.values())


def is_inside(ring, longitude, latitude):
    inside = False
    for (x1, y1), (x2, y2) in zip(ring, ring[1:]):
        if (y1 > latitude) != (y2 > latitude) and longitude < x1 + (latitude - y1) / (y2 - y1) * (x2 - x1):
            inside = not inside
    return inside


def distance_to_ring_km(ring, longitude, latitude):
    squeeze = math.cos(math.radians(latitude))
    nearest = math.inf
    for (x1, y1), (x2, y2) in zip(ring, ring[1:]):
        if min(abs(y1 - latitude), abs(y2 - latitude)) > 5:
            continue
        ax, ay = (x1 - longitude) * squeeze, y1 - latitude
        bx, by = (x2 - longitude) * squeeze, y2 - latitude
        length = (bx - ax) ** 2 + (by - ay) ** 2
        along = 0 if length == 0 else min(1, max(0, -(ax * (bx - ax) + ay * (by - ay)) / length))
        nearest = min(nearest, math.hypot(ax + along * (bx - ax), ay + along * (by - ay)))
    return nearest * KM_PER_DEGREE


def check_land(locations, path, fail):
    rings = read_rings(path)
    for location in locations:
        here = (location.longitude, location.latitude)
        land = any(is_inside(ring, *here) for hole, ring in rings if not hole)
        water = any(is_inside(ring, *here) for hole, ring in rings if hole)
        if land and not water:
            continue
        shore = min(distance_to_ring_km(ring, *here) for _, ring in rings)
        if shore > SHORE_TOLERANCE_KM and location.name not in NOT_ON_THE_MAP:
            fail(location.name, f"stands {shore:.0f} km from land")


def degrees_of(text, whole_digits):
    """Degrees of a signed text such as +DDMM, +DDMMSS, +DDDMM or +DDDMMSS."""
    digits = text[1:]
    angle = int(digits[:whole_digits]) + int(digits[whole_digits : whole_digits + 2]) / 60
    angle += int(digits[whole_digits + 2 :] or 0) / 3600
    return -angle if text[0] == "-" else angle


def check_against_zone_table(locations, folder, fail):
    zoneinfo.reset_tzpath([str(Path(folder).resolve())])
    by_name = {location.name: location for location in locations}
    compared = 0
    for line in Path(folder, "zone.tab").read_text(encoding="utf-8").splitlines():
        if line.startswith("#"):
            continue
        place, zone_name = line.split("\t")[1:3]
        location = by_name.get(zone_name.split("/")[-1].replace("_", " "))
        if location is None or zone_name == "America/Argentina/San_Juan":
            continue
        compared += 1
        latitude, longitude = re.fullmatch(r"([+-]\d+)([+-]\d+)", place).groups()
        off = distance_km(location.latitude, location.longitude, degrees_of(latitude, 2), degrees_of(longitude, 3))
        if off > REFERENCE_TOLERANCE_KM:
            fail(location.name, f"{off:.0f} km off its place in zone.tab")
        day = STANDARD_TIME_DAY.replace(tzinfo=zoneinfo.ZoneInfo(zone_name))
        zone = (day.utcoffset() - max(day.dst(), timedelta(0))) / timedelta(hours=1)
        if zone != location.zone:
            fail(location.name, f"zone {location.zone:g}, {zone_name} keeps {zone:g}")
    if compared < 150:
        fail("zone.tab", f"only {compared} places could be compared")


def check_million_cities(locations, folder, fail):
    with open(Path(folder, "cities1000.txt"), encoding="utf-8", newline="\n") as table:
        for line in table:
            fields = line.split("\t")
            name, latitude, longitude, kind, country = fields[2], float(fields[4]), float(fields[5]), *fields[7:9]
            if country not in MUSLIM_COUNTRIES or int(fields[14] or 0) < MILLION or name in OVERCOUNTED:
                continue
            nearest = min(distance_km(latitude, longitude, x.latitude, x.longitude) for x in locations)
            if nearest > SAME_CITY_KM:
                fail(name, f"a city of a million ({country}, {kind}) is missing; the nearest is {nearest:.0f} km off")


def main():
    parser = argparse.ArgumentParser(description="Checks a list of locations.")
    parser.add_argument("loc_file")
    parser.add_argument("--land")
    parser.add_argument("--zoneinfo")
    parser.add_argument("--geonames")
    arguments = parser.parse_args()
    failures = []

    def fail(where, what):
        failures.append(f"{where}: {what}")

    locations = read_locations(arguments.loc_file, fail)
    check_names(locations, fail)
    check_zones(locations, fail)
    check_elevations(locations, fail)
    if arguments.land:
        check_land(locations, arguments.land, fail)
    if arguments.zoneinfo:
        check_against_zone_table(locations, arguments.zoneinfo, fail)
    if arguments.geonames:
        check_million_cities(locations, arguments.geonames, fail)
    for failure in failures:
        print(failure, file=sys.stderr)
    print(f"{len(locations)} locations, {len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
