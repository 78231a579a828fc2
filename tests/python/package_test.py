#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""package_test.py DATA: what the Python part of the package takes and refuses, and how its values behave."""

import copy
import datetime as dt
import math
import multiprocessing
import pathlib
import pickle
import subprocess
import sys
import tempfile
import unittest
import zoneinfo

import numpy as np

import halvane

DATA = pathlib.Path(sys.argv[1])
CAIRO = (30.05, 31.25)
NORTH = (69.65, 18.96)
TEXTS = {name: (DATA / f"{name}.vsk").read_bytes() for name in ("termfull", "term", "mterm", "elp")}


class Moments(unittest.TestCase):
    """Every way to give one moment gives one Julian day."""

    moment = dt.datetime(2025, 3, 20, 9, 1, 25, tzinfo=dt.timezone.utc)
    day = 2460754.5 + (9 * 3600 + 85) / 86400  # Meeus, Astronomical Algorithms, ch. 7

    def near(self, when):
        return self.assertAlmostEqual(halvane.sun(when).longitude, halvane.sun(self.day).longitude, delta=1e-8)

    def test_every_way_means_the_same(self):
        self.near(self.moment)
        self.near(self.moment.astimezone(zoneinfo.ZoneInfo("America/New_York")))
        self.near(np.datetime64("2025-03-20T09:01:25"))
        self.near(np.datetime64("2025-03-20T09:01:25.000000000"))
        self.near(halvane.Instant(self.day))
        self.near(np.float64(self.day))
        self.near(np.array(self.day))

    def test_arrays_of_every_kind_mean_the_same(self):
        wanted = halvane.sun(np.array([self.day, self.day + 1]))
        later = self.moment + dt.timedelta(days=1)
        for given in (
            [self.moment, later],
            (self.moment, later),
            np.array(["2025-03-20T09:01:25", "2025-03-21T09:01:25"], dtype="datetime64[ns]"),
            [halvane.Instant(self.day), halvane.Instant(self.day + 1)],
            [self.day, self.day + 1],
            np.array([0, self.day, 0, self.day + 1])[1::2],
        ):
            np.testing.assert_allclose(halvane.sun(given).longitude, wanted.longitude, rtol=0, atol=1e-8)

    def test_scale_is_that_of_mere_numbers(self):
        dynamical = halvane.sun(2451545.0, scale="dynamical")
        self.assertEqual(dynamical, halvane.sun(halvane.Instant(2451545.0, halvane.Scale.DYNAMICAL)))
        # Delta T of 2000 January 1 was 63.83 s (Meeus, Table 10.A); the Sun moves 1.0194 deg in that day.
        self.assertAlmostEqual(
            halvane.sun(2451545.0).longitude - dynamical.longitude, 1.0194 * 63.83 / 86400, delta=2e-5
        )

    def test_an_empty_array_gives_empty_ones(self):
        self.assertEqual(halvane.moon(np.array([])).distance.shape, (0,))

    def test_no_moments(self):
        for given, words in (
            (dt.datetime(2025, 3, 20), "zone"),
            ([dt.datetime(2025, 3, 20)], "zone"),
            (dt.date(2025, 3, 20), "no moment"),
            (np.datetime64("NaT"), "NaT"),
            (np.array(["NaT"], dtype="datetime64[s]"), "NaT"),
            ("2025-03-20", "number"),
            (True, "number"),
            (None, "number"),
            (math.nan, "Julian day"),
            (math.inf, "Julian day"),
            (1e9, "Julian day"),
            (np.array([2451545.0, math.nan]), "Julian day"),
            (np.array([2451545.0], dtype=np.float32), "64 bits"),
            ([halvane.Instant(1.0), halvane.Instant(1.0, "dynamical")], "one scale"),
        ):
            with self.subTest(given=given), self.assertRaisesRegex(halvane.BadArgument, words):
                halvane.sun(given)
        with self.assertRaisesRegex(halvane.BadArgument, "known are complete, medium, low, fast"):
            halvane.sun(2451545.0, accuracy="best")

    def test_an_instant_tells_its_datetime(self):
        self.assertAlmostEqual(
            (halvane.Instant(self.day).datetime() - self.moment).total_seconds(), 0, delta=1e-4
        )
        with self.assertRaisesRegex(halvane.BadArgument, "1 to 9999"):
            halvane.Instant(990557.5).datetime()


class Dates(unittest.TestCase):
    def test_every_way_means_the_same(self):
        for given in (dt.date(2025, 3, 20), (2025, 3, 20), [2025, 3, 20], np.datetime64("2025-03-20")):
            self.assertEqual(halvane.julian_day(given), 2460754.5)
        np.testing.assert_array_equal(
            halvane.julian_day(np.array(["2000-01-01", "1999-01-01"], dtype="datetime64[D]")), [2451544.5, 2451179.5]
        )

    def test_pythons_dates_are_gregorian_of_all_times(self):
        # The day before 15 October 1582 was 4 October of the Julian calendar.
        self.assertEqual(halvane.julian_day(dt.date(1582, 10, 14)), halvane.julian_day((1582, 10, 4)))
        self.assertEqual(halvane.Date(1582, 10, 4).date(), dt.date(1582, 10, 14))
        self.assertEqual(halvane.julian_day((1582, 10, 16)), halvane.julian_day((1582, 10, 4)) + 2)

    def test_no_dates(self):
        for given in (
            dt.datetime(2025, 3, 20),
            np.datetime64("2025-03-20T10"),
            np.datetime64("NaT"),
            (2025, 3),
            (2025, 2, 29),
            (2025, 13, 1),
            (2025.5, 1, 1),
            (10**30, 1, 1),
            "2025-03-20",
            20250320,
            None,
        ):
            with self.subTest(given=given), self.assertRaises(halvane.BadArgument):
                halvane.julian_day(given)

    def test_years_that_python_has_not(self):
        with self.assertRaisesRegex(halvane.BadArgument, "1 to 9999"):
            halvane.Date(-500, 1, 1).date()


class Clocks(unittest.TestCase):
    day = dt.date(2025, 7, 1)

    def test_every_way_means_the_same(self):
        wanted = halvane.sun_day(self.day, CAIRO, "Africa/Cairo").set
        self.assertEqual(wanted.hours_ahead, 3)
        for zone in (zoneinfo.ZoneInfo("Africa/Cairo"), 3, 3.0, dt.timezone(dt.timedelta(hours=3)), np.float64(3)):
            given = halvane.sun_day(self.day, CAIRO, zone).set
            self.assertEqual(given.hours, wanted.hours)
            self.assertEqual(given.datetime(), wanted.datetime())

    def test_a_time_tells_its_moment(self):
        maghreb = halvane.prayer_times(self.day, CAIRO, "Africa/Cairo").maghreb
        moment = maghreb.datetime()
        self.assertEqual(moment.tzinfo.key, "Africa/Cairo")
        self.assertEqual(moment.date(), self.day)
        self.assertAlmostEqual(moment.hour + moment.minute / 60 + moment.second / 3600, maghreb.hours, delta=1 / 3600)
        # At sunset the upper limb of the Sun is on the horizon: its centre 50' below, airless.
        self.assertAlmostEqual(halvane.sun_seen(moment, CAIRO).topocentric.altitude, -50 / 60, delta=0.02)

    def test_a_missing_time_says_why(self):
        midsummer = halvane.sun_day((2025, 6, 21), NORTH, "Europe/Oslo")
        self.assertEqual(midsummer.set.missing, halvane.Missing.UP)
        self.assertEqual(midsummer.set.missing, "up")
        self.assertTrue(math.isnan(midsummer.set.hours))
        self.assertFalse(midsummer.set)
        self.assertIsNone(midsummer.set.datetime())
        self.assertEqual(str(midsummer.set), "up")
        self.assertEqual(halvane.sun_day((2025, 12, 21), NORTH, "Europe/Oslo").rise.missing, "down")

    def test_no_zones(self):
        class Nameless(dt.tzinfo):
            pass

        for zone in ("Africa/Kairo", "", "../etc/passwd", "a\0b", Nameless(), None, 25, math.nan, True, [1]):
            with self.subTest(zone=zone), self.assertRaises(halvane.BadArgument):
                halvane.sun_day(self.day, CAIRO, zone)


class Places(unittest.TestCase):
    def test_no_observers(self):
        out_of_range = ((91, 0), (0, 181), (math.nan, 0), (0, 0, math.inf))
        for observer in ((30,), (1, 2, 3, 4), "30,31", None, ("a", 1), *out_of_range):
            with self.subTest(observer=observer), self.assertRaises(halvane.BadArgument):
                halvane.sun_seen(2451545.0, observer)

    def test_directions_of_arrays(self):
        latitudes, longitudes = np.array([[51.5], [40.7]]), np.array([-0.12, -74.0, 3.0])
        self.assertEqual(halvane.qiblah_direction(latitudes, longitudes).shape, (2, 3))
        with self.assertRaises(halvane.BadArgument):
            halvane.qiblah_direction([1, 2], [1, 2, 3])
        with self.assertRaises(halvane.BadArgument):
            halvane.qiblah_direction(["a"], [1])


class Rules(unittest.TestCase):
    def test_words_and_texts_mean_the_same(self):
        rules = halvane.TimetableRules(high_latitude="angle", rounding=("up",) * 6)
        other = halvane.TimetableRules(
            high_latitude=halvane.HighLatitudeRule.ANGLE, rounding=(halvane.Rounding.UP,) * 6
        )
        arguments = ((2025, 6, 1), (2025, 6, 2), (55.0, 3.0), 1)
        self.assertEqual(halvane.timetable(*arguments, rules), halvane.timetable(*arguments, other))
        self.assertNotEqual(halvane.timetable(*arguments, rules), halvane.timetable(*arguments))

    def test_no_rules(self):
        for rules in (
            halvane.TimetableRules(fajer_angle="18"),
            halvane.TimetableRules(fajer_angle=math.nan),
            halvane.TimetableRules(rounding=("sideways",) * 6),
            halvane.TimetableRules(added=(1, 2)),
            halvane.TimetableRules(high_latitude="moon"),
            halvane.TimetableRules(jumuah=(1.5,)),
            halvane.TimetableRules(iqamah=(("after", 10**20, False),) * 6),
        ):
            with self.subTest(rules=rules), self.assertRaises(halvane.BadArgument):
                halvane.timetable((2025, 1, 1), (2025, 1, 1), CAIRO, 2, rules)
        with self.assertRaisesRegex(halvane.BadArgument, "umm-al-qura"):
            halvane.rules_of_authority("nobody")
        with self.assertRaises(halvane.BadArgument):
            halvane.timetables((2025, 1, 1), (2025, 1, 1), [CAIRO])
        with self.assertRaises(halvane.BadArgument):
            halvane.timetable((2025, 1, 2), (2025, 1, 1), CAIRO, 2)

    def test_no_choices(self):
        with self.assertRaises(halvane.BadArgument):
            halvane.hijri_months("nobody", (1446, 9), (1446, 10))
        with self.assertRaises(halvane.BadArgument):
            halvane.hijri_months("umm-al-qura", (1446,), (1446, 10))
        with self.assertRaises(halvane.BadArgument):
            halvane.hijri_months(halvane.HijriChoices(seen_class=1.5), (1446, 9), (1446, 10))
        with self.assertRaises(halvane.BadArgument):
            halvane.crescent_map((2025, 3, 1), step=0)
        with self.assertRaises(halvane.BadArgument):
            halvane.crescent("half", (2025, 3, 1), CAIRO, 2)

    def test_the_rows_of_arrays_are_those_of_a_timetable(self):
        rules = halvane.rules_of_authority("umm-al-qura")
        arrays = halvane.timetables((2025, 3, 1), (2025, 3, 9), [(CAIRO, "Africa/Cairo"), (NORTH, 1)], rules)
        self.assertEqual(len(arrays), 2)
        rows = halvane.timetable((2025, 3, 1), (2025, 3, 9), CAIRO, "Africa/Cairo", rules)
        self.assertEqual(arrays.days(0), rows)
        self.assertEqual(arrays.unix_seconds[0, 4, arrays.column("maghreb")], rows[4].maghreb.unix_seconds)
        self.assertEqual(rows[4].maghreb.datetime().timestamp(), rows[4].maghreb.unix_seconds)
        self.assertEqual(len(halvane.timetables((2025, 3, 1), (2025, 3, 9), [], rules)), 0)


class Errors(unittest.TestCase):
    def test_kinds(self):
        with self.assertRaises(ValueError) as bad:
            halvane.sun(1e9)
        self.assertEqual(bad.exception.kind, "bad_argument")
        with tempfile.TemporaryDirectory() as folder:
            with self.assertRaisesRegex(halvane.Error, "termfull.vsk") as missing:
                halvane.Engine(folder)
            self.assertEqual(missing.exception.kind, halvane.ErrorKind.MISSING_FILE)
            for name in TEXTS:
                (pathlib.Path(folder) / f"{name}.vsk").write_bytes(b"no series\n")
            with self.assertRaises(halvane.Error) as damaged:
                halvane.Engine(folder)
            self.assertEqual(damaged.exception.kind, "damaged_file")
        with self.assertRaises(halvane.Error) as none:
            halvane.prayer_times((2025, 6, 21), (80, 0), 0, halvane.ReportRules(high_latitude=True))
        self.assertEqual(none.exception.kind, "no_value")
        self.assertNotIsInstance(none.exception, ValueError)

    def test_errors_pickle(self):
        for error in (halvane.BadArgument("So not."), halvane.Error("Gone.", halvane.ErrorKind.MISSING_FILE)):
            again = pickle.loads(pickle.dumps(error))
            self.assertEqual((type(again), str(again), again.kind), (type(error), str(error), error.kind))


class Progress(unittest.TestCase):
    def work(self, progress):
        return halvane.crescent_map((2025, 3, 1), step=2, progress=progress)

    def test_is_told_and_may_end_the_work(self):
        told = []
        self.assertEqual(self.work(told.append), self.work(None))
        self.assertGreater(len(told), 3)
        self.assertEqual(told, sorted(told))
        with self.assertRaises(halvane.Error) as ended:
            self.work(lambda percent: False)
        self.assertEqual(ended.exception.kind, "cancelled")

    def test_its_own_exception_comes_out(self):
        def fails(percent):
            raise KeyError("mine")

        with self.assertRaisesRegex(KeyError, "mine"):
            self.work(fails)
        with self.assertRaises(TypeError):
            self.work(lambda: True)


RESULTS = {
    "sun": lambda: halvane.sun(2451545.0),
    "suns": lambda: halvane.sun_seen(np.array([2451545.0, 2451546.0]), CAIRO),
    "moon": lambda: halvane.moon_seen(2451545.0, CAIRO),
    "light": lambda: halvane.moon_light(2451545.0),
    "dates": lambda: halvane.civil_date(np.array([2451545.0])),
    "day": lambda: halvane.sun_day((2025, 6, 21), NORTH, "Europe/Oslo"),
    "prayers": lambda: halvane.prayer_times((2025, 6, 21), NORTH, "Europe/Oslo"),
    "rules": lambda: halvane.rules_of_authority("umm-al-qura"),
    "timetable": lambda: halvane.timetable((2025, 6, 20), (2025, 6, 21), NORTH, "Europe/Oslo"),
    "timetables": lambda: halvane.timetables((2025, 6, 20), (2025, 6, 21), [(NORTH, "Europe/Oslo")]),
    "phases": lambda: halvane.moon_phases(2451545, 2451645),
    "crescent": lambda: halvane.crescent("new", (2024, 3, 11), CAIRO, 2),
    "circumstances": lambda: halvane.crescent_circumstances((2024, 3, 11), CAIRO, 2),
    "map": lambda: halvane.crescent_map((2024, 3, 11), step=20),
    "months": lambda: halvane.hijri_months("umm-al-qura", (1446, 9), (1446, 10)),
    "criteria": halvane.criteria,
}


class Pickling(unittest.TestCase):
    def test_results_pickle_copy_and_compare(self):
        for name, function in RESULTS.items():
            with self.subTest(name):
                made = function()
                self.assertEqual(pickle.loads(pickle.dumps(made)), made)
                self.assertEqual(copy.deepcopy(made), made)
                self.assertEqual(function(), made)
        self.assertNotEqual(halvane.sun(2451545.0), halvane.sun(2451546.0))
        self.assertNotEqual(RESULTS["suns"](), halvane.sun_seen(np.array([2451545.0, 2451547.0]), CAIRO))
        self.assertNotEqual(halvane.sun(2451545.0), None)
        self.assertEqual(len({RESULTS["day"](), RESULTS["day"]()}), 1)

    def test_results_are_constant(self):
        with self.assertRaises(AttributeError):
            halvane.sun(2451545.0).longitude = 1

    def test_functions_pickle(self):
        functions = [value for value in map(vars(halvane).get, halvane.__all__) if callable(value)]
        self.assertGreater(len(functions), 90)
        for function in functions:
            self.assertIs(pickle.loads(pickle.dumps(function)), function)

    def test_an_engine_pickles_as_its_folder(self):
        engine = halvane.Engine(DATA)
        again = pickle.loads(pickle.dumps(engine))
        self.assertEqual(again.folder, str(DATA.resolve()))
        self.assertIs(pickle.loads(pickle.dumps(again)), again)
        self.assertLess(len(pickle.dumps(engine)), 300)
        self.assertEqual(halvane.sun(2451545.0, engine=again), halvane.sun(2451545.0))
        own = halvane.shared_engine()
        self.assertIs(pickle.loads(pickle.dumps(own)), own)

    def test_an_engine_of_data(self):
        engine = halvane.Engine.of_data(**TEXTS)
        self.assertEqual(halvane.moon(2451545.0, engine=engine), halvane.moon(2451545.0))
        with self.assertRaisesRegex(halvane.Error, "folder"):
            pickle.dumps(engine)
        rule = next(rule.key for rule in halvane.hijri_rules() if "Americas" in rule.told)
        with self.assertRaises(halvane.Error) as no_land:
            halvane.hijri_months(rule, (1446, 9), (1446, 9), engine=engine)
        self.assertEqual(no_land.exception.kind, "missing_file")
        self.assertEqual(len(halvane.hijri_months(rule, (1446, 9), (1446, 9))), 1)
        with self.assertRaises(halvane.Error):
            halvane.Engine.of_data(**{**TEXTS, "elp": b"no"})

    def test_other_processes_give_the_same(self):
        moments = [2451545.0 + day for day in range(20)]
        for method in ("spawn", "fork"):
            with multiprocessing.get_context(method).Pool(2) as pool:
                self.assertEqual(pool.map(halvane.moon, moments), [halvane.moon(moment) for moment in moments])


class Example(unittest.TestCase):
    def test_first_lines(self):
        program = pathlib.Path(__file__).parents[2] / "examples/firstlines/first.py"
        printed = subprocess.run(
            [sys.executable, program, "2025-03-20"], check=True, capture_output=True, text=True
        ).stdout
        # The authority's angles through the prayer report, which takes its own way.
        rules = halvane.ReportRules(fajer_angle=19.5, isha_angle=17.5)
        times = halvane.prayer_times((2025, 3, 20), (30.05, 31.25), "Africa/Cairo", rules)
        self.assertEqual(printed.split(), [word for name, time in times.items() for word in (name, str(time))])
        today = subprocess.run([sys.executable, program], check=True, capture_output=True, text=True).stdout
        self.assertEqual(len(today.splitlines()), 6)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
