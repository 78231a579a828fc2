#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""hijrifiles_test.py SOURCE HALVANE_REPORT: the files of Hijri years and months, read by other readers.

The CSV by Python's own module is the published calendar of Umm al-Qura, month by month without a gap; JSON, the calendar
file and the differences of two rules say the same; a date converts there and back; each day stands on the printed page;
what cannot be made is told in words, and nothing is written.
"""

import csv
import datetime
import io
import json
import os
import pathlib
import re
import shutil
import sys
import tempfile

import icalendar

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from taskfiles import SKIPPED, Difference, Task, check_fonts, check_margins, expect, told, words_of  # noqa: E402

HEAD = "year,month,name,first_day,days,margin,note"
YEARS = (1440, 1447)
QURA = ["--rule", "umm-al-qura"]
SPAN = ["--from-year", str(YEARS[0]), "--to-year", str(YEARS[1])]
RAMADAN = ["--year", "1447", "--month", "9", *QURA, "--place", "Amman"]
LIST_HEAD = "year,month,first_day,announced_by\n"
DAY = datetime.timedelta(days=1)
# Month, day, days of the events of the calendar file that are no first days.
FEASTS = {
    "new_year": (1, 1, 1), "tasua": (1, 9, 1), "ashura": (1, 10, 1), "mawlid": (3, 12, 1), "isra_miraj": (7, 27, 1),
    "mid_shaban": (8, 15, 1), "ramadan": (9, 1, 1), "odd_night_21": (9, 21, 1), "odd_night_23": (9, 23, 1),
    "odd_night_25": (9, 25, 1), "laylat_al_qadr": (9, 27, 1), "odd_night_29": (9, 29, 1), "eid_al_fitr": (10, 1, 3),
    "tarwiyah": (12, 8, 1), "arafah": (12, 9, 1), "eid_al_adha": (12, 10, 1), "tashriq": (12, 11, 3),
}

YEAR = ["--year", "1447"]
REFUSALS = [
    (["--year", "0"], "from the year 1 to 9600"),
    (["--year", "9601"], "from the year 1 to 9600"),
    (["--year", "soon"], "soon"),
    ([*YEAR, "--to-year", "1448"], "--from-year"),
    (["--from-year", "1448", "--to-year", "1447"], "--to-year is before --from-year"),
    (["--from-year", "1447"], "--to-year"),
    ([*YEAR, "--convert", "2026-02-18"], "at most 1"),
    ([*YEAR, "--month", "13"], "13"),
    ([*SPAN, "--month", "9"], "--month belongs to --year"),
    ([*YEAR, "--month", "9", "--compare", "tabular"], "not of --month"),
    ([*YEAR, "--rule", "lunar"], "lunar"),
    ([*YEAR, "--compare", "tabular,lunar"], "lunar"),
    ([*YEAR, "--format", "doc"], "doc"),
    ([*YEAR, "--format", "pdf", "--compare", "tabular"], "--compare has no page"),
    ([*YEAR, "--language", "both"], "of pdf"),
    ([*YEAR, "--paper", "A4"], "of pdf"),
    ([*YEAR, "--digits", "arabic"], "of pdf"),
    ([*YEAR, "--rule", "seen-at"], "needs --place"),
    ([*YEAR, "--rule", "seen-here", "--place", "Osl"], 'the nearest is "Oslo"'),
    ([*YEAR, "--rule", "seen-here", "--latitude", "50"], "belong together"),
    ([*YEAR, "--rule", "tabular", "--criterion", "yallop"], "ask for a criterion"),
    ([*YEAR, "--rule", "tabular", "--region", "1,2,3,4"], "part of the world"),
    ([*YEAR, "--rule", "seen-here", "--criterion", "eye"], "eye"),
    ([*YEAR, "--rule", "seen-here", "--criterion", "danjon", "--class", "5"], "--class: "),
    ([*YEAR, "--rule", "seen-here", "--criterion", "yallop", "--limits", "lag=5"], "of the criterion user"),
    ([*YEAR, "--rule", "seen-anywhere", "--region", "1,2,3"], "wanted W,S,E,N"),
    ([*YEAR, "--rule", "seen-anywhere", "--region", "10,20,5,-95"], "--region: "),
    ([*YEAR, "--rule", "seen-anywhere", "--before", "noon"], "noon"),
    ([*YEAR, "--strict"], "of announced months"),
    (["--convert", "2026-02-30"], "no such date"),
    (["--convert", "soon"], "wanted YYYY-MM-DD"),
    (["--convert", ""], '--convert: wanted YYYY-MM-DD, found ""'),
    (["--convert-hijri", ""], '--convert-hijri: wanted YYYY-MM-DD, found ""'),
    (["--convert", "0600-01-01"], "1 to 9600"),
    (["--convert", "2026-02-18", "--format", "csv"], "text and json"),
    (["--convert", "2026-02-18", "--month", "9"], "--month belongs to --year"),
    (["--convert", "2026-02-18", "--compare", "tabular"], "not of dates"),
    (["--convert-hijri", "1447-9"], "wanted YYYY-MM-DD"),
    (["--convert-hijri", "1447-13-01"], "months 1 to 12"),
    (["--convert-hijri", "1447-10-30", *QURA], "has 29 days"),
    (["--convert-hijri", "1447-00-01"], "months 1 to 12"),
    *((["--list-rules", *words], f"{words[0]} excludes --list-rules") for words in (
        ["--rule", "tabular"], ["--compare", "tabular"], ["--place", "Amman"], ["--latitude", "91"],
        ["--criterion", "yallop"], ["--class", "1"], ["--limits", "lag=5"], ["--danjon", "7"],
        ["--region", "1,2,3,4"], ["--before", "fajer"], ["--announced"], ["--announced-file", "none.csv"],
        ["--strict"], ["--month", "9"], ["--paper", "A4"])),
]


class Hijri(Task):
    def __init__(self, report, folder):
        super().__init__(report, folder, "hijri")

    def made(self, *words):
        return super().made(*words).decode()

    def file(self, form, *words):
        return self.made(*words, "--format", form, "--output", "-")


def rows_of(text):
    return list(csv.DictReader(io.StringIO(text, newline="")))


def date_of(text):
    return datetime.date.fromisoformat(text)


def first_days(rows):
    return {(int(row["year"]), int(row["month"])): date_of(row["first_day"]) for row in rows}


# --- Years ------------------------------------------------------------------------------------------------------------


def check_published(source, rows):
    """The published calendar, tests/hijri/umm-al-qura.csv: first day of a year, last figures of its months' lengths.
    Only a month that says that it may differ by a day does."""
    published = {}
    with (source / "tests/hijri/umm-al-qura.csv").open(encoding="utf-8", newline="") as file:
        for row in csv.DictReader(file):
            first = date_of(row["first_day"])
            for month, length in enumerate(row["lengths"], 1):
                published[int(row["year"]), month] = first
                first += (29 if length == "9" else 30) * DAY
    for row in rows:
        away = abs((date_of(row["first_day"]) - published[int(row["year"]), int(row["month"])]).days)
        expect(away <= ("may differ by a day" in row["note"]), f"{away} days from the published one: {row}")


def check_years(program):
    text = program.file("csv", *SPAN, *QURA)
    expect(text.startswith(HEAD + "\r\n"), text[:80])
    rows = rows_of(text)
    expect([(int(row["year"]), int(row["month"])) for row in rows] ==
           [(year, month) for year in range(YEARS[0], YEARS[1] + 1) for month in range(1, 13)], "the months")
    for row, after in zip(rows, rows[1:]):
        expect(date_of(row["first_day"]) + int(row["days"]) * DAY == date_of(after["first_day"]), f"a gap: {row}")
        expect(row["days"] in ("29", "30"), f"days: {row}")
    arabic = rows_of(program.file("csv", *SPAN, *QURA, "--language", "ar"))
    expect([row["first_day"] for row in arabic] == [row["first_day"] for row in rows], "Arabic: other days")
    expect(arabic[8]["name"] == "رمضان" and rows[8]["name"] == "Ramadan", f"names: {arabic[8]} {rows[8]}")
    return rows


def check_json(program, rows):
    whole = json.loads(program.file("json", *SPAN, *QURA))
    [rule] = whole["rules"]
    expect(rule["key"] == "umm-al-qura" and rule["source"], f"rule: {rule['key']}")
    expect(len(rule["months"]) == len(rows), "months of JSON")
    for month, row in zip(rule["months"], rows):
        expect([str(month[key]) for key in ("year", "month", "name", "first_day", "days")] ==
               [row[key] for key in ("year", "month", "name", "first_day", "days")], f"{month} {row}")
        margin = month["margin"]
        near = margin is not None and abs(margin["value"]) < margin["uncertainty"]
        expect(month["may_differ"] == near, f"may differ: {month}")
        expect(near == ("may differ by a day" in row["note"]), f"note: {row}")


def check_comparison(program, rows):
    compared = rows_of(program.file("csv", *SPAN, *QURA, "--compare", "tabular,istanbul-2016"))
    alone = {key: rows_of(program.file("csv", *SPAN, "--rule", key)) for key in ("tabular", "istanbul-2016")}
    for number, row in enumerate(compared):
        first = date_of(rows[number]["first_day"])
        expect(row["umm-al-qura_first_day"] == rows[number]["first_day"] and row["umm-al-qura_difference"] == "0", f"{row}")
        for key, own in alone.items():
            expect(row[f"{key}_first_day"] == own[number]["first_day"], f"{key}: {row}")
            expect(int(row[f"{key}_difference"]) == (date_of(own[number]["first_day"]) - first).days, f"{key}: {row}")
    expect(any(row["tabular_difference"] != "0" for row in compared), "two rules that never differ")


def events_of(text):
    for line in text.split("\r\n"):
        expect(len(line.encode()) <= 75, f"a line of more than 75 octets: {line}")
    calendar = icalendar.Calendar.from_ical(text)
    expect(calendar.errors == [], f"errors of the calendar: {calendar.errors}")
    events = {}
    for event in calendar.walk("VEVENT"):
        expect(event.errors == [], f"errors of an event: {event.errors}")
        uid = str(event["UID"])
        expect(uid not in events, f"{uid} stands twice")
        events[uid] = (event["DTSTART"].dt, event["DTEND"].dt)
    return events


def wanted_events(starts, key="umm-al-qura"):
    """First days, feasts and white days, from the first days of the months."""
    wanted = {}
    for (year, month), start in starts.items():
        def put(name, day, days, start=start, month=month, year=year):
            begin = start + (day - 1) * DAY
            wanted[f"hijri-{year}-{month:02}-{name}{key}@halvane"] = (begin, begin + days * DAY)
        put("", 1, 1)
        for name, (of_month, day, days) in FEASTS.items():
            if of_month == month:
                put(f"{name}-", day, days)
        put("white_days-", *((14, 2) if month == 12 else (13, 3)))
    return wanted


def check_calendar(program, starts):
    text = program.file("ics", *SPAN, *QURA)
    found = events_of(text)
    wanted = wanted_events(starts)
    expect(found == wanted, f"events: {set(found.items()) ^ set(wanted.items())}")
    arabic = program.file("ics", *SPAN, *QURA, "--language", "ar")
    expect(events_of(arabic) == wanted, "the Arabic calendar has other events")
    expect("SUMMARY:رمضان 1447" in arabic, "no Arabic name")


# --- Announced starts -------------------------------------------------------------------------------------------------


def check_announced(program, rows):
    later = date_of(rows[-4]["first_day"]) + DAY  # Ramadan 1447, a day later than the rule has it
    path = program.folder / "starts.csv"
    path.write_text(f"{LIST_HEAD}1447,9,{later},Court\n", encoding="utf-8")
    announced = rows_of(program.file("csv", *YEAR, *QURA, "--announced-file", path))
    expect(announced[8]["first_day"] == str(later) and "announced by Court" in announced[8]["note"], f"{announced[8]}")
    expect(announced[8]["margin"] == "", f"a margin of what was announced: {announced[8]}")
    events = events_of(program.file("ics", *YEAR, *QURA, "--announced-file", path))
    expect(events["hijri-1447-09-umm-al-qura@halvane"][0] == later, "the event has not moved")

    path.write_text(f"{LIST_HEAD}1447,9,{later},Court\n1447,13,{later},Nobody\n", encoding="utf-8")
    words = [*YEAR, *QURA, "--format", "csv", "--output", "-", "--announced-file", path]
    done = program.run(*words)
    expect(done.returncode == 0 and f"{path}, line 3: ".encode() in done.stderr, f"a fault: {done.stderr}")
    expect(rows_of(done.stdout.decode()) == announced, "the sound line is not used")
    done = program.run(*words, "--strict")
    expect(done.returncode == 1 and b"line 3: " in done.stderr and not done.stdout, f"--strict: {done.stderr}")

    kept = program.folder / "hijri-announced.csv"
    kept.write_text(f"{LIST_HEAD}1447,9,{later},Court\n", encoding="utf-8")
    expect(rows_of(program.file("csv", *YEAR, *QURA, "--announced")) == announced, "the kept list")
    expect(rows_of(program.file("csv", *YEAR, "--rule", "announced")) == announced, "the rule announced")
    expect(rows_of(program.file("csv", *YEAR, *QURA)) != announced, "a list that nobody asked for")
    plain, moved = (events_of(program.file("ics", *YEAR, "--rule", rule)) for rule in ("umm-al-qura", "announced"))
    wanted = plain | {uid.replace("umm-al-qura", "announced-umm-al-qura"): days for uid, days in moved.items()}
    for rule, other in (("umm-al-qura", "announced"), ("announced", "umm-al-qura")):
        found = events_of(program.file("ics", *YEAR, "--rule", rule, "--compare", other))
        expect(found == wanted, f"{rule} beside {other}: {set(found.items()) ^ set(wanted.items())}")
    kept.unlink()
    path.unlink()
    done = program.run(*YEAR, "--rule", "announced")
    expect(done.returncode == 0 and b"no announced start" in done.stderr, f"an empty list: {done.stderr}")


# --- Dates ------------------------------------------------------------------------------------------------------------


def check_conversions(program, starts):
    line = re.compile(r"(\S+) (\S+) = (\d+)-(\d\d)-(\d\d) \(")
    for (year, month), start in list(starts.items())[::7]:
        for days in (0, 17, 28):
            date = start + days * DAY
            text = program.made("--convert", str(date), *QURA)
            found = line.match(text)
            expect(found and text.count("\n") == 1, text)
            expect(found[1] == str(date) and found[2] == date.strftime("%A"), text)
            expect([int(found[part]) for part in (3, 4, 5)] == [year, month, days + 1], text)
            back = program.made("--convert-hijri", f"{year}-{month:02}-{days + 1:02}", *QURA)
            expect(back == text, f"there and back: {text} {back}")
    told_json = json.loads(program.made("--convert", "2026-02-18", *QURA, "--format", "json"))
    expect(told_json["hijri"] == "1447-09-01" and told_json["month"]["name"] == "Ramadan", f"{told_json}")


# --- A month ----------------------------------------------------------------------------------------------------------


def check_month(program, starts):
    rows = rows_of(program.file("csv", *RAMADAN))
    start = starts[1447, 9]
    for number, row in enumerate(rows):
        date = start + number * DAY
        expect(row["hijri"] == f"1447-09-{number + 1:02}" and row["date"] == str(date), f"{row}")
        expect(row["weekday"] == date.strftime("%A"), f"{row}")
        expect(row["white_day"] == str(int(13 <= number + 1 <= 15)), f"{row}")
    expect(len(rows) == 30, f"{len(rows)} days")
    phases = [row["phase"] for row in rows if row["phase"]]
    order = ["new_moon", "first_quarter", "full_moon", "last_quarter"]
    expect(all(order.index(b) == (order.index(a) + 1) % 4 for a, b in zip(phases, phases[1:])), f"{phases}")
    whole = json.loads(program.file("json", *RAMADAN))
    for day, row in zip(whole["days"], rows):
        expect([day["hijri"], day["date"], day["phase"] or ""] == [row["hijri"], row["date"], row["phase"]], f"{day}")
        expect(" ".join(feast["key"] for feast in day["feasts"]) == row["feasts"], f"{day}")
    events = events_of(program.file("ics", *RAMADAN))
    moons = {str(begin) for uid, (begin, _) in events.items() if uid.startswith("moon-")}
    expect(moons == {row["date"] for row in rows if row["phase"]}, f"phases: {moons}")
    return rows


def check_page(program, scratch, language, paper, digits, rows):
    path = scratch / f"month-{language}-{paper}-{digits}.pdf"
    printed = program.made(*RAMADAN, "--format", "pdf", "--language", language, "--paper", paper, "--digits", digits,
                           "--output", path)
    expect(printed == f"{path}\n", f"{path.name}: its path {printed}")
    expect(re.search(rb"Pages: +1\n", told("pdfinfo", path)), f"{path.name}: one page")
    check_margins(path)
    check_fonts(path)
    [words] = words_of(path)
    digit = "[0-9]" if digits == "western" or language == "en" else "[٠-٩]"
    numbers = sorted(int(text) for text, _, _ in words if re.fullmatch(digit + "{1,2}", text))
    for number in range(1, 31):
        expect(numbers.count(number) >= 1, f"{path.name}: no {number}")
    for row in rows:
        day = int(row["date"][-2:])
        expect(numbers.count(day) >= 1 + (day <= 30), f"{path.name}: no civil {day}")
    text = told("pdftotext", path, "-").decode()
    for wanted in {"en": ["Ramadan 1447", "Umm al-Qura", "Laylat al-Qadr", "Full Moon"],
                   "ar": ["رمضان", "أم القرى", "ليلة القدر", "بدر"],
                   "both": ["Ramadan 1447", "رمضان", "Laylat al-Qadr", "ليلة القدر"]}[language]:
        expect(wanted in text, f"{path.name}: no {wanted}")


def check_year_of_pages(program, scratch):
    path = scratch / "year.pdf"
    program.made(*YEAR, *QURA, "--format", "pdf", "--output", path)
    expect(re.search(rb"Pages: +12\n", told("pdfinfo", path)), "a year has 12 pages")
    pages = told("pdftotext", path, "-").decode().split("\f")[:12]
    for number, page in enumerate(pages, 1):
        expect(f"Page {number} of 12" in page, f"page {number}: its foot")


# --- The rest ---------------------------------------------------------------------------------------------------------


def check_rules(program):
    listed = [line.split()[0] for line in program.made("--list-rules").splitlines()]
    rules = json.loads(program.made("--list-rules", "--format", "json"))["rules"]
    expect(listed == [rule["key"] for rule in rules] and listed[0] == "tabular", f"{listed}")
    for rule in rules:
        words = [*YEAR, "--rule", rule["key"], *(["--place", "Amman"] if "place" in rule["asks"] else [])]
        expect(len(rows_of(program.file("csv", *words))) == 12, rule["key"])
    asked = {rule["key"]: rule["asks"] for rule in rules}
    expect(asked["seen-anywhere"] == ["criterion", "region", "place_before_fajer"], f"{asked}")
    expect(asked["mabims"] == ["place"] and asked["seen-at"] == ["place", "criterion"], f"{asked}")
    arabic = program.made("--list-rules", "--language", "ar").splitlines()
    for line, (key, things) in zip(arabic, asked.items()):
        expect(line.startswith(key) and bool(re.search("المكان|المعيار", line)) == bool(things), line)
        expect(not re.search("[A-Za-z]", line.removeprefix(key)), f"not Arabic: {line}")


def check_default_files(program):
    for words, name in (([*YEAR, *QURA], "hijri-1447-umm-al-qura.csv"), (RAMADAN, "hijri-1447-09-umm-al-qura.csv")):
        printed = pathlib.Path(program.made(*words, "--format", "csv").strip())
        expect(printed == program.folder / name and printed.read_bytes(), f"{printed}")
        printed.unlink()
    expect(program.made(*YEAR, *QURA).startswith("Hijri months\nUmm al-Qura\n"), "a table goes to standard output")


def check_refusals(program):
    before = {path.name: path.read_bytes() for path in program.folder.iterdir() if path.is_file()}
    for words, wanted in REFUSALS:
        done = program.run(*words)
        expect(done.returncode == 2 and not done.stdout, f"{words}: status {done.returncode} {done.stderr}")
        expect(re.search(wanted, done.stderr.decode()), f"{words}: {done.stderr.decode()}")
    for words, wanted in (([*YEAR, "--output", "pref.vsk"], b"file of the program"),
                          ([*YEAR, "--announced-file", "none.csv"], b"No such file")):
        done = program.run(*words)
        expect(done.returncode == 1 and wanted in done.stderr, f"{words}: {done.stderr}")
    after = {path.name: path.read_bytes() for path in program.folder.iterdir() if path.is_file()}
    expect(before == after, "a refused run has written")


# A kept rule, what is given beside it, how the run ends and what it says.
KEPT_FAULTS = [
    ("rule = seen-here\n[crescent]\ncriterion = saao\nclass = 5", [], 1, "hijri-rule.ini, class: The class"),
    ("rule = seen-here\n[crescent]\ncriterion = saao\nclass = 5", ["--class", "4"], 2, "--class: The class"),
    ("rule = seen-anywhere\n[region]\nwest = 50\neast = 10", [], 1,
     "hijri-rule.ini, west, south, east, north: The eastern side of a map is not below its western one"),
    ("rule = seen-anywhere\n[region]\nwest = 50\neast = 10", ["--region", "10,20,5,-95"], 2, "--region: "),
    ("rule = seen-at\n[place]\nname = Nowhere", [], 1, 'hijri-rule.ini, name: There is no place "Nowhere"'),
    ("rule = seen-at", [], 1, "hijri-rule.ini, name: Choose a place"),
    ("rule = tabular", ["--compare", "seen-at"], 2, "the rule seen-at needs --place"),
    ("rule = seen-here\n[crescent]\ncriterion = user\nlag = none\naltitude = none\nelongation = none\nage = none", [], 1,
     "hijri-rule.ini, danjon_limit, lag, altitude, elongation, age: One limit"),
]


def check_kept_faults(program):
    kept = program.folder / "hijri-rule.ini"
    for text, words, status, wanted in KEPT_FAULTS:
        kept.write_text(f"[rule]\n{text}\n", encoding="utf-8")
        done = program.run(*YEAR, *words)
        expect(done.returncode == status and not done.stdout, f"{text} {words}: {done.returncode} {done.stderr}")
        expect(wanted in done.stderr.decode(), f"{text} {words}: {done.stderr.decode()}")
    kept.unlink()


def check_all(source, program, scratch):
    rows = check_years(program)
    starts = first_days(rows)
    check_published(source, rows)
    check_json(program, rows)
    check_comparison(program, rows)
    check_calendar(program, starts)
    check_announced(program, rows)
    check_conversions(program, starts)
    days = check_month(program, starts)
    for language in ("en", "ar", "both"):
        for paper in ("A4", "Letter"):
            for digits in ("western", "arabic"):
                check_page(program, scratch, language, paper, digits, days)
    check_year_of_pages(program, scratch)
    check_rules(program)
    check_default_files(program)
    check_refusals(program)
    check_kept_faults(program)


def main(source, report):
    if not shutil.which("pdftotext"):
        print("poppler-utils is not installed: skipped")
        return SKIPPED
    for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"):
        os.environ.pop(variable, None)
    with tempfile.TemporaryDirectory() as scratch_name:
        scratch = pathlib.Path(scratch_name)
        folder = scratch / "program folder"
        shutil.copytree(pathlib.Path(source) / "data", folder)
        os.chdir(folder)
        try:
            check_all(pathlib.Path(source), Hijri(pathlib.Path(report), folder), scratch)
        except Difference as difference:
            print(f"FAILED: {difference}")
            return 1
    print("passed")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
