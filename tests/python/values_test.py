#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""values_test.py CALLS DATA: the package gives what the C++ interface gives, to the last bit.

CALLS, a program in C++, prints seeded calls of every function with all they gave; each is made here again.
"""

import collections
import dataclasses
import math
import subprocess
import sys
import unittest

import numpy as np

import halvane
from halvane._words import Word

CALLS, DATA = sys.argv[1:3]


def flat(value):
    """Every member of a value as the program prints it."""
    if isinstance(value, halvane.ClockTime):
        value = (value.hours, value.missing)
    if value is None or isinstance(value, str) and not value:
        yield "-"
    elif isinstance(value, Word):
        yield str(value.number)
    elif isinstance(value, str):
        yield value.replace(" ", "_").replace("\n", "_")
    elif isinstance(value, (bool, np.bool_)):
        yield str(int(value))
    elif isinstance(value, (float, np.floating)):
        yield "nan" if math.isnan(value) else float(value).hex()
    elif isinstance(value, (int, np.integer)):
        yield str(int(value))
    elif isinstance(value, np.ndarray):
        for member in value.ravel():
            yield from flat(member)
    elif isinstance(value, (tuple, list)):
        for member in value:
            yield from flat(member)
    elif dataclasses.is_dataclass(value):
        for field in dataclasses.fields(value):
            yield from flat(getattr(value, field.name))
    else:
        raise TypeError(type(value))


def plain(token):
    """A token with a number written in one way."""
    return float.fromhex(token).hex() if "0x" in token else token


class Given:
    """What a call was given, taken from its line one after the other."""

    def __init__(self, tokens):
        self.tokens = collections.deque(tokens)

    def text(self):
        return self.tokens.popleft()

    def number(self):
        return float.fromhex(self.text())

    def whole(self):
        return int(self.text())

    def flag(self):
        return bool(self.whole())

    def word(self, kind):
        return kind.all()[self.whole()]

    def date(self):
        return self.whole(), self.whole(), self.whole()

    def numbers(self, count):
        return [self.number() for _ in range(count)]

    def observer(self):
        return halvane.Observer(*self.numbers(3))

    def horizon(self):
        return halvane.Horizon(self.flag(), *self.numbers(2))

    def instant(self):
        return halvane.Instant(self.number(), self.word(halvane.Scale))

    def accuracy(self):
        return self.word(halvane.Accuracy)

    def report_rules(self):
        return halvane.ReportRules(
            *self.numbers(2), self.flag(), *self.numbers(5), horizon=self.horizon(), high_latitude=self.flag()
        )

    def timetable_rules(self):
        return halvane.TimetableRules(
            *self.numbers(5),
            self.flag(),
            self.flag(),
            tuple(self.numbers(6)),
            tuple(self.word(halvane.Rounding) for _ in range(6)),
            self.word(halvane.HighLatitudeRule),
            self.word(halvane.RuleUse),
            self.number(),
            self.flag(),
            self.number(),
            self.flag(),
            tuple(halvane.Iqamah(self.word(halvane.IqamahKind), self.whole(), self.flag()) for _ in range(6)),
            (self.whole(), self.whole()),
        )

    def hijri_choices(self):
        choices = halvane.HijriChoices(
            self.text(), self.observer(), self.text(), before=self.word(halvane.SeenBefore)
        )
        announced, year, month = self.whole(), self.whole(), self.whole()
        if announced:
            start = halvane.AnnouncedStart(year, month, halvane.tabular_civil((year, month, 1)), "council")
            choices = dataclasses.replace(choices, announced=(start,))
        return choices, (year, month)


def tables(given):
    first, last, observer, zone, hours = (
        given.date(),
        given.date(),
        given.observer(),
        given.text(),
        given.number(),
    )
    made = halvane.timetables(first, last, [(observer, zone), ((21.42, 39.83, 300), hours)], given.timetable_rules())
    return [made.days(place) for place in range(len(made))]


def phases(given):
    start, end, topocentric, observer = given.number(), given.number(), given.flag(), given.observer()
    return halvane.moon_phases(start, end, observer=observer if topocentric else None)


def conjunction(given):
    near, topocentric, observer = given.instant(), given.flag(), given.observer()
    return halvane.conjunction(near, observer=observer if topocentric else None)


def crescent(given):
    arguments = given.word(halvane.CrescentKind), given.date(), given.observer(), given.text()
    return halvane.crescent(*arguments, limits=given.numbers(5))


def circumstances(given):
    arguments = given.date(), given.observer(), given.number()
    return halvane.crescent_circumstances(
        *arguments,
        halvane.CircumstanceChoices(
            given.word(halvane.CrescentKind),
            given.flag(),
            given.whole(),
            given.word(halvane.ObservationTime),
            given.number(),
            given.horizon(),
        ),
    )


def crescent_map(given):
    kind, date, criterion, limits = given.word(halvane.CrescentKind), given.date(), given.text(), given.numbers(5)
    west, south, east, north, step = given.numbers(5)
    return halvane.crescent_map(
        date,
        kind=kind,
        criterion=criterion,
        limits=limits,
        west=west,
        south=south,
        east=east,
        north=north,
        step=step,
    )


def months(given):
    choices, (year, month) = given.hijri_choices()
    return halvane.hijri_months(choices, (year, month), (year, month + 1))


def body_day(function):
    return lambda g: function(g.date(), g.observer(), g.text(), horizon=g.horizon())


def direction(g):
    date, observer, zone, azimuth, shadow = g.date(), g.observer(), g.text(), g.number(), g.flag()
    return halvane.sun_in_direction(date, observer, zone, azimuth, shadow=shadow, horizon=g.horizon())


AGAIN = {
    "julian_day": lambda g: halvane.julian_day(g.date()),
    "civil_date": lambda g: halvane.civil_date(g.number()),
    "delta_t": lambda g: halvane.delta_t(g.number()),
    "ut1": lambda g: g.instant().ut1,
    "dynamical": lambda g: g.instant().dynamical,
    "hours_ahead": lambda g: halvane.hours_ahead(g.text(), g.date()),
    "sun": lambda g: halvane.sun(g.instant(), accuracy=g.accuracy()),
    "moon": lambda g: halvane.moon(g.instant(), accuracy=g.accuracy()),
    "sun_seen": lambda g: halvane.sun_seen(g.instant(), g.observer(), accuracy=g.accuracy()),
    "moon_seen": lambda g: halvane.moon_seen(g.instant(), g.observer(), accuracy=g.accuracy()),
    "moon_light": lambda g: halvane.moon_light(g.instant()),
    "refracted": lambda g: halvane.refracted(g.number()),
    "qiblah_direction": lambda g: halvane.qiblah_direction(g.number(), g.number()),
    "conjunction": conjunction,
    "sun_day": body_day(halvane.sun_day),
    "moon_day": body_day(halvane.moon_day),
    "twilight": lambda g: halvane.twilight(g.date(), g.observer(), g.text(), g.number(), horizon=g.horizon()),
    "sun_in_direction": direction,
    "altitude_passages": lambda g: halvane.altitude_passages(
        g.word(halvane.Body), g.number(), g.number(), g.number(), g.observer()
    ),
    "moon_phases": phases,
    "report_rules": lambda g: halvane.ReportRules(),
    "timetable_rules": lambda g: halvane.TimetableRules(),
    "authorities": lambda g: halvane.authorities(),
    "rules_of_authority": lambda g: halvane.rules_of_authority(g.text()),
    "prayer_times": lambda g: halvane.prayer_times(g.date(), g.observer(), g.text(), g.report_rules()),
    "timetable": lambda g: halvane.timetable(g.date(), g.date(), g.observer(), g.text(), g.timetable_rules()),
    "timetables": tables,
    "criteria": lambda g: halvane.criteria(),
    "crescent": crescent,
    "crescent_circumstances": circumstances,
    "crescent_map": crescent_map,
    "hijri_rules": lambda g: halvane.hijri_rules(),
    "hijri_months": months,
    "hijri_date": lambda g: halvane.hijri_date(g.hijri_choices()[0], g.date()),
    "civil_date_of": lambda g: halvane.civil_date_of(g.hijri_choices()[0], g.date()),
    "tabular_hijri": lambda g: halvane.tabular_hijri(g.date()),
    "tabular_civil": lambda g: halvane.tabular_civil(g.date()),
}


def made_again(name, tokens):
    given = Given(tokens)
    try:
        made = list(flat(AGAIN[name](given)))
    except halvane.Error as error:
        made = [f"error{1 + list(halvane.ErrorKind).index(error.kind)}"]
    assert not given.tokens, (name, given.tokens)
    return made


def lines():
    printed = subprocess.run([CALLS, DATA], check=True, capture_output=True, text=True, encoding="utf-8").stdout
    for line in printed.splitlines():
        given, _, gave = line.partition(" |")
        name, *tokens = given.split()
        yield name, tokens, gave.split()


class Values(unittest.TestCase):
    def test_every_call_gives_what_the_library_gives(self):
        counted = collections.Counter()
        numbers = errors = 0
        for name, tokens, gave in lines():
            self.assertEqual(made_again(name, tokens), [plain(token) for token in gave], (name, tokens))
            refused = gave[:1] == ["error1"]
            counted[name] += not refused
            numbers += sum("0x" in token for token in gave)
            errors += refused
        self.assertEqual({name for name, calls in counted.items() if calls}, set(AGAIN))
        self.assertGreater(numbers, 10000)
        self.assertGreater(errors, 10)

    def test_arrays_give_what_single_calls_give(self):
        days = np.linspace(2415020.5, 2488070.5, 60).reshape(6, 10)
        cairo = (30.05, 31.25, 70)
        for accuracy in halvane.Accuracy:
            if accuracy is not halvane.Accuracy.FAST:
                self.equal_columns(lambda when: halvane.sun(when, accuracy=accuracy), days)
                self.equal_columns(lambda when: halvane.moon(when, accuracy=accuracy), days)
            self.equal_columns(lambda when: halvane.sun_seen(when, cairo, accuracy=accuracy), days)
            self.equal_columns(lambda when: halvane.moon_seen(when, cairo, accuracy=accuracy), days)
        self.equal_columns(halvane.moon_light, days)
        self.equal_columns(halvane.delta_t, days)
        self.equal_columns(halvane.civil_date, days)
        self.equal_columns(halvane.refracted, np.linspace(-4, 90, 60).reshape(6, 10))
        self.equal_columns(lambda x: halvane.qiblah_direction(x, 2 * x), np.linspace(-89, 89, 60).reshape(6, 10))

    def equal_columns(self, function, values):
        whole = [column for column in arrays(function(values))]
        for index in np.ndindex(values.shape):
            one = list(flat(function(values[index])))
            self.assertEqual([value for column in whole for value in flat(column[index])], one)
        self.assertEqual({column.shape for column in whole}, {values.shape})


def arrays(value):
    """The arrays of a result, in the order of its members."""
    if isinstance(value, np.ndarray):
        return [value]
    return [column for field in dataclasses.fields(value) for column in arrays(getattr(value, field.name))]


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
