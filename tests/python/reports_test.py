#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""reports_test.py REPORT: the package gives what the reports give, at full precision.

REPORT, the batch program, prints seeded reports as JSON, with clocks to the microsecond and numbers as they are; every
row is asked of the package again.
"""

import collections
import datetime
import json
import math
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import unittest

import halvane

REPORT = sys.argv[1]

# Of what the reports print as they are, nothing differs; clocks are printed to the microsecond.
HALF_MICROSECOND = 0.51e-6
# A Julian day of our time is kept in steps of 4e-5 s; to bring a moment to another scale and clock takes two.
TWO_JULIAN_DAY_STEPS = 1e-4

PLACES = 55
DAYS = 20
WANTED = 1000


def output_of(*words):
    """What the program prints."""
    ended = subprocess.run([REPORT, *words, "--output", "-"], capture_output=True, text=True)
    if ended.returncode != 0:
        raise RuntimeError(f"{' '.join(words)}: {ended.stderr}")
    return ended.stdout


def report(task, *words):
    """The facts and the rows of a report."""
    told = json.loads(output_of(task, "--format", "json", *words))
    return told["facts"], told["rows"]


def numbers_of(date):
    """Year, month and day of `YYYY-MM-DD`."""
    return tuple(map(int, date.split("-")))


def settings_of(record, **values):
    """The words that set fields of a record."""
    return [f"--set={record}.{name.replace('_', '-')}={json.dumps(value)}" for name, value in values.items()]


def observer_of(facts):
    """The place of a report, whose angles went through degrees, minutes and seconds."""
    return halvane.Observer(facts["latitude"], facts["longitude"], facts["elevation"])


def seconds_of(clock):
    hours, minutes, seconds = clock.split(":")
    return 3600 * int(hours) + 60 * int(minutes) + float(seconds)


def julian_day_of(moment):
    """The Julian day of its midnight and the seconds since, of `YYYY-MM-DDTHH:MM:SS.ffffff`."""
    date, clock = moment.split("T")
    return halvane.julian_day(numbers_of(date)), seconds_of(clock)


class Reports(unittest.TestCase):
    def setUp(self):
        self.random = random.Random(20260219)
        self.compared = 0

    def enough(self):
        self.assertGreaterEqual(self.compared, WANTED)

    def place(self, farthest=60.0):
        """A place as the program takes it, and its hours ahead of Universal Time."""
        latitude = round(self.random.uniform(-farthest, farthest), 4)
        longitude = round(self.random.uniform(-180, 180), 4)
        height = self.random.randrange(0, 2500)
        zone = round(longitude / 15)
        words = [f"--latitude={latitude}", f"--longitude={longitude}", f"--height={height}", f"--zone={zone}"]
        return words, float(zone)

    def days(self):
        """The words of some days of a month of our time."""
        year, month = self.random.randrange(1950, 2100), self.random.randrange(1, 13)
        return [f"--from={year}-{month:02}-01", f"--to={year}-{month:02}-{DAYS}"]

    def date(self):
        return tuple(self.random.randrange(*bounds) for bounds in ((1950, 2100), (1, 13), (1, 29)))

    def assert_clock(self, told, given, where):
        """A clock of a report, or why there is none, and the package's of the same date."""
        if told is None or ":" not in told:
            self.assertEqual(told or "no_event", str(given.missing), where)
            return
        apart = (seconds_of(told) - 3600 * given.hours) % 86400
        self.assertLessEqual(min(apart, 86400 - apart), HALF_MICROSECOND, where)

    def assert_numbers(self, row, given, where, within=0.0):
        for name, value in given.items():
            self.assertLessEqual(abs(row[name] - value), within, (where, name))

    def test_prayer_times(self):
        for _ in range(PLACES):
            words, zone = self.place(70.0)
            fajer, isha = round(self.random.uniform(12, 20), 2), round(self.random.uniform(12, 19), 2)
            rules = halvane.ReportRules(fajer_angle=fajer, isha_angle=isha)
            settings = settings_of("pref", fajer_angle=fajer, isha_angle=isha)
            facts, rows = report("prayer", *words, *self.days(), *settings)
            for row in rows:
                times = halvane.prayer_times(numbers_of(row["date"]), observer_of(facts), zone, rules)
                for name in ("fajer", "shuroq", "dhohur", "aser", "maghreb", "isha"):
                    self.assert_clock(row[name], getattr(times, name), (words, row, name))
                self.compared += 1
        self.enough()

    def test_suns(self):
        for _ in range(WANTED):
            words, zone = self.place(70.0)
            date = self.date()
            facts, (row,) = report("sun", *words, "--date={}-{:02}-{:02}".format(*date))
            observer = observer_of(facts)
            day = halvane.sun_day(date, observer, zone)
            given = {"sunrise": day.rise, "transit": day.transit, "sunset": day.set}
            for name, depression in (("civil", 6), ("nautical", 12), ("astronomical", 18)):
                twilight = halvane.twilight(date, observer, zone, depression)
                given |= {f"{name}_dawn": twilight.morning, f"{name}_dusk": twilight.evening}
            if row["altitude"] < 0 and not day.transit:
                given.pop("transit")  # the package tells of none below the horizon
            for name, time in given.items():
                self.assert_clock(row[name], time, (words, row, name))
            self.compared += 1
        self.enough()

    def test_timetables(self):
        authorities = [each.key for each in halvane.authorities()]
        with tempfile.TemporaryDirectory() as folder:
            for number in range(PLACES):
                words, zone = self.place(66.0)
                if number % 2 == 1:
                    profile = self.random.choice(authorities)
                    rules = halvane.rules_of_authority(profile)
                else:
                    profile = "own"
                    rules = self.rules()
                    text = f"[rules]\nfajer_angle={rules.fajer_angle}\nisha_angle={rules.isha_angle}\n"
                    text += f"aser={'hanafi' if rules.hanafi else 'standard'}\nhigh_latitude={rules.high_latitude}\n"
                    pathlib.Path(folder, "profile-own.ini").write_text(f"{text}seconds=yes\n")
                words += [*self.days(), f"--profile={profile}", "--format=json"]
                told = json.loads(output_of("timetable", *words, f"--folder={folder}"))
                self.assert_timetable(told, zone, rules, words)
        self.enough()

    def rules(self):
        """Rules of a timetable to the second."""
        angles = {name: round(self.random.uniform(12, 20), 2) for name in ("fajer_angle", "isha_angle")}
        high_latitude = self.random.choice(("none", "middle", "seventh", "angle", "share"))
        hanafi = self.random.random() < 0.5
        return halvane.TimetableRules(**angles, hanafi=hanafi, high_latitude=high_latitude, seconds=True)

    def assert_timetable(self, told, zone, rules, where):
        settings = told["settings"]
        first, last = (numbers_of(settings["span"][name]) for name in ("first", "last"))
        days = halvane.timetable(first, last, observer_of(settings["place"]), zone, rules)
        for row, day in zip(told["rows"], days, strict=True):
            self.assertEqual(numbers_of(row["date"]), tuple(day.date), where)
            self.assertEqual(tuple(row["hijri"].values()), tuple(day.hijri), (where, row))
            for name, time in day.items():
                moment = time.datetime()
                given = (moment.isoformat(), str(time.source)) if moment else (str(time.missing), None)
                printed = row[name].get("instant", row[name].get("missing")), row[name].get("source")
                self.assertEqual(printed, given, (where, row, name))
            self.compared += 1

    def test_moon_days(self):
        for _ in range(PLACES):
            words, zone = self.place(80.0)
            facts, rows = report("moon", *words, *self.days())
            for row in rows:
                day = halvane.moon_day(numbers_of(row["date"]), observer_of(facts), zone)
                for name, given in (("moonrise", day.rise), ("transit", day.transit), ("moonset", day.set)):
                    self.assert_clock(row[name], given, (words, row, name))
                self.compared += 1
        self.enough()

    def test_directions_of_the_qiblah(self):
        # Of single days: the report takes one mean Delta T for all its days, the package that of each.
        for number in range(WANTED):
            words, zone = self.place()
            date = self.date()
            shadow = number % 2 == 1
            day = "--from={}-{:02}-{:02}".format(*date)
            facts, (row,) = report("qibla-shadow" if shadow else "qibla-sun", *words, day)
            observer, direction = observer_of(facts), facts["qiblah_direction"]
            bearing = halvane.qiblah_direction(observer.latitude, observer.longitude)
            self.assertLessEqual(abs(bearing - direction), 0.05001, words)  # the report rounds it to 0.1 deg
            found = halvane.sun_in_direction(date, observer, zone, direction, shadow=shadow)
            self.assert_clock(row["first_time"], found.first, (words, row))
            self.assert_clock(row["second_time"], found.second, (words, row))
            self.compared += 1
        self.enough()

    def test_phases(self):
        for year in self.random.sample(range(1900, 2100), 25):
            topocentric = year % 2 == 1
            words, zone = self.place()
            facts, rows = report("phases", *words, f"--year={year}", *settings_of("phase", geocentric=not topocentric))
            start = halvane.julian_day((year - 1, 12, 1))
            found = halvane.moon_phases(start, start + 430, observer=observer_of(facts) if topocentric else None)
            for row in rows:
                day, seconds = julian_day_of(row["time"])
                seconds += facts["delta_t"] - 3600 * zone
                same = [each for each in found if str(each.phase) == row["phase"]]
                apart = min(abs((each.instant.jd - day) * 86400 - seconds) for each in same)
                self.assertLessEqual(apart, TWO_JULIAN_DAY_STEPS, (words, row))
                self.compared += 1
        self.enough()

    def test_tables_of_sun_and_moon(self):
        for number in range(PLACES):
            words, zone = self.place()
            moon, geocentric = number % 2 == 1, number % 4 >= 2
            year, month, day = self.date()
            day = min(day, 27)
            settings = settings_of("coor", object=int(moon), geocentric=geocentric, start_year=year, end_year=year)
            settings += settings_of("coor", start_month=month, end_month=month, start_day=day, end_day=day + 1)
            facts, rows = report("ephemeris", *words, *settings)
            for row in rows:
                midnight, seconds = julian_day_of(row["time"])
                when = midnight + (seconds - 3600 * zone) / 86400
                seen = (halvane.moon_seen if moon else halvane.sun_seen)(when, observer_of(facts))
                place = seen.geocentric if geocentric else seen.topocentric
                names = ["right_ascension", "declination", "longitude", "latitude"]
                names += [] if geocentric else ["altitude", "azimuth"]
                given = {name: getattr(place, name) for name in names}
                if moon:
                    given |= {"distance": seen.geocentric.distance, "parallax": seen.parallax}
                self.assert_numbers(row, given, (words, settings))
                self.compared += 1
        self.enough()

    def test_telescope(self):
        while self.compared < WANTED:
            words, zone = self.place()
            (year, month, day), hour = self.date(), self.random.randrange(24)
            when = halvane.julian_day((year, month, day)) + (hour + 0.5 - zone) / 24
            about = halvane.Observer(*(float(word.split("=")[1]) for word in words[:3]))
            if halvane.moon_seen(when, about).topocentric.altitude < 2:
                continue  # no telescope points below the horizon
            clock = settings_of("tele", year=year, month=month, day=day, hour=hour, minute=30)
            facts, rows = report("telescope", *words, *clock)
            for row, seen in zip(rows, (halvane.sun_seen, halvane.moon_seen)):
                place = seen(when, observer_of(facts), accuracy="medium").topocentric
                where = (words, clock, row["body"])
                self.assert_numbers(row, {"altitude": place.altitude, "azimuth": place.azimuth}, where)
                # These come back from altitude and azimuth: some last bits of 360 deg.
                equatorial = {"right_ascension": place.right_ascension, "declination": place.declination}
                self.assert_numbers(row, equatorial, where, 1e-12)
                self.compared += 1

    def test_crescents(self):
        times = {"best_time": "at_best_time", "sun_event": "at_sun", "moon_event": "at_moon", "given": "at_user_time"}
        for number in range(WANTED):
            words, zone = self.place(50.0)
            year, month, day = self.date()
            new, geocentric, time = number % 2 == 0, number % 4 >= 2, self.random.choice(list(times))
            settings = settings_of("visib", year=year, month=month, day=day, new_crescent=new, geocentric=geocentric)
            settings += settings_of("visib", **{field: name == time for name, field in times.items()})
            facts, (row,) = report("crescent", *words, *settings)
            kind = "new" if new else "old"
            choices = halvane.CircumstanceChoices(kind=kind, geocentric=geocentric, time=time)
            given = halvane.crescent_circumstances((year, month, day), observer_of(facts), zone, choices)
            self.assert_crescent(row, given, geocentric, (words, settings))
            self.compared += 1
        self.enough()

    def assert_crescent(self, row, given, geocentric, where):
        self.assertEqual(tuple(given.date), numbers_of(row["date"]), where)
        self.assertEqual(given.hijri[:2], (row["hijri_year"], row["hijri_month"]), where)
        for name in ("sun_event", "moon_event"):
            apart = abs(seconds_of(row[name]) - 3600 * getattr(given, name)) % 86400
            self.assertLessEqual(min(apart, 86400 - apart), HALF_MICROSECOND, (where, name))
        places = {"moon": given.moon, "sun": given.sun}
        for body, seen in places.items():
            place = seen.geocentric if geocentric else seen.topocentric
            names = ("right_ascension", "declination", "longitude", "latitude")
            self.assert_numbers(row, {f"{body}_{name}": getattr(place, name) for name in names}, where)
        names = ("moon_altitude", "moon_azimuth", "sun_altitude", "sun_azimuth", "elongation", "phase_angle", "width")
        self.assert_numbers(row, {name: getattr(given.quantities, name) for name in names}, where)
        numbers = {
            "julian_date": given.observed.jd,
            "moon_age": 24 * given.moon_age,
            "lag": given.lag,
            "semidiameter": given.quantities.semidiameter,
            "illumination": 100 * given.quantities.illuminated_fraction,
            "parallax": given.moon.parallax,
            "distance": given.moon.geocentric.distance,
            "best_relative_altitude": given.arcv,
            "best_width": given.width,
            "q": given.q,
        }
        self.assert_numbers(row, numbers, where)

    def test_criteria(self):
        # The short answer tells of the evening after the conjunction's, with rounded values.
        number = r"(?P<value>-?[0-9]+(\.(?P<decimals>[0-9]+))?)"
        line_form = re.compile(r"(?P<name>.*?): (?P<words>.*) \(.* = " + number + r"\D*\)")
        criteria = {each.key: each for each in halvane.criteria()}
        while self.compared < WANTED:
            words, zone = self.place(50.0)
            facts, _ = report("crescent", *words)
            text = output_of("crescent", "--short", *words, "--date={}-{:02}-{:02}".format(*self.date()))
            evening = datetime.datetime.strptime(text.split(",")[0], "Evening of %A %d %B %Y").date()
            lines = dict(line.split(": ", 1) for line in text.splitlines() if line_form.fullmatch(line))
            answer = halvane.crescent("new", evening, observer_of(facts), zone)
            self.assertEqual(len(lines), len(answer.verdicts), text)
            for verdict in answer.verdicts:
                criterion = criteria[verdict.criterion]
                told = line_form.fullmatch(f"{criterion.name}: {lines[criterion.name]}")
                half = 0.50001 * 10.0 ** -len(told["decimals"] or "")
                self.assertLessEqual(abs(float(told["value"]) - verdict.value), half, (words, text, criterion.key))
                self.assertEqual(told["words"], criterion.classes[verdict.band].words, (words, text, criterion.key))
                self.compared += 1

    def test_fine_maps(self):
        numbers = collections.defaultdict(dict)
        for criterion in halvane.criteria():
            if criterion.place is not None:
                continue  # one place judges: there is no map
            for kind in ("new", "old") if criterion.of_mornings else ("new",):
                conjunction = halvane.conjunction(halvane.julian_day(self.date()))
                date = tuple(halvane.civil_date(conjunction.jd + self.random.uniform(-2, 2)))
                west, south = self.random.randrange(-180, 170), self.random.randrange(-60, 50)
                window = {"west": west, "south": south, "east": west + 10, "north": south + 10}
                words = [f"--criterion={criterion.key}", *(["--old"] if kind == "old" else []), "--step=0.5"]
                words += ["--date={}-{:02}-{:02}".format(*date), "--window=" + ",".join(map(str, window.values()))]
                lines = output_of("map", "--fine", "--format=csv", *words).splitlines()[1:]
                (grid,) = halvane.crescent_map(date, kind=kind, criterion=criterion.key, step=0.5, **window)
                for line, map_class, value in zip(lines, grid.map_class.flatten(), grid.value.flatten(), strict=True):
                    number, printed = line.split(",")[2:]
                    self.assertEqual(printed and float(printed), "" if math.isnan(value) else value, (words, line))
                    self.assertEqual(numbers[criterion.key].setdefault(map_class, number), number, (words, line))
                    self.compared += 1
        self.enough()
        without = {halvane.MAP_CONJUNCTION_TO_COME: "2", halvane.MAP_MOON_GOES_FIRST: "2"}
        without |= {halvane.MAP_NO_ANSWER: "1", halvane.MAP_NO_EVENT: "1"}
        for key, given in numbers.items():
            classes = [map_class for map_class in sorted(given) if map_class not in without]
            # Those of the small map leave out some of its numbers.
            usual = {map_class: str(3 + map_class) for map_class in classes if key not in ("vesk", "yallop", "saao")}
            self.assertEqual(given, given | usual | {each: without[each] for each in given if each in without}, key)
            self.assertEqual(len({given[each] for each in classes}), len(classes), key)

    def test_hijri_months(self):
        place, height = (31.95, 35.93), 800
        words = [f"--latitude={place[0]}", f"--longitude={place[1]}", f"--height={height}", "--zone=3"]
        for rule in halvane.hijri_rules():
            choices = halvane.HijriChoices(rule=rule.key, place=(*place, height), zone=3.0)
            asked = ["--criterion=yallop-1997"] if rule.asks_criterion else []
            for first in self.random.sample(range(1360, 1500), 2):
                years = [f"--from-year={first}", f"--to-year={first + 2}", f"--rule={rule.key}"]
                told = json.loads(output_of("hijri", "--format", "json", *words, *years, *asked))
                given = halvane.hijri_months(choices, (first, 1), (first + 2, 12))
                for row, month in zip(told["rules"][0]["months"], given, strict=True):
                    self.assertEqual((row["year"], row["month"], row["days"]), (month.year, month.month, month.days))
                    self.assertEqual(numbers_of(row["first_day"]), tuple(month.first_day), (rule.key, row))
                    self.assertEqual(row["may_differ"], month.may_differ, (rule.key, row))
                    if row["margin"] is not None and row["margin"]["value"] is not None:
                        self.assertEqual(row["margin"]["value"], month.margin, (rule.key, row))
                    self.compared += 1
        self.enough()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
