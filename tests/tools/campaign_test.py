#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The judges of the campaign by themselves: each passes what is sound and finds what is not."""

import itertools
import pathlib
import signal
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools/campaign"))

import likeness
import pictures
import programs
import sky
import storage
from ground import Ended, Outcome, table


class Calendars(unittest.TestCase):
    def sound_rows(self, first, last):
        hijri = itertools.islice(sky.hijri_dates(), first - sky.FIRST_HIJRI_DAY, None)
        return [sky.sound_day(number, civil, h) for (number, civil), h in zip(sky.civil_dates(first, last), hijri)]

    def test_known_days(self):
        # Reingold and Dershowitz, Calendrical Calculations: the epoch; the Gregorian reform; J2000 (Meeus).
        self.assertEqual(next(sky.civil_dates(1948440, 1948440))[1], (622, 7, 16))
        dates = dict(sky.civil_dates(2299160, 2299161))
        self.assertEqual(dates, {2299160: (1582, 10, 4), 2299161: (1582, 10, 15)})
        self.assertEqual(dict(sky.civil_dates(2451545, 2451545)), {2451545: (2000, 1, 1)})
        self.assertEqual(sky.WEEKDAYS[2451545 % 7], "Saturday")
        self.assertEqual(next(sky.civil_dates(1721058, 1721058))[1], (0, 1, 1))
        self.assertEqual(dict(sky.civil_dates(1842713, 1842713)), {1842713: (333, 1, 27)})  # Meeus, example 7.b

    def test_sound_days_pass(self):
        first, last = 2299100, 2299300
        self.assertEqual(sky.judge_days(self.sound_rows(first, last), first, last), (201, []))

    def test_faults_are_found(self):
        first, last = 2451500, 2451600
        for column in range(15):
            rows = self.sound_rows(first, last)
            fields = rows[50].split(",")
            fields[column] = str(float(fields[column]) + 1)
            rows[50] = ",".join(fields)
            self.assertTrue(sky.judge_days(rows, first, last)[1], f"column {column}")
        rows = self.sound_rows(first, last)
        rows[50] = rows[50].replace(sky.WEEKDAYS[2451550 % 7], "Someday")
        self.assertTrue(sky.judge_days(rows, first, last)[1])
        del rows[50]
        self.assertTrue(sky.judge_days(rows, first, last)[1], "a day is left out")
        self.assertTrue(sky.judge_days(self.sound_rows(first, last)[:-1], first, last)[1], "the last day is missing")


# Times of the Astronomical Almanac's kind: Greenwich, 21 June 2000, by the low-precision Sun itself.
GREENWICH_DAY = 2451716.5


class Globe(unittest.TestCase):
    def row(self, **changes):
        """A day at 30 N on the meridian, its times found by the low-precision formulae themselves."""
        latitude = 30.0

        def search(wanted, first, last):
            low, high = first, last
            for _ in range(60):
                middle = (low + high) / 2
                jd = GREENWICH_DAY + middle / 24
                right_ascension, declination = sky.sun(jd)
                height = sky.altitude(latitude, declination, sky.hour_angle(jd, 0, right_ascension))
                low, high = (middle, high) if (height < wanted) == (first < 12) else (low, middle)
            return low

        def text(time):
            seconds = round(time * 3600)
            return f"{seconds // 3600:02}:{seconds // 60 % 60:02}:{seconds % 60:02}"

        low, high = 11.5, 12.5
        for _ in range(60):
            middle = (low + high) / 2
            jd = GREENWICH_DAY + middle / 24
            low, high = (middle, high) if sky.hour_angle(jd, 0, sky.sun(jd)[0]) < 0 else (low, middle)
        noon = low
        highest = sky.altitude(latitude, sky.sun(GREENWICH_DAY + noon / 24)[1], 0)
        shadow = 1 + 1 / sky.math.tan(sky.math.radians(highest))
        aser = search(sky.math.degrees(sky.math.atan(1 / shadow)), 12.2, 23)
        times = {
            "Fajer": text(search(-18, 0, noon)),
            "Shuroq": text(search(-0.833, 0, noon)),
            "Dhohur": text(noon),
            "Aser": text(aser),
            "Maghreb": text(search(-0.833, noon + 0.2, 24)),
            "Isha": text(search(-18, noon + 0.2, 24)),
            "moonrise": "----",
            "transit": "----",
            "moonset": "----",
            **changes,
        }
        return f"0,{latitude},0,{GREENWICH_DAY}," + ",".join(times.values())

    def judged(self, **changes):
        return sky.judge_place_day(self.row(**changes), True)[0]

    def test_a_sound_day_passes(self):
        self.assertEqual(self.judged(), [])

    def test_faults_are_found(self):
        for name in sky.PRAYERS:
            for text in ("nan", "25:00:00", "", "inf", "12:60:00", "-1:00:00"):
                self.assertTrue(self.judged(**{name: text}), f"{name} {text!r}")
        self.assertTrue(self.judged(Shuroq="05:30:00"), "the Sun is up")
        self.assertTrue(self.judged(Isha="20:00:00"), "it is not dark yet")
        self.assertTrue(self.judged(Dhohur="12:10:00"), "past the meridian")
        self.assertTrue(self.judged(Aser="15:00:00"), "a shorter shadow")
        self.assertTrue(self.judged(moonrise="12:00:00") or self.judged(moonrise="18:00:00"), "no moonrise")
        self.assertTrue(self.judged(moonset="nan"))
        self.assertTrue(self.judged(transit="00:00:00") or self.judged(transit="12:00:00"), "no transit")

    def test_a_moon_of_one_minute_is_a_limit_in_the_far_north_alone(self):
        moment = {"moonrise": "00:10:00", "transit": "00:10:00", "moonset": "00:10:00"}
        row = self.row(**moment)
        self.assertTrue(sky.judge_place_day(row, True)[0])
        self.assertEqual(len(sky.judge_place_day(row.replace("0,30.0,", "0,67.0,", 1), True)[1]), 1)
        self.assertTrue(sky.is_one_moment("00:10:00", "00:10:00", "00:10:00"))
        self.assertFalse(sky.is_one_moment("00:10:00", "00:10:00", "00:20:00"))
        self.assertFalse(sky.is_one_moment("----", "00:10:00", "00:10:00"))

    def test_disorder_is_found_and_the_limit_is_told(self):
        times = {"Fajer": 3, "Shuroq": 5, "Dhohur": 12, "Aser": 11.5, "Maghreb": 19, "Isha": 21}
        self.assertEqual(sky.judge_order(times, 30), (["Aser comes before Dhohur"], []))
        self.assertEqual(sky.judge_order(times, 76), ([], ["Aser comes before Dhohur"]))
        times["Aser"] = 15
        self.assertEqual(sky.judge_order(times, 30), ([], []))
        times["Fajer"] = 5.5
        self.assertEqual(sky.judge_order(times, 30), (["Shuroq comes before Fajer"], []))


class Phases(unittest.TestCase):
    def rows(self):
        return [f"{quarter / 4:.2f},{sky.mean_phase(quarter / 4):.9f}" for quarter in range(0, 200)]

    def test_the_mean_phase_is_meeus_example(self):
        # Astronomical Algorithms, example 49.a: k = -283, JDE 2443192.94102.
        self.assertAlmostEqual(sky.mean_phase(-283), 2443192.94102, places=5)

    def test_sound_phases_pass(self):
        self.assertEqual(sky.judge_phases(self.rows())[1], [])

    def test_faults_are_found(self):
        rows = self.rows()
        self.assertTrue(sky.judge_phases(rows[:50] + rows[51:])[1], "one is left out")
        self.assertTrue(sky.judge_phases(rows[:50] + rows[49:])[1], "one stands twice")
        moved = rows.copy()
        moved[50] = f"{12.5:.2f},{sky.mean_phase(12.5) + 1:.9f}"
        self.assertTrue(sky.judge_phases(moved)[1], "one is a day late")

    def test_tables(self):
        moments = [(k / 4, sky.mean_phase(k / 4)) for k in range(-8, 120)]
        dates = sky.calendar_of(int(moments[0][1]) - 1, int(moments[-1][1]) + 2)
        rows = []
        for k, moment in moments:
            whole = sky.math.floor(moment + 0.5)
            year, month, day = dates[whole]
            minutes = round((moment + 0.5 - whole) * 1440)
            column = " " * (1 + 28 * (int(4 * k) % 4))
            rows.append(f"{year},{column}{day:02}/{month:02}/{year:04}  {minutes // 60:02}:{minutes % 60:02}")
        year_2001 = [row for row in rows if row.startswith("2001,")]
        self.assertEqual(sky.judge_tables(year_2001, moments, range(2001, 2002)), (len(year_2001), []))
        self.assertTrue(sky.judge_tables(year_2001[1:], moments, range(2001, 2002))[1], "one is missing")
        other = [year_2001[0].replace("2001,", "2001," + " " * 28)] + year_2001[1:]
        self.assertTrue(sky.judge_tables(other, moments, range(2001, 2002))[1], "one stands in another column")
        late = [year_2001[0][:-2] + f"{(int(year_2001[0][-2:]) + 5) % 60:02}"] + year_2001[1:]
        self.assertTrue(sky.judge_tables(late, moments, range(2001, 2002))[1], "one is late")


class Maps(unittest.TestCase):
    def test_points(self):
        self.assertEqual(sky.judge_map_point("m,0,0,3,3,3,3,3,3"), [])
        self.assertEqual(sky.judge_map_point("m,0,0,3,2,2,3,2,2"), [], "at a border")
        self.assertTrue(sky.judge_map_point("m,0,0,3,2,2,2,2,2"))


def ended(status, err="", peak=10):
    return Ended(status, "", err, 0.1, peak)


class Storage(unittest.TestCase):
    def judged(self, end, fatal=True, kept=True):
        return storage.judge_damaged("pref.vsk", "empty", end, fatal, kept)

    def test_words_that_name_the_file_pass(self):
        self.assertEqual(self.judged(ended(1, "pref.vsk: empty")), [])
        self.assertEqual(self.judged(ended(0), fatal=False), [])

    def test_faults_of_reading_are_found(self):
        self.assertTrue(self.judged(ended(None)), "it hangs")
        self.assertTrue(self.judged(ended(-signal.SIGSEGV)), "it crashes")
        self.assertTrue(self.judged(ended(0)), "it takes what cannot be read")
        self.assertTrue(self.judged(ended(1, "failed")), "no name")
        self.assertTrue(self.judged(ended(1)), "no words")
        self.assertTrue(self.judged(ended(134, "pref.vsk: Aborted")), "an odd status")
        self.assertTrue(self.judged(ended(1, "pref.vsk: big", peak=900)), "it eats memory")
        self.assertTrue(self.judged(ended(1, "pref.vsk: empty"), kept=False), "the earlier report is lost")
        printed = Ended(0, "Fajer nan\n", "", 0.1, 10)
        self.assertTrue(self.judged(printed, fatal=False), "a time that is no number")

    def test_faults_of_writing_are_found(self):
        self.assertEqual(storage.judge_full("prayer", ended(1, "full"), b"a", b"a", []), [])
        self.assertTrue(storage.judge_full("prayer", ended(0), b"a", b"a", []), "no word of it")
        self.assertTrue(storage.judge_full("prayer", ended(1), b"a", b"a", []), "no words")
        self.assertTrue(storage.judge_full("prayer", ended(-signal.SIGXFSZ), b"a", b"a", []))
        self.assertTrue(storage.judge_full("prayer", ended(1, "full"), b"a", b"", []), "the earlier file is lost")
        self.assertTrue(storage.judge_full("prayer", ended(1, "full"), b"a", b"a", ["a.XYZ"]), "a stray file")

    def test_faults_of_kills_are_found(self):
        whole = [b"old", b"new one"]
        self.assertEqual(storage.judge_killed("x", b"old", whole, ["x.tmp"], signal.SIGKILL), [])
        self.assertEqual(storage.judge_killed("x", b"new one", whole, [], signal.SIGTERM), [])
        self.assertTrue(storage.judge_killed("x", b"new", whole, [], signal.SIGKILL), "torn")
        self.assertTrue(storage.judge_killed("x", b"", whole, [], signal.SIGKILL), "emptied")
        self.assertTrue(storage.judge_killed("x", None, whole, [], signal.SIGKILL), "gone")
        self.assertTrue(storage.judge_killed("x", b"old", whole, ["x.tmp"], signal.SIGTERM), "a stray file")

    def test_lost_and_double_places_are_found(self):
        self.assertEqual(storage.judge_places(["a", "b", "c"], ["a", "b"]), [])
        self.assertTrue(storage.judge_places(["a"], ["a", "b"]))
        self.assertTrue(storage.judge_places(["a", "a"], ["a"]))


def gif(codes, end=b"\x00;"):
    """A picture of two by two pixels in black, red, green and blue; the codes are packed already."""
    palette = bytes((0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255))
    head = b"GIF89a" + bytes((2, 0, 2, 0, 0x81, 0, 0)) + palette
    return head + bytes((0x2C, 0, 0, 0, 0, 2, 0, 2, 0, 0, 2, len(codes))) + codes + end


class Pictures(unittest.TestCase):
    # Clear, 0, 1, 2, 3, end: codes of 3 bits, of 4 once seven and more stand for something.
    codes = (4 | 0 << 3 | 1 << 6 | 2 << 9 | 3 << 12 | 5 << 16).to_bytes(3, "little")

    def test_reads_a_picture(self):
        width, height, pixels = pictures.read_gif(gif(self.codes))
        self.assertEqual((width, height), (2, 2))
        self.assertEqual(pixels, bytes((0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255)))

    def test_faults_are_found(self):
        sound = gif(self.codes)
        for length in range(len(sound)):
            with self.assertRaises(pictures.NotAPicture, msg=f"cut to {length}"):
                pictures.read_gif(sound[:length])
        for broken in (sound + b"x", b"JIF" + sound[3:], gif(b"\x44\x05"), gif(b"\xff\xff")):
            with self.assertRaises(pictures.NotAPicture):
                pictures.read_gif(broken)

    def test_other_readers(self):
        self.assertEqual(pictures.judge_reading("x", b"abc", b"abc", ended(0)), [])
        self.assertEqual(pictures.judge_reading("x", b"abc", None, ended(0)), [])
        self.assertTrue(pictures.judge_reading("x", b"abc", b"abd", ended(0)))
        self.assertTrue(pictures.judge_reading("x", b"abc", b"abc", ended(1, "bad")))
        self.assertTrue(pictures.judge_reading("x", b"abc", b"abc", ended(0, "corrupt")))


class Programs(unittest.TestCase):
    def test_commands(self):
        self.assertEqual(programs.judge_command(["today"], Ended(0, "Fajer 03:00", "", 0.1, 5)), [])
        self.assertEqual(programs.judge_command(["x"], ended(2, "no task x")), [])
        self.assertTrue(programs.judge_command(["x"], ended(2)), "no words")
        self.assertTrue(programs.judge_command(["x"], ended(-signal.SIGABRT)))
        self.assertTrue(programs.judge_command(["x"], ended(None)))
        self.assertTrue(programs.judge_command(["x"], ended(77, "odd")))
        self.assertTrue(programs.judge_command(["x"], Ended(0, "Fajer nan", "", 0.1, 5)))
        self.assertEqual(programs.judge_command(["map", "--csv=inf"], Ended(0, "/folder/inf\n", "", 0.1, 5)), [])
        self.assertTrue(programs.judge_command(["nan"], Ended(0, "Fajer nan", "", 0.1, 5)))

    def test_soaks(self):
        def told(words, status=0):
            return programs.judge_soak(Ended(status, words, "", 1, 50))[0]

        self.assertEqual(told("soak: 900 keys, 40 panels, 3 cancels, 50 MB then 60 MB\n"), [])
        self.assertTrue(told("soak: 900 keys, 40 panels, 3 cancels, 50 MB then 600 MB\n"), "it leaks")
        self.assertTrue(told("soak: 900 keys, 0 panels, 3 cancels, 50 MB then 60 MB\n"), "nothing opened")
        self.assertTrue(told(""), "no last line")
        self.assertTrue(told("soak: 900 keys, 40 panels, 3 cancels, 50 MB then 60 MB\n", -signal.SIGSEGV))

    def test_targets(self):
        self.assertEqual(programs.judge_target("pref", ended(0), None), [])
        self.assertTrue(programs.judge_target("pref", ended(-signal.SIGABRT), None))


class Likeness(unittest.TestCase):
    results = {"prayer": (0, "path", b"rows"), "moon": (0, "path", b"more"), "picture": b"GIF"}

    def test_differences_are_found(self):
        self.assertEqual(likeness.judge_alike("clang", self.results, dict(self.results)), [])
        for task in self.results:
            other = {**self.results, task: b"else" if task == "picture" else (0, "path", b"rowz")}
            self.assertEqual(likeness.judge_alike("clang", self.results, other), [f"clang: {task} differs"])
        panels = {"prayer.out": b"rows", "mresults.out": b"more"}
        self.assertEqual(likeness.judge_panels("C", self.results, panels), [])
        self.assertTrue(likeness.judge_panels("C", self.results, {**panels, "prayer.out": b"1.234,5"}))
        self.assertTrue(likeness.judge_panels("C", self.results, ended(1, "failed")))

    def test_a_run_that_fails_is_found(self):
        self.assertEqual(likeness.judge_whole(self.results), [])
        self.assertTrue(likeness.judge_whole({"prayer": (-11, "", b"")}))


class Table(unittest.TestCase):
    def test_counts_findings(self):
        outcome = Outcome("two", "two", ["one", "another"])
        self.assertEqual(table([("thing", outcome)])[-1], "| thing | two | two | 2 |")


if __name__ == "__main__":
    unittest.main()
