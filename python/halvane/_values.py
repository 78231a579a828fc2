# SPDX-License-Identifier: MIT
"""What the functions take and give: small constant classes that compare by value and pickle."""

from __future__ import annotations

import dataclasses
import datetime as dt
import zoneinfo
from collections.abc import Sequence
from dataclasses import dataclass
from typing import Any, Generic, NamedTuple, TypeAlias, TypeVar

import numpy as np
import numpy.typing as npt

from halvane import _engine
from halvane._errors import BadArgument
from halvane._words import (
    CrescentKind,
    HighLatitudeRule,
    IqamahKind,
    Missing,
    ObservationTime,
    Phase,
    Rounding,
    RuleUse,
    Scale,
    SeenBefore,
    TimeSource,
    word_of,
)

Floats: TypeAlias = npt.NDArray[np.float64]
Number = TypeVar("Number", float, Floats)
_SECONDS_PER_HOUR = 3600
UNIX_DATETIME = dt.datetime(1970, 1, 1, tzinfo=dt.timezone.utc)


def _same(a: Any, b: Any) -> bool:
    if isinstance(a, np.ndarray) and isinstance(b, np.ndarray):
        return a.dtype == b.dtype and np.array_equal(a, b, equal_nan=a.dtype.kind == "f")
    if isinstance(a, tuple) and isinstance(b, tuple):
        return len(a) == len(b) and all(map(_same, a, b))
    return bool(a == b or (a != a and b != b))


class Value:
    """A constant value. Two are equal when all their members are; "not a number" equals itself."""

    __slots__ = ()

    def _members(self) -> tuple[Any, ...]:
        return tuple(getattr(self, field.name) for field in dataclasses.fields(self))

    def __eq__(self, other: object) -> bool:
        if type(self) is not type(other):
            return NotImplemented
        return _same(self._members(), other._members())  # type: ignore[attr-defined]

    def __hash__(self) -> int:
        return hash(tuple("nan" if member != member else member for member in self._members()))


def moment_of(unix_seconds: float, zone: dt.tzinfo) -> dt.datetime:
    """The datetime of seconds since 1970 January 1, 0 h Universal Time, on a clock."""
    try:
        return (UNIX_DATETIME + dt.timedelta(seconds=unix_seconds)).astimezone(zone)
    except OverflowError:
        raise BadArgument("A datetime holds the years 1 to 9999 only.") from None


class Date(NamedTuple):
    """A civil date: of the Julian calendar before 15 October 1582, of the Gregorian one from then on.

    Years are astronomical (0 is 1 BC), -4000 to 9999.
    """

    year: int
    month: int  #: 1 to 12
    day: int  #: 1 to 31

    def date(self) -> dt.date:
        """The same day as Python reckons: by the Gregorian calendar of all times, of the years 1 to 9999."""
        try:
            return dt.date.fromordinal(round(_engine.julian_day(self) - ORDINAL_ZERO))
        except (ValueError, OverflowError) as refused:
            if isinstance(refused, BadArgument):
                raise
            raise BadArgument("A datetime.date holds the years 1 to 9999 only.") from None


ORDINAL_ZERO = 1721424.5  # the Julian day of 0 h of the day before 1 January of the year 1, Gregorian


class HijriDate(NamedTuple):
    """A date of the Hijri calendar."""

    year: int
    month: int  #: 1 Muharram to 12 Thul Hejjah
    day: int  #: 1 to 30


class Observer(NamedTuple):
    """Where an observer stands."""

    latitude: float  #: north positive, -90 to 90 [deg]
    longitude: float  #: east positive, -180 to 180 [deg]
    height: float = 0.0  #: above sea level [m]


class Horizon(NamedTuple):
    """What a search needs of the horizon and the air above it."""

    height_counts: bool = False  #: whether the observer's height lowers it
    pressure: float = 1010.0  #: [mb]
    temperature: float = 10.0  #: [deg C]


@dataclass(frozen=True, slots=True)
class Instant:
    """A moment: a Julian day [d] and the scale that it counts on."""

    jd: float
    scale: Scale = Scale.UT1

    def __post_init__(self) -> None:
        object.__setattr__(self, "scale", word_of(Scale, self.scale))

    @property
    def ut1(self) -> float:
        """The Julian day in UT1, by the engine's Delta T [d]."""
        return _engine.ut1((self.jd, self.scale.number))

    @property
    def dynamical(self) -> float:
        """The Julian day in dynamical time, by the engine's Delta T [d]."""
        return _engine.dynamical((self.jd, self.scale.number))

    @property
    def unix_seconds(self) -> float:
        """Seconds since 1970 January 1, 0 h Universal Time; leap seconds are not counted [s]."""
        return (self.ut1 - UNIX_EPOCH) * SECONDS_PER_DAY

    def datetime(self, zone: dt.tzinfo = dt.timezone.utc) -> dt.datetime:
        """The moment on a clock; a Julian day tells it to about 0.04 ms."""
        return moment_of(self.unix_seconds, zone)


UNIX_EPOCH = 2440587.5  # the Julian day of 1970 January 1, 0 h
SECONDS_PER_DAY = 86400


@dataclass(frozen=True, slots=True, eq=False)
class Dates(Value):
    """Civil dates as arrays; see `Date`."""

    year: npt.NDArray[np.int32]
    month: npt.NDArray[np.int32]
    day: npt.NDArray[np.int32]


@dataclass(frozen=True, slots=True, eq=False)
class ClockTime(Value):
    """A time of a local day, or why there is none."""

    hours: float  #: from 0 h of the date on the place's clock; not a number without one [h]
    missing: Missing
    date: Date
    hours_ahead: float  #: of the clock from Universal Time at noon of the date [h]
    zone: str | None  #: IANA name of the clock; None for a fixed one

    def __bool__(self) -> bool:
        return self.missing is Missing.NO

    def __float__(self) -> float:
        return self.hours

    def __str__(self) -> str:
        """The clock to the nearest minute, or the word for its absence."""
        if not self:
            return str(self.missing)
        minutes = round(self.hours * 60) % 1440
        return f"{minutes // 60:02}:{minutes % 60:02}"

    def datetime(self) -> dt.datetime | None:
        """The moment on the place's clock, whatever that clock does on its day; None without one."""
        if not self:
            return None
        days = _engine.julian_day(self.date) - UNIX_EPOCH
        seconds = days * SECONDS_PER_DAY + (self.hours - self.hours_ahead) * _SECONDS_PER_HOUR
        if self.zone is not None:
            return moment_of(seconds, zoneinfo.ZoneInfo(self.zone))
        return moment_of(seconds, dt.timezone(dt.timedelta(hours=self.hours_ahead)))


# Places of the Sun and the Moon


@dataclass(frozen=True, slots=True, eq=False)
class SunPlace(Value, Generic[Number]):
    """Apparent geocentric place of the Sun, of the date's equator and ecliptic; numbers, or arrays of them."""

    right_ascension: Number  #: 0 to 360 [deg]
    declination: Number  #: [deg]
    longitude: Number  #: ecliptic, 0 to 360 [deg]
    latitude: Number  #: ecliptic; 0 with the accuracies low and fast [deg]
    distance: Number  #: [AU]
    equation_of_time: Number  #: apparent less mean; 0 with the accuracy fast [min]


@dataclass(frozen=True, slots=True, eq=False)
class MoonPlace(Value, Generic[Number]):
    """Apparent geocentric place of the Moon, of the date's equator and ecliptic; numbers, or arrays of them."""

    right_ascension: Number  #: 0 to 360 [deg]
    declination: Number  #: [deg]
    longitude: Number  #: ecliptic, 0 to 360 [deg]
    latitude: Number  #: ecliptic [deg]
    distance: Number  #: between the centres [km]


@dataclass(frozen=True, slots=True, eq=False)
class SeenPlace(Value, Generic[Number]):
    """A body as it is seen from the surface of the Earth, airless; numbers, or arrays of them."""

    right_ascension: Number  #: topocentric, 0 to 360 [deg]
    declination: Number  #: topocentric [deg]
    longitude: Number  #: topocentric, ecliptic, 0 to 360 [deg]
    latitude: Number  #: topocentric, ecliptic [deg]
    altitude: Number  #: of the centre, without refraction [deg]
    azimuth: Number  #: 0 to 360, 0 north, 90 east [deg]


@dataclass(frozen=True, slots=True, eq=False)
class SeenSun(Value, Generic[Number]):
    """The Sun from the Earth's centre and from an observer's place."""

    geocentric: SunPlace[Number]
    topocentric: SeenPlace[Number]


@dataclass(frozen=True, slots=True, eq=False)
class SeenMoon(Value, Generic[Number]):
    """The Moon from the Earth's centre and from an observer's place."""

    geocentric: MoonPlace[Number]
    topocentric: SeenPlace[Number]
    parallax: Number  #: horizontal [deg]
    semidiameter: Number  #: topocentric [deg]


@dataclass(frozen=True, slots=True, eq=False)
class MoonLight(Value, Generic[Number]):
    """How the Sun lights the Moon's disc; numbers, or arrays of them."""

    elongation: Number  #: of the Moon from the Sun, 0 to 180 [deg]
    phase_angle: Number  #: 0 full, 180 new [deg]
    fraction: Number  #: of the disc that is lit, 0 to 1


# Days and searches


@dataclass(frozen=True, slots=True, eq=False)
class BodyDay(Value):
    """A day of the Sun or the Moon on a place's clock."""

    rise: ClockTime  #: of the upper limb
    transit: ClockTime  #: above the horizon
    set: ClockTime  #: of the upper limb


@dataclass(frozen=True, slots=True, eq=False)
class Twilight(Value):
    """The moments of a civil date at which the Sun's centre stands at a depression: dawn and dusk."""

    morning: ClockTime
    evening: ClockTime


@dataclass(frozen=True, slots=True, eq=False)
class AltitudePassage(Value):
    """A moment at which a body's centre passes an altitude."""

    instant: Instant  #: UT1
    rising: bool


@dataclass(frozen=True, slots=True, eq=False)
class PhaseMoment(Value):
    """A phase of the Moon."""

    phase: Phase
    lunation: int  #: counted from the New Moon of 2000 January 6
    instant: Instant  #: dynamical time


@dataclass(frozen=True, slots=True, eq=False)
class SunInDirection(Value):
    """The moments of a date at which the Sun stands in a direction."""

    first: ClockTime
    second: ClockTime
    first_below_horizon: bool  #: the Sun stands there unseen
    second_below_horizon: bool


# Prayer times

PRAYERS = ("fajer", "shuroq", "dhohur", "aser", "maghreb", "isha")


@dataclass(frozen=True, slots=True, eq=False)
class ReportRules(Value):
    """What Halvane's prayer report is made by. Minutes may be negative."""

    fajer_angle: float = 18.0  #: depression of the Sun, 0 to 90 [deg]
    isha_angle: float = 18.0  #: depression of the Sun, 0 to 90 [deg]
    hanafi: bool = False  #: Aser when a shadow has grown by two lengths, not one
    fajer_earlier: float = 0.0  #: safety margin before Fajer [min]
    dhohur_later: float = 0.0  #: safety margins after the others [min]
    aser_later: float = 0.0  #: [min]
    maghreb_later: float = 0.0  #: [min]
    city: float = 0.0  #: how far east the observer is taken to stand for Fajer and Shuroq [km]
    horizon: Horizon = Horizon()
    high_latitude: bool = False
    """Fajer and Isha as parts of the night where the twilight does not end, above 48.5 to 65 deg north"""


@dataclass(frozen=True, slots=True, eq=False)
class PrayerTimes(Value):
    """The six times of a civil date, as calculated, before any rounding.

    Dhohur may lie outside 0 to 24 h: it is another date's then.
    """

    fajer: ClockTime
    shuroq: ClockTime
    dhohur: ClockTime
    aser: ClockTime
    maghreb: ClockTime
    isha: ClockTime

    def items(self) -> list[tuple[str, ClockTime]]:
        """The names and the times, in the order of the day."""
        return [(name, getattr(self, name)) for name in PRAYERS]


class Iqamah(NamedTuple):
    """When a prayer is begun together."""

    kind: IqamahKind = IqamahKind.NONE
    minutes: int = 0  #: of the day (fixed, 0 to 1439), or after the prayer's time (0 to 240) [min]
    up_to_five: bool = False  #: brought up to full five minutes


@dataclass(frozen=True, slots=True, eq=False)
class TimetableRules(Value):
    """The rules of a timetable. Members of six stand in the order of `PRAYERS`."""

    fajer_angle: float = 18.0  #: depression of the Sun, 1 to 30 [deg]
    isha_angle: float = 17.0  #: the same; not looked at where `isha_minutes` is given [deg]
    isha_minutes: float = 0.0  #: after Maghreb, 0 to 360; 0: by the angle [min]
    isha_minutes_ramadan: float = 0.0  #: in its place in Ramadan; 0: as on other days [min]
    maghreb_angle: float = 0.0  #: depression of the Sun, 0 to 30; 0: sunset [deg]
    hanafi: bool = False  #: the Hanafi shadow at Aser
    height_counts: bool = False  #: whether the observer's height lowers the horizon
    added: tuple[float, ...] = (0.0,) * 6  #: minutes added to each before it is rounded, -120 to 120 [min]
    rounding: tuple[Rounding, ...] = (Rounding.NEAREST,) * 6
    high_latitude: HighLatitudeRule = HighLatitudeRule.NONE
    rule_use: RuleUse = RuleUse.MISSING
    reference_latitude: float = 0.0  #: of the two latitude rules, 0 to 65; 0: each rule's own [deg]
    night_until_fajer: bool = False  #: its middle and last third are of sunset to Fajer, not to sunrise
    imsak_minutes: float = 10.0  #: before Fajer, 0 to 120 [min]
    seconds: bool = False  #: clocks are to the second, not to the minute
    iqamah: tuple[Iqamah, ...] = (Iqamah(),) * 6  #: that of Shuroq has no meaning
    jumuah: tuple[int, ...] = ()  #: up to three, minutes of the day, rising [min]


@dataclass(frozen=True, slots=True, eq=False)
class Authority(Value):
    """An authority that publishes rules of prayer times."""

    key: str  #: "umm-al-qura"
    name: str
    arabic_name: str
    region: str
    source: str  #: where its rules are told


@dataclass(frozen=True, slots=True, eq=False)
class TimetableTime(Value):
    """A clock of a timetable, or why there is none."""

    missing: Missing
    source: TimeSource
    day: int  #: days after the row's date: mostly 0, 1 past midnight, -1 before it
    seconds: int  #: of that day, 0 to 86399 [s]
    offset: int  #: of the clock from Universal Time then [s]
    unix_seconds: int  #: the same moment, seconds since 1970 January 1, 0 h Universal Time [s]

    def __bool__(self) -> bool:
        return self.missing is Missing.NO

    def __str__(self) -> str:
        """The clock's hours and minutes, and its seconds where it has any; or the word for its absence."""
        if not self:
            return str(self.missing)
        minutes, seconds = divmod(self.seconds, 60)
        clock = f"{minutes // 60:02}:{minutes % 60:02}"
        return f"{clock}:{seconds:02}" if seconds else clock

    def datetime(self) -> dt.datetime | None:
        """The moment on a clock with the place's offset; None without one."""
        return moment_of(self.unix_seconds, dt.timezone(dt.timedelta(seconds=self.offset))) if self else None


@dataclass(frozen=True, slots=True, eq=False)
class TimetableDay(Value):
    """A day of a timetable."""

    date: Date
    hijri: HijriDate  #: of the tabular calendar
    weekday: int  #: 0 Sunday to 6 Saturday
    fajer: TimetableTime
    shuroq: TimetableTime
    dhohur: TimetableTime
    aser: TimetableTime
    maghreb: TimetableTime
    isha: TimetableTime
    aser_standard: TimetableTime
    aser_hanafi: TimetableTime
    imsak: TimetableTime
    midnight: TimetableTime
    last_third: TimetableTime
    iqamah: tuple[TimetableTime, ...]  #: in the order of `PRAYERS`
    jumuah: tuple[TimetableTime, ...]  #: on Fridays
    offset: int  #: of the clock from Universal Time at its noon [s]
    clock_changes: bool  #: within the day

    def items(self) -> list[tuple[str, TimetableTime]]:
        """The names and the times of the six, in the order of the day."""
        return [(name, getattr(self, name)) for name in PRAYERS]


class TimetablePlace(NamedTuple):
    """A place of a list of timetables."""

    observer: Observer | Sequence[float]
    zone: str | float | dt.tzinfo


TIMETABLE_COLUMNS = (
    *PRAYERS,
    *("aser_standard", "aser_hanafi", "imsak", "midnight", "last_third"),
    *("iqamah_" + name for name in PRAYERS),
    *("jumuah_1", "jumuah_2", "jumuah_3"),
)


@dataclass(frozen=True, slots=True, eq=False)
class Timetables(Value):
    """The timetables of many places as arrays.

    Those of times have the axes place, day and column, in the order of `TIMETABLE_COLUMNS`; those of days place and
    day; those of dates day, and year, month, day.
    """

    unix_seconds: npt.NDArray[np.int64]  #: of a time: seconds since 1970 January 1, 0 h Universal Time [s]
    seconds: npt.NDArray[np.int32]  #: of a time: of its clock's day, 0 to 86399 [s]
    offset: npt.NDArray[np.int32]  #: of a time: of the clock from Universal Time then [s]
    day: npt.NDArray[np.int8]  #: of a time: days after the row's date
    missing: npt.NDArray[np.int8]  #: of a time: number of its `Missing`; 0: there is one
    source: npt.NDArray[np.int8]  #: of a time: number of its `TimeSource`
    noon_offset: npt.NDArray[np.int32]  #: of a day: of the clock from Universal Time at its noon [s]
    clock_changes: npt.NDArray[np.bool_]  #: of a day: within it
    date: npt.NDArray[np.int32]  #: of a date: the civil one
    hijri: npt.NDArray[np.int32]  #: of a date: the Hijri one of the tabular calendar
    weekday: npt.NDArray[np.int8]  #: of a date: 0 Sunday to 6 Saturday
    jumuah_clocks: npt.NDArray[np.int8]  #: of a date: how many clocks of Jumuah it has

    def __len__(self) -> int:
        return len(self.unix_seconds)

    def column(self, name: str) -> int:
        """Where a column stands on the last axis of the times."""
        if name not in TIMETABLE_COLUMNS:
            raise BadArgument(f"There is no column {name!r}; known are {', '.join(TIMETABLE_COLUMNS)}.")
        return TIMETABLE_COLUMNS.index(name)

    def days(self, place: int) -> list[TimetableDay]:
        """The rows of one place, counted from 0."""
        reasons, sources = Missing.all(), TimeSource.all()
        clocks_of_time = (self.day, self.seconds, self.offset, self.unix_seconds)
        of_time: tuple[npt.NDArray[Any], ...] = (self.missing, self.source, *clocks_of_time)
        of_date: tuple[npt.NDArray[Any], ...] = (self.date, self.hijri, self.weekday, self.jumuah_clocks)
        times = (
            tuple(
                TimetableTime(reasons[missing], sources[source], *clock)
                for missing, source, *clock in zip(*(member.tolist() for member in row))
            )
            for row in zip(*(member[place] for member in of_time))
        )
        dates = zip(*(member.tolist() for member in of_date))
        clocks = zip(self.noon_offset[place].tolist(), self.clock_changes[place].tolist())
        first_iqamah, first_jumuah = self.column("iqamah_fajer"), self.column("jumuah_1")
        named = TIMETABLE_COLUMNS[:first_iqamah]
        return [
            TimetableDay(
                date=Date(*date),
                hijri=HijriDate(*hijri),
                weekday=weekday,
                **dict(zip(named, row)),
                iqamah=row[first_iqamah:first_jumuah],
                jumuah=row[first_jumuah : first_jumuah + jumuah],
                offset=offset,
                clock_changes=changes,
            )
            for (date, hijri, weekday, jumuah), (offset, changes), row in zip(dates, clocks, times)
        ]


# Crescents


@dataclass(frozen=True, slots=True, eq=False)
class CrescentQuantities(Value):
    """Where Sun and Moon stand and what the Moon shows at one instant; airless."""

    moon_altitude: float  #: [deg]
    moon_azimuth: float  #: [deg]
    sun_altitude: float  #: [deg]
    sun_azimuth: float  #: [deg]
    elongation: float  #: [deg]
    phase_angle: float  #: [deg]
    illuminated_fraction: float  #: 0 to 1
    semidiameter: float  #: of the Moon [deg]
    width: float  #: of the crescent at its middle [deg]


@dataclass(frozen=True, slots=True, eq=False)
class CrescentSky(Value):
    """The sky of one instant."""

    instant: Instant  #: UT1
    geocentric: CrescentQuantities  #: directions from the Earth's centre, against the observer's horizon
    topocentric: CrescentQuantities  #: directions from the observer's place
    parallax: float  #: of the Moon, horizontal [deg]


@dataclass(frozen=True, slots=True, eq=False)
class CrescentEvening(Value):
    """What the criteria of crescent visibility judge."""

    kind: CrescentKind
    conjunction: Instant  #: geocentric, in longitude; UT1
    sun_event: Instant  #: sunset or sunrise; UT1
    moon_event: Instant  #: moonset or moonrise; UT1
    lag: float  #: from the Sun's event to the Moon's, or from the Moon's to the Sun's [min]
    age: float  #: from the conjunction to the Sun's event, or from that to it [h]
    at_sun_event: CrescentSky
    at_best_time: CrescentSky  #: four ninths of the lag from the Sun's event (Yallop 1997)


@dataclass(frozen=True, slots=True, eq=False)
class CriterionClass(Value):
    """A class of a criterion: the values of its measure from the border up to the next class."""

    border: float  #: minus infinity of the lowest
    words: str
    arabic_words: str


@dataclass(frozen=True, slots=True, eq=False)
class Criterion(Value):
    """A criterion of crescent visibility."""

    key: str  #: "yallop-1997"
    name: str
    arabic_name: str
    source: str
    measure: str  #: what its number is
    unit: str  #: of the number; empty for a mere one
    of_mornings: bool
    place: Observer | None  #: that alone judges; None: the observer's own
    classes: tuple[CriterionClass, ...]  #: the lowest first
    by_eye: int  #: the lowest class that the eye sees


class CriterionLimits(NamedTuple):
    """What the user may set of the criteria "danjon" and "user". A limit that is not a number does not count."""

    danjon_elongation: float = 7.0  #: least topocentric elongation [deg]
    least_lag: float = 0.0  #: [min]
    least_altitude: float = 5.0  #: topocentric, at the Sun's event [deg]
    least_elongation: float = 8.0  #: geocentric, at the Sun's event [deg]
    least_age: float = 0.0  #: at the Sun's event [h]


@dataclass(frozen=True, slots=True, eq=False)
class CrescentVerdict(Value):
    """What a criterion says of an evening or a morning."""

    criterion: str  #: key
    value: float  #: of its measure; not a number where the criterion has no answer
    band: int | None  #: index of its classes


@dataclass(frozen=True, slots=True, eq=False)
class CrescentAnswer(Value):
    """Whether a crescent can be looked for on a date at a place, and what each criterion says of it."""

    has_crescent: bool  #: the Moon outlasts the Sun on the right side of the conjunction
    evening: CrescentEvening | None  #: None where the Sun or the Moon has no event
    verdicts: tuple[CrescentVerdict, ...]


@dataclass(frozen=True, slots=True, eq=False)
class CircumstanceChoices(Value):
    """What Halvane's crescent report is made by."""

    kind: CrescentKind = CrescentKind.NEW
    geocentric: bool = False  #: conjunction and quantities
    days: int = 1  #: after the conjunction's date, or before it for an old crescent: 0, 1, 2
    time: ObservationTime = ObservationTime.BEST_TIME
    given_hours: float = 18.0  #: on the clock, with `ObservationTime.GIVEN` [h]
    horizon: Horizon = Horizon()


@dataclass(frozen=True, slots=True, eq=False)
class Circumstances(Value):
    """A crescent as the report tells it."""

    conjunction: Instant  #: UT1
    date: Date  #: on the clock
    hijri: HijriDate  #: a day of the month that it begins or ends, tabular
    sun_event: float  #: [h of the clock]
    moon_event: float  #: [h of the clock]
    lag: float  #: [h]
    observed: Instant  #: UT1
    moon_age: float  #: from the conjunction [d]
    sun: SeenSun[float]
    moon: SeenMoon[float]
    quantities: CrescentQuantities
    arcv: float  #: at Best Time: relative altitude [deg]
    width: float  #: at Best Time [arcmin]
    q: float  #: at Best Time: the report's criterion


# What a place of a map is beside an index of the criterion's classes.
MAP_CONJUNCTION_TO_COME = 6
MAP_MOON_GOES_FIRST = 7
MAP_NO_ANSWER = 8
MAP_NO_EVENT = 9


@dataclass(frozen=True, slots=True, eq=False)
class MapGrid(Value):
    """The places of a map on one side of the date line.

    The arrays have the axes row, from the south on, and column, from the west on; numbers are not a number where there
    are none.
    """

    west: float  #: of the first column, in the window's longitudes [deg]
    south: float  #: of the first row [deg]
    step: float  #: [deg]
    value: Floats  #: of the criterion's measure
    map_class: npt.NDArray[np.uint8]  #: an index of the criterion's classes, or one of the MAP_ constants
    lag: npt.NDArray[np.float32]  #: [min]
    age: npt.NDArray[np.float32]  #: at the Sun's event [h]
    altitude: npt.NDArray[np.float32]  #: of the Moon at the Sun's event, topocentric, airless [deg]
    elongation: npt.NDArray[np.float32]  #: at the Sun's event, topocentric [deg]

    @property
    def latitudes(self) -> Floats:
        """Of the rows [deg]."""
        return self.south + self.step * np.arange(self.value.shape[0])

    @property
    def longitudes(self) -> Floats:
        """Of the columns, in the window's longitudes: beyond 180 across the date line [deg]."""
        return self.west + self.step * np.arange(self.value.shape[1])


# Hijri months


@dataclass(frozen=True, slots=True, eq=False)
class HijriRule(Value):
    """What decides when a month begins."""

    key: str  #: "umm-al-qura"
    name: str
    arabic_name: str
    told: str  #: the rule in a sentence or two
    source: str
    asks_place: bool
    asks_criterion: bool
    asks_region: bool


class AnnouncedStart(NamedTuple):
    """The first day of a month as somebody announced it."""

    year: int
    month: int  #: 1 to 12
    first_day: Date | tuple[int, int, int] | dt.date
    announced_by: str


@dataclass(frozen=True, slots=True, eq=False)
class HijriChoices(Value):
    """A rule with what it asks for; what it does not ask for is not looked at."""

    rule: str = "umm-al-qura"  #: key
    place: Observer | Sequence[float] = Observer(0.0, 0.0)
    zone: str | float | dt.tzinfo = 0.0  #: of the place, by which its dates are counted
    criterion: str = "yallop-1997"  #: key
    seen_class: int | None = None  #: the lowest class that counts as seen; None: the criterion's `by_eye`
    limits: CriterionLimits = CriterionLimits()
    west: float = -180.0  #: where a crescent counts, as the next three [deg]
    south: float = -60.0
    east: float = 180.0
    north: float = 60.0
    before: SeenBefore = SeenBefore.ANY_TIME
    announced: tuple[AnnouncedStart, ...] = ()  #: in the order of their months


# What is told of a month, added up.
HIJRI_ANNOUNCED = 1  # its start is an announced one
HIJRI_MADE_TO_FIT = 2  # its start is not the rule's: months have 29 or 30 days
HIJRI_COMPLETED = 4  # the month before has 30 days without a crescent after them
HIJRI_SEEN_ON_28TH = 8  # the month before has 28 days
HIJRI_RULE_DOUBTFUL = 16  # by which rule these years were made is not known
HIJRI_UNDECIDED = 32  # no evening that was asked showed a crescent


@dataclass(frozen=True, slots=True, eq=False)
class HijriMonth(Value):
    """A month by a rule."""

    year: int
    month: int  #: 1 to 12
    first_day: Date
    days: int
    notes: int  #: of the HIJRI_ constants, added up
    may_differ: bool  #: the margin is less than the theory's own error
    margin: float  #: on the evening that decided: positive met [margin_unit]
    margin_unit: str  #: "s", "deg" ...; empty for a mere number
    announced_by: str
