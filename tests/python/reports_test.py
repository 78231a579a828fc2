#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""reports_test.py REPORT: the package gives what the reports give, at full precision.

REPORT, the batch program, prints seeded reports as JSON, with clocks to the microsecond and numbers as they are; every
row is asked of the package again.
"""

import json
import math
import random
import subprocess
import sys
import unittest

import halvane

REPORT = sys.argv[1]

HALF_MICROSECOND = 0.51e-6
# A Julian day of our time is kept in steps of 4e-5 s.
JULIAN_DAY_STEP = 5e-5
# A number that was reckoned back to a Julian day from a clock of microseconds, or through another sum of the same day.
# The Moon runs 1.5e-4 deg in a second, the sky 4.2e-3 deg.
DEGREES = 4.2e-3 * 2 * JULIAN_DAY_STEP

PLACES = 55
DAYS = 20
WANTED = 1000


def report(task, *words):
    """The facts and the rows of a report."""
    ended = subprocess.run([REPORT, task, "--format", "json", "--output", "-", *words], capture_output=True, text=True)
    if ended.returncode != 0:
        raise RuntimeError(f"{task} {' '.join(words)}: {ended.stderr}")
    told = json.loads(ended.stdout)
    return told["facts"], told["rows"]


def observer_of(facts):
    """The place of a report, whose angles went through degrees, minutes and seconds."""
    return halvane.Observer(facts["latitude"], facts["longitude"], facts["elevation"])


def seconds_of(clock):
    """Seconds of a report's clock; a clock of another date than its row's is a moment of it."""
    hours, minutes, seconds = clock.rsplit("T", 1)[-1].split(":")
    return 3600 * int(hours) + 60 * int(minutes) + float(seconds)


def julian_day_of(moment):
    """The Julian day and the seconds from its midnight of `YYYY-MM-DDTHH:MM:SS.ffffff`, as the clock tells it."""
    date, clock = moment.rsplit("T", 1)
    year, month, day = date.rsplit("-", 2)
    return halvane.julian_day((int(year), int(month), int(day))), seconds_of(clock)


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

    def assert_clock(self, told, given, where):
        """A clock of a report, and the package's of the same date."""
        self.compared += 1
        if told is None or ":" not in told:
            self.assertTrue(math.isnan(given.hours), where)
            return
        apart = (seconds_of(told) - 3600 * given.hours) % 86400
        self.assertLessEqual(min(apart, 86400 - apart), HALF_MICROSECOND, where)

    def assert_angle(self, told, given, where):
        self.assertLessEqual(abs((told - given + 180) % 360 - 180), DEGREES, where)

    def test_prayer_times(self):
        for _ in range(PLACES):
            words, zone = self.place()
            fajer, isha = round(self.random.uniform(12, 20), 2), round(self.random.uniform(12, 19), 2)
            rules = halvane.ReportRules(fajer_angle=fajer, isha_angle=isha)
            settings = [f"--set=pref.fajer-angle={fajer}", f"--set=pref.isha-angle={isha}"]
            facts, rows = report("prayer", *words, *self.days(), *settings)
            for row in rows:
                date = tuple(map(int, row["date"].split("-")))
                times = halvane.prayer_times(date, observer_of(facts), zone, rules)
                for name in ("fajer", "shuroq", "dhohur", "aser", "maghreb", "isha"):
                    self.assert_clock(row[name], getattr(times, name), (words, row, name))
        self.enough()

    def test_moon_days(self):
        for _ in range(PLACES):
            words, zone = self.place(80.0)
            facts, rows = report("moon", *words, *self.days())
            for row in rows:
                day = halvane.moon_day(tuple(map(int, row["date"].split("-"))), observer_of(facts), zone)
                for name, given in (("moonrise", day.rise), ("transit", day.transit), ("moonset", day.set)):
                    self.assert_clock(row[name], given, (words, row, name))
        self.enough()

    def test_directions_of_the_qiblah(self):
        # Of single days: the report takes one mean Delta T for all its days, the package that of each.
        for number in range(WANTED // 2 + 20):
            words, zone = self.place()
            date = (self.random.randrange(1950, 2100), self.random.randrange(1, 13), self.random.randrange(1, 29))
            shadow = number % 2 == 1
            day = "--from={}-{:02}-{:02}".format(*date)
            facts, (row,) = report("qibla-shadow" if shadow else "qibla-sun", *words, day)
            found = halvane.sun_in_direction(date, observer_of(facts), zone, facts["qiblah_direction"], shadow=shadow)
            self.assert_clock(row["first_time"], found.first, (words, row))
            self.assert_clock(row["second_time"], found.second, (words, row))
        self.enough()

    def test_phases(self):
        for year in self.random.sample(range(1900, 2100), 25):
            topocentric = year % 2 == 1
            words, zone = self.place()
            setting = f"--set=phase.geocentric={'false' if topocentric else 'true'}"
            facts, rows = report("phases", *words, f"--year={year}", setting)
            start = halvane.julian_day((year - 1, 12, 1))
            found = halvane.moon_phases(start, start + 430, observer=observer_of(facts) if topocentric else None)
            for row in rows:
                day, seconds = julian_day_of(row["time"])
                seconds += facts["delta_t"] - 3600 * zone
                apart = [
                    abs((each.instant.jd - day) * 86400 - seconds) for each in found if str(each.phase) == row["phase"]
                ]
                self.assertLessEqual(min(apart), 2 * JULIAN_DAY_STEP, (words, row))
                self.compared += 1
        self.enough()

    def test_tables_of_sun_and_moon(self):
        for number in range(PLACES):
            words, zone = self.place()
            moon, geocentric = number % 2 == 1, number % 4 >= 2
            date = [str(self.random.randrange(low, high)) for low, high in ((1950, 2100), (1, 13), (1, 27))]
            settings = [f"--set=coor.object={int(moon)}", f"--set=coor.geocentric={str(geocentric).lower()}"]
            for end, later in (("start", 0), ("end", 1)):
                for part, value in zip(("year", "month", "day"), date):
                    settings.append(f"--set=coor.{end}-{part}={int(value) + later * (part == 'day')}")
            facts, rows = report("ephemeris", *words, *settings)
            for row in rows:
                day, seconds = julian_day_of(row["time"])
                when = day + (seconds - 3600 * zone) / 86400
                seen = (halvane.moon_seen if moon else halvane.sun_seen)(when, observer_of(facts))
                place = seen.geocentric if geocentric else seen.topocentric
                for name in ("right_ascension", "declination", "longitude", "latitude"):
                    self.assert_angle(row[name], getattr(place, name), (words, row, name))
                if not geocentric:
                    self.assert_angle(row["altitude"], place.altitude, (words, row))
                    self.assert_angle(row["azimuth"], place.azimuth, (words, row))
                self.compared += 1
        self.enough()

    def test_crescents(self):
        times = ("at-best-time", "at-sun", "at-moon", "at-user-time")
        for number in range(WANTED + 40):
            words, zone = self.place(50.0)
            date = (self.random.randrange(1950, 2100), self.random.randrange(1, 13), self.random.randrange(1, 29))
            new, geocentric, time = number % 2 == 0, number % 4 >= 2, self.random.randrange(4)
            settings = {f"visib.{part}": value for part, value in zip(("year", "month", "day"), date)}
            settings |= {"visib.new-crescent": str(new).lower(), "visib.geocentric": str(geocentric).lower()}
            settings |= {f"visib.{name}": str(at == time).lower() for at, name in enumerate(times)}
            facts, (row,) = report("crescent", *words, *(f"--set={name}={value}" for name, value in settings.items()))
            choices = halvane.CircumstanceChoices(
                kind="new" if new else "old",
                geocentric=geocentric,
                time=("best_time", "sun_event", "moon_event", "given")[time],
            )
            given = halvane.crescent_circumstances(date, observer_of(facts), zone, choices)
            self.assert_crescent(row, given, (words, settings))
        self.enough()

    def assert_crescent(self, row, given, where):
        self.compared += 1
        if given is None:
            self.assertIsNone(row["lag"], where)
            return
        self.assertEqual(tuple(given.date), tuple(map(int, row["date"].split("-"))), where)
        self.assertLessEqual(abs(row["julian_date"] - given.observed.jd) * 86400, JULIAN_DAY_STEP, where)
        quantities = given.quantities
        for name, value in (("lag", given.lag), ("q", given.q), ("best_width", given.width)):
            self.assertLessEqual(abs(row[name] - value), 1e-7, (where, name))
        for name in ("elongation", "phase_angle", "semidiameter"):
            self.assert_angle(row[name], getattr(quantities, name), (where, name))
        for name in ("moon_altitude", "moon_azimuth", "sun_altitude", "sun_azimuth"):
            self.assert_angle(row[name], getattr(quantities, name), (where, name))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
