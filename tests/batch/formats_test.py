#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""formats_test.py SOURCE HALVANE_REPORT: the CSV and the JSON of every task, read by Python's own readers.

Over golden folders of several places, each value of the rows must equal the text of the fixed report when it is rounded
as the report rounds, and nothing of the report may be missing from the rows.
"""

import csv
import io
import json
import math
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

PLACES = 3  # of each task, at least
OF_NO_PLACE = {"criteria"}
US_PER_SECOND = 1_000_000
US_PER_MINUTE = 60 * US_PER_SECOND
NOW = "2026-05-01T12:00"
TELESCOPE = "2024,3,12,18,30,#FALSE#,#TRUE#,#TRUE#,#FALSE#,0,0\r\n"  # the Moon is two days old
WORDS = {"up": "Up", "down": "Down", "bright": "Bright", "dark": "Dark", "": "----"}


class Difference(Exception):
    pass


def expect(found, wanted, what):
    if found != wanted:
        raise Difference(f"{what}: the rows give {found!r}, the report has {wanted!r}")


# --- What the report prints of a value --------------------------------------------------------------------------------


def half_even(count, unit):
    whole, rest = divmod(count, unit)
    return whole + (1 if 2 * rest > unit or (2 * rest == unit and whole % 2) else 0)


def microseconds(clock):
    match = re.fullmatch(r"(\d\d):(\d\d):(\d\d)\.(\d{6})", clock)
    if not match:
        raise Difference(f"no clock: {clock!r}")
    hours, minutes, seconds, us = map(int, match.groups())
    return ((hours * 60 + minutes) * 60 + seconds) * US_PER_SECOND + us


def shown_clock(clock, like):
    """A clock as a report with such texts shows it: to the minute or the second."""
    if clock in WORDS:
        return WORDS[clock]
    if len(like) == len("hh:mm:ss"):
        count = half_even(microseconds(clock), US_PER_SECOND)
        return f"{count // 3600:02}:{count // 60 % 60:02}:{count % 60:02}"
    count = half_even(microseconds(clock), US_PER_MINUTE)
    return f"{count // 60:02}:{count % 60:02}"


def shown_date(date):
    year, month, day = re.fullmatch(r"(-?\d{4,})-(\d\d)-(\d\d)", date).groups()
    return f"{day}/{month}/{int(year)}"


def sexagesimal(value, to_minute=False):
    size = abs(value)
    whole = math.floor(size)
    x = (size - whole) * 60
    if to_minute:
        minutes = round(x)
        return (whole + 1, 0, 0) if minutes == 60 else (whole, minutes, 0)
    minutes = math.floor(x)
    seconds = round((x - minutes) * 60)
    if seconds == 60:
        minutes, seconds = minutes + 1, 0
    if minutes == 60:
        whole, minutes = whole + 1, 0
    return whole, minutes, seconds


def sign_of(value):
    return "-" if value < 0 else "+"


def marked(value):
    """+05°:30':29\""""
    whole, minutes, seconds = sexagesimal(value)
    return f"{sign_of(value)}{whole:02}°:{minutes:02}':{seconds:02}\""


def signed(value):
    """+05:30:29"""
    return sign_of(value) + unsigned(value)


def unsigned(value):
    return "{:02}:{:02}:{:02}".format(*sexagesimal(value))


def hours_text(value, to_minute=False):
    whole, minutes, seconds = sexagesimal(value, to_minute)
    return f"{whole:02}H {minutes:02}M" + ("" if to_minute else f" {seconds:02}S")


def moment_texts(moment, like):
    """Date and clock of a moment; a clock that rounds up to the end of its day may stand for the next day's start."""
    date, clock = moment.split("T")
    return shown_date(date), shown_clock(clock, like)


# --- The reports, line by line ----------------------------------------------------------------------------------------


def between_rules(text, rule):
    """The lines between the first and the last line of `rule` equals signs."""
    return text.split("=" * rule)[1:-1]


def dated_lines(text):
    return [line for line in text.splitlines() if re.match(r"\*?\d\d/\d\d/-?\d+ ", line)]


def compare_day(row, line):
    """The date of a day's row; returns the rest of its line."""
    star, date, rest = re.match(r"(\*?)(\S+)\s+(.*)", line).groups()
    expect(shown_date(row["date"]), re.sub(r"/0*(\d+)$", r"/\1", date), "date")
    expect(row["summer_time"], "true" if star else "false", f"summer time of {date}")
    return rest


def compare_prayer(rows, text):
    lines = dated_lines(text)
    expect(len(rows), len(lines), "number of days")
    for row, line in zip(rows, lines):
        tokens = compare_day(row, line).split()
        for key, token in zip(("fajer", "shuroq", "dhohur", "aser", "maghreb", "isha"), tokens, strict=True):
            clock, mark = re.fullmatch(r"([^#]*)(#.*)?", token).groups()
            expect(shown_clock(row[key], clock), clock, f"{key} of {row['date']}")
            if key in ("fajer", "isha"):
                expect(row[key + "_mark"], mark or "", f"mark of {key} of {row['date']}")


def compare_moon(rows, text):
    lines = dated_lines(text)
    expect(len(rows), len(lines), "number of days")
    for row, line in zip(rows, lines):
        tokens = compare_day(row, line).split()
        for key, token in zip(("moonrise", "transit", "moonset"), tokens, strict=True):
            expect(shown_clock(row[key], token), token, f"{key} of {row['date']}")


def compare_qibla(rows, text):
    lines = dated_lines(text)
    expect(len(rows), len(lines), "number of days")
    for row, line in zip(rows, lines):
        rest = compare_day(row, line)
        times = re.fullmatch(r"(\S+)( +Below Horizon)? +(\S+)( +Below Horizon)? *", rest).groups()
        for name, time, note in (("first", *times[:2]), ("second", *times[2:])):
            expect(shown_clock(row[name + "_time"], time), time, f"{name} time of {row['date']}")
            below = "" if time == "----" else "true" if note else "false"
            expect(row[name + "_below_horizon"], below, f"{name} note of {row['date']}")


def compare_phases(rows, text):
    table = "".join(between_rules(text, 103))
    cells = re.findall(r"(\*?)(\d\d/\d\d/-?\d{4,})  (\d\d:\d\d(?::\d\d)?)", table)
    expect(len(rows), len(cells), "number of phases")
    for row, (star, date, clock) in zip(rows, cells):
        found_date, found_clock = moment_texts(row["time"], clock)
        day, month, year = date.split("/")
        date = f"{day}/{month}/{int(year)}"
        if not clock.startswith("24:"):
            expect((found_date, found_clock), (date, clock), row["phase"])
        elif (found_date, found_clock) != (date, clock):
            expect(found_clock, "00:00" + ":00" * (len(clock) == 8), row["phase"])
        expect(row["summer_time"], "true" if star else "false", f"summer time of {date}")
    new_moons = [row for row in rows if row["phase"] == "new_moon"]
    expect(len(new_moons) in (12, 13), True, "number of New Moons of a year")


LINE = re.compile(
    r"(?P<clock>\d\d:\d\d:\d\d) (?P<date>\d\d/\d\d/-?\d{4}) +(?P<right_ascension>\d+H \d+M \d+S) +"
    r"(?P<declination>\S+) +(?P<altitude>\S+) +(?P<azimuth>\S+) +(?P<latitude>\S+) +(?P<longitude>\S+) +"
    r"(?P<distance>\S+) +(?P<semidiameter>\S+) +(?P<parallax>\S+) +(?P<delta_t>\S+)(?: +(?P<moon_house>\S.*))?"
)


def compare_ephemeris(rows, text):
    lines = [match for match in map(LINE.fullmatch, text.splitlines()) if match]
    expect(len(rows), len(lines), "number of rows")
    for row, line in zip(rows, lines):
        date, clock = moment_texts(row["time"], line["clock"])
        if line["clock"] != "24:00:00":
            day, month, year = line["date"].split("/")
            expect((date, clock), (f"{day}/{month}/{int(year)}", line["clock"]), "time")
        number = {key: float(row[key]) for key in line.groupdict() if key in row and key != "moon_house"}
        expect(hours_text(number["right_ascension"] / 15), line["right_ascension"], "right ascension")
        for key in ("declination", "altitude", "latitude"):
            expect(signed(number[key]), line[key], key)
        for key in ("azimuth", "longitude", "semidiameter", "parallax"):
            expect(unsigned(number[key]), line[key], key)
        expect(f"{number['distance']:.1f}", line["distance"], "distance")
        expect(f"{number['delta_t']:04.1f}", line["delta_t"], "delta_t")
        expect(row.get("moon_house"), line["moon_house"], "house of the Moon")


ANGLES = {
    "Moon Declination": "moon_declination",
    "Sun Declination": "sun_declination",
    "Moon Longitude": "moon_longitude",
    "Moon Latitude": "moon_latitude",
    "Sun Longitude": "sun_longitude",
    "Sun Latitude": "sun_latitude",
    "Moon Altitude": "moon_altitude",
    "Moon Azimuth": "moon_azimuth",
    "Sun Altitude": "sun_altitude",
    "Sun Azimuth": "sun_azimuth",
    "[GT]\\. Relative Altitude": "relative_altitude",
    "Relative Azimuth": "relative_azimuth",
    "Elongation": "elongation",
    "Phase Angle": "phase_angle",
    "T\\. Crescent Width|G\\. Crescent Width": "width",
    "Moon Semi-Diameter": "semidiameter",
    "Horizontal Parallax": "parallax",
}


def after(text, label):
    match = re.search(rf"(?:{label}):? *= *(.*?)(?:  |\r|$)|(?:{label}): +(.*?)(?:   |\r|$)", text, re.M)
    if not match:
        raise Difference(f"the report has no {label!r}")
    return (match[1] or match[2]).strip()


def compare_crescent(rows, text):
    if "technique, because there is no Sunset/Sunrise" in text:
        expect(rows, [], "rows of the short report")
        return
    (row,) = rows
    number = {key: float(value) for key, value in row.items() if re.fullmatch(r"-?\d+(\.\d+)?(e-?\d+)?", value)}
    for label, key in ANGLES.items():
        expect(marked(number[key]), after(text, label).split(" ")[0], label)
    for body in ("Moon", "Sun"):
        value = number[f"{body.lower()}_right_ascension"] / 15
        expect(sign_of(value) + hours_text(value), after(text, f"{body} Right Ascension"), f"{body} R.A.")
    is_new = row["new_crescent"] == "true"
    expect("Waxing Crescent" in text, is_new, "kind of crescent")
    for label, key in (("Sunset" if is_new else "Sunrise", "sun_event"), ("Moonset" if is_new else "Moorise", "moon_event")):
        clock = after(text, f"^- {label}").split(" ")[0]
        expect(shown_clock(row[key], clock), clock, label)
    for label, key in (("Moon Age", "moon_age"), ("Moon Lag Time", "lag")):
        found = re.search(rf"{label}: +([-+]\d+H \d+M(?: \d+S)?)", text)[1]
        expect(sign_of(number[key]) + hours_text(number[key], "S" not in found), found, label)
    date, clock = re.search(r"Conjunction Time: +(\S+) CE, (\S+) LT", text).groups()
    expect(moment_texts(row["conjunction"], clock), (re.sub(r"/0*(\d+)$", r"/\1", date), clock), "conjunction")
    clock = re.search(r"Calculations are Done at .*?: +(\S+) LT", text)[1]
    expect(shown_clock(row["calculation"].split("T")[1], clock), clock, "time of calculation")
    expect(shown_date(row["date"]), re.search(r"Crescent Visibility on: \S+ +(\S+) CE", text)[1], "date")
    expect("Calculations are Geocentric." in text, row["geocentric"] == "true", "geocentric")
    expect("Summer time is: On" in text, row["summer_time"] == "true", "summer time")
    expect(f"{number['julian_date']:.5f}", after(text, "Julian Date at Time of Calculations"), "Julian Date")
    expect(f"{number['delta_t']:05.2f} Second(s)", after(text, "Delta T"), "Delta T")
    expect(f"{number['illumination']:05.2f} %", after(text, "Illumination"), "illumination")
    expect(f"{number['distance']:05.2f} Km", after(text, "G\\. Distance"), "distance")
    magnitude = number["magnitude"]
    expect(("-" if magnitude < 0 else "") + f"{abs(magnitude):05.2f}", after(text, "Magnitude"), "magnitude")
    expect(marked(number["best_relative_altitude"]), re.search(r"Topocentric Relative Altitude = *(\S+) \(", text)[1], "ARCV")
    expect(marked(number["best_width"] / 60), re.search(r"Topocentric Crescent width = *(\S+) \(", text)[1], "W")
    expect(f"{number['best_width']:.2f}", re.search(r"Crescent width = .*\((\S+)'\)", text)[1], "W")
    expect(f"{number['q']:.2f}", after(text, "\\* q"), "q")
    expect(row["visibility"], re.search(r"The Crescent Visibility is: *(.*?)\r?$", text, re.M)[1], "visibility")


def compare_telescope(rows, text):
    values = [line.split(": ", 1)[1].rstrip() for line in text.splitlines()]
    expect([row["body"] for row in rows], ["sun", "moon", "crescent"], "bodies")
    for i, row in enumerate(rows):
        found = [
            hours_text(float(row["right_ascension"]) / 15),
            marked(float(row["declination"])),
            marked(float(row["altitude"])),
            unsigned(float(row["azimuth"])),
        ]
        expect(found, values[4 * i : 4 * i + 4], row["body"])
    picture = values[12]
    nearest = math.floor(float(rows[2]["zenith_angle"]) / 10 + 0.5) * 10 % 360
    expect(f"{nearest:02}", re.match(r"\d+", picture)[0], "picture")


def compare_today(rows, text):
    (row,) = rows
    expect(row["date"], NOW.split("T")[0], "date")
    for line in text.splitlines():
        name, clock = line.split()
        expect(shown_clock(row[name.lower()], clock), clock, name)


def compare_map(rows, text):
    points = [line for line in text.splitlines() if not line.startswith("#")]
    keys = points[0].split(",")
    expect([",".join(row[key] for key in keys) for row in rows], points[1:], "points")
    expect({row["evaluated"] for row in rows} <= {"true", "false"}, True, "evaluated")


def compare_criteria(rows, text):
    """Each class is a line of its criterion's block."""
    lines = text.splitlines()
    expect([row["meaning"] for row in rows], [line[21:] for line in lines if line.startswith("    ")], "classes")
    heads = [line.split(": ", 1) for line in lines if not line.startswith(" ")]
    expect(list(dict.fromkeys((row["criterion"], row["name"]) for row in rows)), [tuple(head) for head in heads], "heads")


# Task, room of its golden folders, start of their names, report (none: standard output), comparison.
TASKS = [
    ("prayer", "prayer", "", "results.out", compare_prayer),
    ("moon", "moon", "", "mresults.out", compare_moon),
    ("phases", "phases", "", "results.out", compare_phases),
    ("crescent", "crescent", "", "visib.out", compare_crescent),
    ("qibla-sun", "qibla", "sun-", "results.out", compare_qibla),
    ("qibla-shadow", "qibla", "shadow-", "results.out", compare_qibla),
    ("ephemeris", "tables", "", "ephemeris.out", compare_ephemeris),
    ("telescope", "crescent", "", None, compare_telescope),
    ("today", "prayer", "", None, compare_today),
    ("map", "crescent", "new-", None, compare_map),
    ("criteria", "crescent", "", None, compare_criteria),
]


# --- The readers ------------------------------------------------------------------------------------------------------


def rows_of_csv(data):
    """The rows of a table by RFC 4180."""
    text = data.decode("utf-8")
    expect(text.endswith("\r\n") and "\n" not in text.replace("\r\n", ""), True, "every line ends with CR LF")
    table = list(csv.reader(io.StringIO(text, newline=""), strict=True))
    expect({len(row) for row in table}, {len(table[0])}, "fields of the rows")
    return table[0], [dict(zip(table[0], row)) for row in table[1:]]


def no_number(name):
    raise Difference(f"the JSON holds {name}")


def csv_text(value):
    if value is None:
        return ""
    if isinstance(value, bool):
        return "true" if value else "false"
    return value if isinstance(value, str) else float(value)


def compare_json(data, keys, rows):
    """The object says what the rows of the CSV say."""
    told = json.loads(data.decode("utf-8"), parse_constant=no_number)
    expect(told["program"], "Halvane", "program")
    expect([column["key"] for column in told["columns"]], keys, "columns")
    for column in told["columns"]:
        expect(bool(column["heading"]["en"] and column["heading"]["ar"]), True, f"headings of {column['key']}")
    expect(len(told["rows"]), len(rows), "number of rows")
    for found, row in zip(told["rows"], rows):
        expect(list(found), keys, "keys of a row")
        for key, value in found.items():
            wanted = row[key]
            number = isinstance(value, (int, float)) and not isinstance(value, bool)
            expect(csv_text(value), float(wanted) if number else wanted, f"{key} of a row")
    return told


def documented_columns(source, task):
    """Name, unit, type and heading of a task's columns by docs/data.md."""
    text = (pathlib.Path(source) / "docs/data.md").read_text()
    section = re.search(rf"^### Rows of [^\n]*`{task}`[^\n]*\n(.*?)^#", text, re.M | re.S)
    if not section:
        raise Difference(f"docs/data.md has no rows of {task}")
    return re.findall(r"^\| `(\w+)` \| (.*?) \| (\w+) \| (.*?) \|$", section[1], re.M)


def compare_documents(source, task, told):
    found = [(c["key"], c["unit"], c["type"], c["heading"]["en"]) for c in told["columns"]]
    wanted = documented_columns(source, task)
    # The house is the Moon's only.
    expect(found, wanted[: len(found)] if task == "ephemeris" else wanted, "columns of docs/data.md")


def run(words, folder):
    ended = subprocess.run([*words, "--folder", str(folder)], capture_output=True, timeout=300)
    return ended.returncode, ended.stdout, ended.stderr


def compare_folder(source, program, task, report, compare, stored):
    """One task in a folder of these stored files, in its three formats: the place of its rows, or none when the task is
    refused."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for path in stored.glob("*.vsk"):
            shutil.copy(path, folder)
        (folder / "tele.vsk").write_text(TELESCOPE, newline="")
        words = [program, "--now", NOW, task]
        text_words = [*words, "--csv", "-"] if task == "map" else words
        status, printed, _ = run(text_words, folder)
        if status != 0:
            return None
        text = ((folder / report).read_bytes() if report else printed).decode("utf-8")
        status, table, error = run([*words, "--format", "csv", "--output", "-"], folder)
        expect((status, error), (0, b""), "status of the CSV")
        keys, rows = rows_of_csv(table)
        status, printed, error = run([*words, "--format", "json", "--output", str(folder / "own.json")], folder)
        expect((status, error), (0, b""), "status of the JSON")
        expect(printed.decode().strip(), str(folder / "own.json"), "name of the file")
        told = compare_json((folder / "own.json").read_bytes(), keys, rows)
        expect(told["task"], task, "task")
        compare_documents(source, task, told)
        if "place" in told["facts"] and report and rows:
            expect(f"- {told['facts']['place']}, Long:" in text, True, f"place {told['facts']['place']!r} in the head")
        compare(rows, text)
        # A map is of the world: its conjunction stands for the place.
        return tuple(told["facts"].get(key) for key in ("longitude", "latitude", "conjunction"))


def main(source, program):
    golden = pathlib.Path(source) / "tests/golden"
    failures = []
    for task, room, start, report, compare in TASKS:
        compared = []
        folders = sorted(path for path in (golden / room).glob(start + "*") if path.is_dir())
        for stored in [path for path in folders if not path.name.endswith("-cancelled")]:
            try:
                place = compare_folder(source, program, task, report, compare, stored)
                compared += [place] if place else []
            except Difference as difference:
                failures.append(f"{task}, {stored.relative_to(golden)}: {difference}")
        print(f"{task}: {len(compared)} folders of {len(set(compared))} places compared")
        if len(set(compared)) < (1 if task in OF_NO_PLACE else PLACES):
            failures.append(f"{task}: only {len(set(compared))} places could be compared")
    print("\n".join(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
