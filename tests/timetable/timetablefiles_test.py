#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""timetablefiles_test.py SOURCE HALVANE_REPORT: the files of a timetable, read by Python's own readers.

Over a year of places from the whole list, the clocks of CSV are the instants of the calendar file, of JSON and of HTML
by Python's own time zones; the calendar file is sound to a second reader, and a minute added to Isha moves the events of
Isha alone; JSON is of its schema; the elements of HTML are closed in their order.
"""

import csv
import datetime
import html.parser
import io
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import zoneinfo

import icalendar
import jsonschema

PLACES = 20
YEAR = "2026"
PRAYERS = ["fajer", "dhohur", "aser", "maghreb", "isha"]
TIMES = ["fajer", "shuroq", "dhohur", "aser", "maghreb", "isha"]
RULES = "[rules]\nfajer_angle = 18\nisha_angle = 17\nhigh_latitude = seventh\n"
PROFILES = {"base": RULES, "later": RULES + "[added]\nisha = 1\n"}
DISPLAY = {
    "d_date": "date",
    "fajr_begins": "fajer",
    "sunrise": "shuroq",
    "zuhr_begins": "dhohur",
    "asr_mithl_1": "aser_standard",
    "asr_mithl_2": "aser_hanafi",
    "maghrib_begins": "maghreb",
    "isha_begins": "isha",
    "hijri_date": "hijri",
}
OPEN_ELEMENTS = {"meta"}  # those without an end


class Difference(Exception):
    pass


def expect(found, wanted, what):
    if found != wanted:
        raise Difference(f"{what}: found {found!r}, wanted {wanted!r}")


class Report:
    """The program on a folder of its own."""

    def __init__(self, program, folder):
        self.words = [program, "--folder", str(folder), "timetable", "--year", YEAR]

    def text(self, place, profile, *more):
        words = [*self.words, "--place", place, "--profile", profile, *more, "--output", "-"]
        ended = subprocess.run(words, capture_output=True, timeout=120)
        if ended.returncode != 0:
            raise Difference(f"{' '.join(words)}: {ended.stderr.decode()}")
        return ended.stdout.decode("utf-8")


def rows_of(text):
    return list(csv.DictReader(io.StringIO(text, newline="")))


# --- The calendar file ------------------------------------------------------------------------------------------------


def events_of(text):
    """The events by UID."""
    calendar = icalendar.Calendar.from_ical(text)
    expect(calendar.errors, [], "errors of the calendar")
    events = {}
    for event in calendar.walk("VEVENT"):
        expect(event.errors, [], "errors of an event")
        uid = str(event["UID"])
        if uid in events:
            raise Difference(f"{uid} stands twice")
        events[uid] = event
    return events


def start_of(event):
    return event["DTSTART"].dt


def without_stamps(text):
    return [line for line in text.split("\r\n") if not line.startswith("DTSTAMP")]


def other_lines(event):
    """An event's text without its start and the moment of the export."""
    return [line for line in event.to_ical().splitlines() if not line.startswith((b"DTSTART", b"DTSTAMP"))]


def compare_calendars(report, place):
    first = report.text(place, "base", "--format", "ics")
    for line in first.split("\r\n"):
        if len(line.encode()) > 75:
            raise Difference(f"a line of more than 75 octets: {line}")
    events = events_of(first)
    again = report.text(place, "base", "--format", "ics")
    expect(without_stamps(again), without_stamps(first), "a second export")
    later = events_of(report.text(place, "later", "--format", "ics"))
    expect(later.keys(), events.keys(), "events with a minute added to Isha")
    minute = datetime.timedelta(minutes=1)
    for uid, event in later.items():
        moved = minute if "-isha-" in uid else datetime.timedelta()
        expect(start_of(event), start_of(events[uid]) + moved, uid)
        expect(other_lines(event), other_lines(events[uid]), uid)
    return events


# --- The same instants in every format --------------------------------------------------------------------------------


def instants_near(date, clock, zone):
    """The instants at which the clock of a zone shows `clock` in the days about a date."""
    hours, minutes = map(int, clock.split(":"))
    found = set()
    for days in (-1, 0, 1):
        for fold in (0, 1):
            local = datetime.datetime.combine(date + datetime.timedelta(days), datetime.time(hours, minutes), zone)
            found.add(local.replace(fold=fold).astimezone(datetime.timezone.utc))
    return found


def compare_instants(rows, events, told):
    zone = zoneinfo.ZoneInfo(told["settings"]["zone"]["name"])
    starts = {tuple(uid.split("-")[:2]): start_of(event) for uid, event in events.items()}
    months = [start_of(event) for uid, event in events.items() if "-hijri-month-" in uid]
    expect(len(told["rows"]), len(rows), "rows of JSON")
    timed = 0
    for row, told_row in zip(rows, told["rows"]):
        date = datetime.date.fromisoformat(row["date"])
        day = date.strftime("%Y%m%d")
        expect(date in months, row["hijri"].endswith("-01"), f"{date}: the first of a Hijri month")
        for key in TIMES:
            value = told_row[key]
            expect(value["clock"] or "", row[key], f"{date} {key} of JSON")
            if not row[key]:
                expect((day, key) in starts, False, f"{date} {key} of the calendar file")
                continue
            instant = datetime.datetime.fromisoformat(value["instant"]).astimezone(datetime.timezone.utc)
            if instant not in instants_near(date, row[key], zone):
                raise Difference(f"{date} {key}: {row[key]} in {zone} is not {instant}")
            if key in PRAYERS:
                expect(starts[(day, key)], instant, f"{date} {key} of the calendar file")
                timed += 1
    expect(len(events), timed + len(months), "events of the calendar file")


# --- HTML -------------------------------------------------------------------------------------------------------------


class Elements(html.parser.HTMLParser):
    """Whether the elements end in their order, and the `time` elements."""

    def __init__(self):
        super().__init__()
        self.open = []
        self.names = set()
        self.rows = 0
        self.times = []

    def handle_starttag(self, tag, attributes):
        told = dict(attributes)
        if "id" in told:
            expect(told["id"] in self.names, False, "an id twice")
            self.names.add(told["id"])
        if tag == "tr":
            self.rows += 1
        if tag == "time":
            self.times.append([told["datetime"], ""])
        if tag not in OPEN_ELEMENTS:
            self.open.append(tag)

    def handle_endtag(self, tag):
        expect(self.open.pop() if self.open else None, tag, "the end of an element")

    def handle_data(self, data):
        if self.open and self.open[-1] == "time":
            self.times[-1][1] += data


def compare_page(text, rows, told):
    elements = Elements()
    elements.feed(text)
    elements.close()
    expect(elements.open, [], "elements without an end")
    expect(elements.rows, len(rows) + 12, "rows, with one of headings in each month")
    wanted = []
    for row, told_row in zip(rows, told["rows"]):
        wanted.append([row["date"], str(int(row["date"][-2:]))])
        wanted += [[told_row[key]["instant"], row[key]] for key in TIMES if row[key]]
    expect(elements.times, wanted, "times of the page")


# --- Screens ----------------------------------------------------------------------------------------------------------


def compare_display(text, rows):
    shown = rows_of(text)
    expect(len(shown), len(rows), "rows of screens")
    for told, row in zip(shown, rows):
        for theirs, ours in DISPLAY.items():
            expect(told[theirs], row[ours], f"{row['date']} {theirs}")
        expect(told["is_ramadan"], "1" if row["hijri"].split("-")[1] == "09" else "0", f"{row['date']} is_ramadan")


def compare_place(report, place, schema):
    columns = ["date", "hijri", *TIMES]
    choice = ["--columns", ",".join(columns)]
    rows = rows_of(report.text(place, "base", "--columns", ",".join([*columns, "aser_standard", "aser_hanafi"])))
    told = json.loads(report.text(place, "base", *choice, "--format", "json"))
    schema.validate(told)
    compare_instants(rows, compare_calendars(report, place), told)
    compare_page(report.text(place, "base", *choice, "--format", "html"), rows, told)
    compare_display(report.text(place, "base", "--layout", "display"), rows)


def main():
    source = pathlib.Path(sys.argv[1])
    schema_text = json.loads((source / "docs/timetable.schema.json").read_text(encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema_text)
    schema = jsonschema.Draft202012Validator(schema_text)
    with (source / "data/zones.csv").open(encoding="utf-8", newline="") as file:
        names = [row[0] for row in csv.reader(file)][1:]
    places = names[:: len(names) // PLACES][:PLACES]
    expect(len(places), PLACES, "places")
    with tempfile.TemporaryDirectory(prefix="halvane-files-") as folder:
        for path in (source / "data").iterdir():
            if path.suffix in (".vsk", ".txt", ".csv"):
                shutil.copy(path, folder)
        for name, text in PROFILES.items():
            (pathlib.Path(folder) / f"profile-{name}.ini").write_text(text, encoding="utf-8")
        report = Report(sys.argv[2], folder)
        failed = 0
        for place in places:
            try:
                compare_place(report, place, schema)
            except (Difference, jsonschema.ValidationError) as difference:
                print(f"{place}: {difference}")
                failed += 1
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
