# SPDX-License-Identifier: MIT
"""The extension module: numbers of words, tuples of the members of small values, flat arrays."""

from collections.abc import Callable, Sequence
from typing import Any

import numpy as np
import numpy.typing as npt

_Date = tuple[int, int, int]
_Observer = tuple[float, float, float]
_Horizon = tuple[bool, float, float]
_Limits = tuple[float, float, float, float, float]
_Instant = tuple[float, int]
_Time = tuple[float, int]
_Floats = npt.NDArray[np.float64]
_Integers = npt.NDArray[np.int32]
_Progress = Callable[[float], object] | None

class Engine:
    def __init__(self, folder: str = ...) -> None: ...
    @staticmethod
    def of_data(termfull: bytes, term: bytes, mterm: bytes, elp: bytes, world: bytes) -> Engine: ...

class Clock:
    @staticmethod
    def fixed(hours: float) -> Clock: ...
    @staticmethod
    def of_zone(name: str) -> Clock: ...
    def hours_ahead(self, date: _Date) -> float: ...
    def zone_name(self) -> str: ...

def version() -> str: ...
def julian_day(date: _Date) -> float: ...
def civil_date(julian_day: float) -> _Date: ...
def civil_dates(julian_days: _Floats) -> tuple[_Integers, _Integers, _Integers]: ...
def delta_t(julian_day: float) -> float: ...
def delta_ts(julian_days: _Floats) -> _Floats: ...
def ut1(instant: _Instant) -> float: ...
def dynamical(instant: _Instant) -> float: ...
def sun(engine: Engine, instant: _Instant, accuracy: int) -> list[float]: ...
def moon(engine: Engine, instant: _Instant, accuracy: int) -> list[float]: ...
def sun_seen(engine: Engine, instant: _Instant, observer: _Observer, accuracy: int) -> list[float]: ...
def moon_seen(engine: Engine, instant: _Instant, observer: _Observer, accuracy: int) -> list[float]: ...
def suns(engine: Engine, julian_days: _Floats, scale: int, accuracy: int) -> list[_Floats]: ...
def moons(engine: Engine, julian_days: _Floats, scale: int, accuracy: int) -> list[_Floats]: ...
def suns_seen(
    engine: Engine, julian_days: _Floats, scale: int, observer: _Observer, accuracy: int
) -> list[_Floats]: ...
def moons_seen(
    engine: Engine, julian_days: _Floats, scale: int, observer: _Observer, accuracy: int
) -> list[_Floats]: ...
def moon_light(engine: Engine, instant: _Instant) -> list[float]: ...
def moon_lights(engine: Engine, julian_days: _Floats, scale: int) -> list[_Floats]: ...
def refracted(altitude: float) -> float: ...
def refracteds(altitudes: _Floats) -> _Floats: ...
def qiblah_direction(latitude: float, longitude: float) -> float: ...
def qiblah_directions(latitudes: _Floats, longitudes: _Floats) -> _Floats: ...
def sun_day(
    engine: Engine, date: _Date, observer: _Observer, clock: Clock, horizon: _Horizon
) -> tuple[_Time, _Time, _Time]: ...
def moon_day(
    engine: Engine, date: _Date, observer: _Observer, clock: Clock, horizon: _Horizon
) -> tuple[_Time, _Time, _Time]: ...
def twilight(
    engine: Engine, date: _Date, observer: _Observer, clock: Clock, depression: float, horizon: _Horizon
) -> tuple[_Time, _Time]: ...
def altitude_passages(
    engine: Engine, body: int, altitude: float, start: _Instant, end: _Instant, observer: _Observer
) -> list[tuple[_Instant, bool]]: ...
def moon_phases(
    engine: Engine, start: _Instant, end: _Instant, observer: _Observer | None
) -> list[tuple[int, int, _Instant]]: ...
def conjunction(engine: Engine, near: _Instant, observer: _Observer | None) -> _Instant: ...
def sun_in_direction(
    engine: Engine,
    date: _Date,
    observer: _Observer,
    clock: Clock,
    azimuth: float,
    shadow: bool,
    horizon: _Horizon,
) -> tuple[_Time, _Time, bool, bool]: ...

class ReportRules:
    fajer_angle: float
    isha_angle: float
    hanafi: bool
    fajer_earlier: float
    dhohur_later: float
    aser_later: float
    maghreb_later: float
    city: float
    horizon: _Horizon
    high_latitude: bool

class TimetableRules:
    fajer_angle: float
    isha_angle: float
    isha_minutes: float
    isha_minutes_ramadan: float
    maghreb_angle: float
    hanafi: bool
    height_counts: bool
    added: Sequence[float]
    rounding: Sequence[int]
    high_latitude: int
    rule_use: int
    reference_latitude: float
    night_until_fajer: bool
    imsak_minutes: float
    seconds: bool
    iqamah: Sequence[tuple[int, int, bool]]
    jumuah: Sequence[int]

def prayer_times(
    engine: Engine, date: _Date, observer: _Observer, clock: Clock, rules: ReportRules
) -> list[_Time]: ...
def authorities() -> list[tuple[str, str, str, str, str]]: ...
def rules_of_authority(key: str) -> TimetableRules: ...
def timetable(
    engine: Engine,
    first: _Date,
    last: _Date,
    observer: _Observer,
    clock: Clock,
    rules: TimetableRules,
    progress: _Progress,
) -> dict[str, npt.NDArray[Any]]: ...
def timetables(
    engine: Engine,
    first: _Date,
    last: _Date,
    places: Sequence[tuple[_Observer, Clock]],
    rules: TimetableRules,
    progress: _Progress,
) -> dict[str, npt.NDArray[Any]]: ...

class CircumstanceChoices:
    kind: int
    geocentric: bool
    days: int
    time: int
    given_hours: float
    horizon: _Horizon

class MapChoices:
    kind: int
    date: _Date
    criterion: str
    limits: _Limits
    west: float
    south: float
    east: float
    north: float
    step: float

def criteria() -> list[
    tuple[
        tuple[str, str, str, str, str, str], bool, _Observer | None, tuple[tuple[float, str, str], ...], int
    ]
]: ...
def crescent(
    engine: Engine, kind: int, date: _Date, observer: _Observer, clock: Clock, limits: _Limits
) -> tuple[bool, tuple[Any, ...] | None, list[tuple[str, float, int | None]]]: ...
def crescent_circumstances(
    engine: Engine, near: _Date, observer: _Observer, clock_hours: float, choices: CircumstanceChoices
) -> tuple[Any, ...] | None: ...
def crescent_map(engine: Engine, choices: MapChoices, progress: _Progress) -> list[tuple[Any, ...]]: ...

class HijriChoices:
    rule: str
    place: _Observer
    clock: Clock
    criterion: str
    seen_class: int | None
    limits: _Limits
    west: float
    south: float
    east: float
    north: float
    before: int
    announced: Sequence[tuple[int, int, _Date, str]]

def tabular_hijri(date: _Date) -> _Date: ...
def tabular_civil(date: _Date) -> _Date: ...
def hijri_rules() -> list[tuple[str, str, str, str, str, bool, bool, bool]]: ...
def hijri_months(
    engine: Engine,
    choices: HijriChoices,
    first_year: int,
    first_month: int,
    last_year: int,
    last_month: int,
    progress: _Progress,
) -> list[tuple[Any, ...]]: ...
def hijri_date(engine: Engine, choices: HijriChoices, date: _Date) -> _Date: ...
def civil_date_of(engine: Engine, choices: HijriChoices, date: _Date) -> _Date: ...
