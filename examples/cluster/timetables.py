#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prayer timetables of many places and a year: a file for every fifty places, CSV or Parquet.

The places are made of a list with the columns name, latitude, longitude and zone. When more are wanted than it has, it is
repeated, each round moved from the places by another step of a spiral (0.02 degrees times the round).
"""

import csv
import io
import math
import pathlib
import sys

import numpy as np

import halvane
import parts

DATA = pathlib.Path(__file__).resolve().parents[2] / "data"
PER_PART = 50
COLUMNS = [halvane.TIMETABLE_COLUMNS.index(name) for name in (*halvane.PRAYERS, "imsak", "midnight")]
NAMES = [halvane.TIMETABLE_COLUMNS[column] for column in COLUMNS]
CLOCKS = np.array([f"{minute // 60:02}:{minute % 60:02}" for minute in range(1440)])
REASONS = np.array([str(reason) for reason in halvane.Missing])
GOLDEN_ANGLE = math.pi * (3 - math.sqrt(5))


def places_of(path, count):
    """Name, latitude, longitude [deg] and zone of each place."""
    with open(path, encoding="utf-8", newline="") as file:
        listed = list(csv.DictReader(file))
    try:
        rows = [(row["name"], float(row["latitude"]), float(row["longitude"]), row["zone"]) for row in listed]
    except (KeyError, TypeError, ValueError) as wrong:
        sys.exit(f"{path} is no list of places with name, latitude, longitude and zone: {wrong}")
    if not rows:
        sys.exit(f"{path} has no places.")
    places = []
    for number in range(count):
        turn, place = divmod(number, len(rows))
        name, latitude, longitude, zone = rows[place]
        step = 0.02 * turn
        latitude = round(latitude + step * math.cos(turn * GOLDEN_ANGLE), 4)
        longitude = round((longitude + step * math.sin(turn * GOLDEN_ANGLE) + 180) % 360 - 180, 4)
        places.append((f"{name} {turn}" if turn else name, latitude, longitude, zone))
    return places


def clocks_of(tables, place):
    """The clocks of a place as texts, rows of days: hours and minutes, +1 past midnight, or the word for a lack."""
    seconds, day, missing = (of[place][:, COLUMNS] for of in (tables.seconds, tables.day, tables.missing))
    texts = np.char.add(CLOCKS[seconds // 60], np.array(["", "+1", "-1"])[day])
    return np.where(missing == 0, texts, REASONS[missing]).tolist()


def csv_of(places, tables):
    dates = [f"{year:04}-{month:02}-{day:02}" for year, month, day in tables.date.tolist()]
    text = io.StringIO()
    rows = csv.writer(text, lineterminator="\n")
    rows.writerow(["place", "latitude", "longitude", "zone", "date", *NAMES])
    for number, place in enumerate(places):
        rows.writerows([*place, date, *clocks] for date, clocks in zip(dates, clocks_of(tables, number)))
    return text.getvalue().encode()


def parquet_of(places, tables):
    """The moments as seconds since 1970 January 1, 0 h Universal Time; nothing where there is none."""
    import pyarrow
    import pyarrow.parquet

    days = len(tables.date)
    dates = [f"{year:04}-{month:02}-{day:02}" for year, month, day in tables.date.tolist()]
    table = {
        name: [value for value in column for _ in range(days)]
        for name, column in zip(("place", "latitude", "longitude", "zone"), zip(*places))
    }
    table["date"] = dates * len(places)
    for name, column in zip(NAMES, COLUMNS):
        moments, missing = (of[:, :, column].ravel() for of in (tables.unix_seconds, tables.missing))
        table[name] = pyarrow.array(moments, mask=missing != 0)
    sink = pyarrow.BufferOutputStream()
    pyarrow.parquet.write_table(pyarrow.table(table), sink)
    return sink.getvalue().to_pybytes()


def make(places, first, last, authority, form):
    """The bytes of a part."""
    pairs = [((latitude, longitude), zone) for _, latitude, longitude, zone in places]
    tables = halvane.timetables(first, last, pairs, halvane.rules_of_authority(authority))
    return (csv_of if form == "csv" else parquet_of)(places, tables)


def main():
    parser = parts.options(__doc__.splitlines()[0], "timetables")
    parser.add_argument("--year", type=int, default=2026)
    parser.add_argument("--months", type=int, default=12, help="from January on (%(default)s)")
    parser.add_argument("--places", type=int, default=10_000, help="how many (%(default)s)")
    parser.add_argument("--list", type=pathlib.Path, default=DATA / "zones.csv", help="of places (%(default)s)")
    parser.add_argument("--authority", default="mwl", help="key of its rules (%(default)s)")
    parser.add_argument("--format", choices=("csv", "parquet"), default="csv", help="Parquet needs pyarrow")
    chosen = parser.parse_args()
    if chosen.places < 1 or not 1 <= chosen.months <= 12:
        parser.error("a work has one place at least, and 1 to 12 months")
    if chosen.format == "parquet":
        try:
            import pyarrow  # noqa: F401
        except ImportError:
            parser.error("Parquet needs pyarrow, which is not installed: take --format csv")
    halvane.rules_of_authority(chosen.authority)
    first = (chosen.year, 1, 1)
    after = (chosen.year + chosen.months // 12, chosen.months % 12 + 1, 1)
    last = tuple(halvane.civil_date(halvane.julian_day(after) - 1))
    places = places_of(chosen.list, chosen.places)
    settings = {"first": first, "last": last, "places": len(places), "authority": chosen.authority}
    work = {
        f"timetables-{number // PER_PART:05}.{chosen.format}": (
            places[number : number + PER_PART],
            first,
            last,
            chosen.authority,
            chosen.format,
        )
        for number in range(0, len(places), PER_PART)
    }
    parts.run(chosen, settings, make, work)


if __name__ == "__main__":
    try:
        parts.end_quietly(main)
    except (halvane.Error, OSError) as error:
        sys.exit(str(error))
