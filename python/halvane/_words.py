# SPDX-License-Identifier: MIT
"""Words for choices and states. Each is a text too: `"complete"` may stand for `Accuracy.COMPLETE`."""

from __future__ import annotations

from enum import StrEnum
from typing import Self, TypeVar

from halvane._errors import BadArgument


class Word(StrEnum):
    """A word whose members stand in the order of the engine's numbers, from 0."""

    @property
    def number(self) -> int:
        return self.all().index(self)

    @classmethod
    def all(cls) -> tuple[Self, ...]:
        """Every word, in order."""
        return tuple(cls.__members__.values())


SomeWord = TypeVar("SomeWord", bound=Word)


class Accuracy(Word):
    """How much of the theories is computed."""

    COMPLETE = "complete"  #: Sun: the whole VSOP87 series; Moon: the ELP-2000/85 tables
    MEDIUM = "medium"  #: Sun: its 248 largest terms; Moon: as complete
    LOW = "low"  #: Meeus's low-precision Sun and periodic terms of the Moon
    FAST = "fast"  #: the same with four terms of the nutation; seen places alone


class Scale(Word):
    """The clock that a Julian day counts on."""

    UT1 = "ut1"  #: the turning Earth's, for which every civil clock's Universal Time is taken
    DYNAMICAL = "dynamical"  #: that of the theories (TDT)


class Body(Word):
    SUN = "sun"
    MOON = "moon"


class Missing(Word):
    """Why there is no time."""

    NO = "no"  #: there is one
    NO_EVENT = "no_event"  #: the body does not pass its altitude in this direction on this day
    UP = "up"  #: it stays above all day
    DOWN = "down"  #: it stays below all day
    BRIGHT = "bright"  #: the Sun does not go so far below the horizon
    DARK = "dark"  #: it stays below it all day


class Phase(Word):
    NEW_MOON = "new_moon"
    FIRST_QUARTER = "first_quarter"
    FULL_MOON = "full_moon"
    LAST_QUARTER = "last_quarter"


class Rounding(Word):
    """How a clock is brought to its minute (or second)."""

    NEAREST = "nearest"
    UP = "up"
    DOWN = "down"


class HighLatitudeRule(Word):
    """What gives a Fajer or an Isha where the Sun's depression gives none."""

    NONE = "none"
    MIDDLE = "middle"  #: the middle of the night
    SEVENTH = "seventh"  #: the last and the first seventh of the night
    ANGLE = "angle"  #: the part of the night that the angle is of 60 deg
    NEAREST_LATITUDE = "nearest_latitude"  #: the clock of a lower latitude
    SHARE = "share"  #: the share of the night at a lower latitude
    YEAR = "year"  #: parts of the night, smoothed over the whole year; above 48.5 to 65 deg north


class RuleUse(Word):
    """When a rule of high latitudes speaks."""

    MISSING = "missing"  #: when the angle gives no time
    BEYOND = "beyond"  #: also when it gives a Fajer before, or an Isha after, the rule's
    ALWAYS = "always"


class IqamahKind(Word):
    NONE = "none"
    FIXED = "fixed"  #: at a minute of the day
    AFTER = "after"  #: minutes after the prayer's time


class TimeSource(Word):
    """What made a time of a timetable."""

    SKY = "sky"  #: the Sun: its depression, its transit, its rise or set, a shadow
    INTERVAL = "interval"  #: minutes after Maghreb
    MIDDLE = "middle"  # from here on the rules of high latitudes
    SEVENTH = "seventh"
    ANGLE = "angle"
    NEAREST_LATITUDE = "nearest_latitude"
    SHARE = "share"
    YEAR = "year"


class CrescentKind(Word):
    """The evening of a new crescent, after the conjunction, or the morning of an old one, before it."""

    NEW = "new"
    OLD = "old"


class ObservationTime(Word):
    """When the crescent report looks."""

    SUN_EVENT = "sun_event"
    MOON_EVENT = "moon_event"
    BEST_TIME = "best_time"
    GIVEN = "given"


class SeenBefore(Word):
    """Until when a crescent that is seen anywhere counts."""

    ANY_TIME = "any_time"
    MIDNIGHT = "midnight"  #: 24 h Universal Time of the evening's date
    FAJER = "fajer"  #: Fajer of the next day at the place


def word_of(kind: type[SomeWord], value: str) -> SomeWord:
    """The word of a text.

    Raises BadArgument, which names every word, for a text that is none.
    """
    try:
        return kind(value)
    except ValueError:
        raise BadArgument(f"There is no {kind.__name__} {value!r}; known are {', '.join(kind)}.") from None
