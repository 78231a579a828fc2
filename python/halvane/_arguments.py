# SPDX-License-Identifier: MIT
"""From what users give to what the extension module takes."""

from __future__ import annotations

import dataclasses
import datetime as dt
import functools
import operator
from collections.abc import Sequence
from typing import Any, TypeAlias, TypeVar

import numpy as np
import numpy.typing as npt

from halvane import _engine
from halvane._errors import BadArgument
from halvane._values import (
    ORDINAL_ZERO,
    SECONDS_PER_DAY,
    UNIX_DATETIME,
    UNIX_EPOCH,
    CriterionLimits,
    Date,
    Floats,
    HijriDate,
    Horizon,
    Instant,
    Observer,
)
from halvane._words import Scale, Word, word_of

Moment: TypeAlias = float | Instant | dt.datetime | np.datetime64
"""A Julian day, an instant, a datetime with a zone, or a datetime64 of Universal Time."""
Moments: TypeAlias = npt.NDArray[Any] | Sequence[Moment]
DateLike: TypeAlias = Date | tuple[int, int, int] | dt.date | np.datetime64
"""A date of the civil calendar as `Date` reckons, or of Python's calendar."""
HijriLike: TypeAlias = HijriDate | tuple[int, int, int]
ObserverLike: TypeAlias = Observer | Sequence[float]
"""Latitude, longitude [deg] and, when it is not 0, height [m]."""
ZoneLike: TypeAlias = str | float | dt.tzinfo
"""An IANA name, hours ahead of Universal Time, or a tzinfo that tells one of them."""
Numbers: TypeAlias = npt.NDArray[Any] | Sequence[float]

Core = TypeVar("Core")
_SECOND = np.timedelta64(1, "s")
_DATETIME_EPOCH = np.datetime64(0, "s")


def number_of(what: str, value: Any) -> float:
    if isinstance(value, (str, bytes, bool)):
        raise BadArgument(f"{what} must be a number, not {value!r}.")
    try:
        return float(value)
    except (TypeError, ValueError, OverflowError):
        raise BadArgument(f"{what} must be a number, not {value!r}.") from None


def whole_number_of(what: str, value: Any) -> int:
    try:
        number = operator.index(value)
    except TypeError:
        raise BadArgument(f"{what} must be a whole number, not {value!r}.") from None
    if not -(2**31) <= number < 2**31:
        raise BadArgument(f"{what} of {number} is out of range.")
    return number


def numbers_of(what: str, values: Any) -> Floats:
    try:
        return np.asarray(values, dtype=np.float64)
    except (TypeError, ValueError):
        raise BadArgument(f"{what} must be numbers.") from None


def _members_of(what: str, value: Any, least: int, most: int) -> tuple[Any, ...]:
    try:
        members = tuple(value)
    except TypeError:
        members = ()
    if isinstance(value, (str, bytes)) or not least <= len(members) <= most:
        raise BadArgument(f"{what}, not {value!r}.")
    return members


# Moments


def _unix_of(moment: dt.datetime) -> float:
    if moment.utcoffset() is None:
        raise BadArgument("A datetime without a zone is no moment: give it a tzinfo.")
    return (moment - UNIX_DATETIME).total_seconds()


def days_of(moments: Any) -> Any:
    """Julian days of datetime64 values, which are of Universal Time."""
    if np.any(np.isnat(moments)):
        raise BadArgument("NaT is no moment.")
    return UNIX_EPOCH + (moments - _DATETIME_EPOCH) / _SECOND / SECONDS_PER_DAY


def instant_of(when: Moment, scale: str = Scale.UT1) -> tuple[float, int]:
    """A Julian day and the number of its scale.

    scale: of a Julian day that is a mere number
    """
    if isinstance(when, Instant):
        return number_of("A Julian day", when.jd), when.scale.number
    if isinstance(when, dt.datetime):
        return UNIX_EPOCH + _unix_of(when) / SECONDS_PER_DAY, 0
    if isinstance(when, dt.date):
        raise BadArgument("A date is no moment: give a datetime with a zone, or a Julian day.")
    if isinstance(when, np.datetime64):
        return float(days_of(when)), 0
    return number_of("A Julian day", when), word_of(Scale, scale).number


def is_scalar(value: Any) -> bool:
    """Whether one value is meant and no array of them."""
    return not isinstance(value, (list, tuple)) and np.ndim(value) == 0


def instants_of(when: Moments, scale: str) -> tuple[Floats, int]:
    """Julian days in the shape of `when`, and the number of their scale."""
    values = np.asarray(when)
    if values.dtype.kind == "M":
        return np.asarray(days_of(values)), 0
    if values.dtype.kind == "f" and values.dtype.itemsize < 8:
        raise BadArgument("A Julian day needs numbers of 64 bits.")
    if values.dtype.kind in "fiu":
        return values.astype(np.float64, copy=False), word_of(Scale, scale).number
    pairs = [instant_of(moment, scale) for moment in values.ravel().tolist()]
    if len({number for _, number in pairs}) > 1:
        raise BadArgument("The instants of an array must be of one scale.")
    days = np.array([day for day, _ in pairs], dtype=np.float64).reshape(values.shape)
    return days, pairs[0][1] if pairs else 0


# Dates


def date_of(date: DateLike) -> Date:
    if isinstance(date, dt.datetime):
        raise BadArgument("A date is wanted, not a moment: give its date() on the place's clock.")
    if isinstance(date, dt.date):
        return Date(*_engine.civil_date(date.toordinal() + ORDINAL_ZERO))
    if isinstance(date, np.datetime64):
        if np.isnat(date):
            raise BadArgument("NaT is no date.")
        if np.datetime_data(date)[0] != "D":
            raise BadArgument("A date is wanted, not a moment: give a datetime64 in days.")
        return Date(*_engine.civil_date(float(days_of(date))))
    year, month, day = _members_of("A date is year, month, day or a datetime.date", date, 3, 3)
    return Date(
        whole_number_of("A year", year), whole_number_of("A month", month), whole_number_of("A day of a month", day)
    )


def month_of(month: tuple[int, int]) -> tuple[int, int]:
    year, number = _members_of("A Hijri month is year, month", month, 2, 2)
    return whole_number_of("A Hijri year", year), whole_number_of("A Hijri month", number)


def hijri_of(date: HijriLike) -> HijriDate:
    year, month, day = _members_of("A Hijri date is year, month, day", date, 3, 3)
    return HijriDate(
        whole_number_of("A Hijri year", year),
        whole_number_of("A Hijri month", month),
        whole_number_of("A day of a Hijri month", day),
    )


# Places and clocks


def observer_of(observer: ObserverLike) -> Observer:
    members = _members_of("An observer is latitude, longitude and perhaps height", observer, 2, 3)
    names = ("A latitude", "A longitude", "A height")
    return Observer(*(number_of(name, member) for name, member in zip(names, members)))


def horizon_of(horizon: Horizon | Sequence[Any]) -> Horizon:
    members = _members_of("A horizon is height_counts, pressure, temperature", horizon, 1, 3)
    names = ("A pressure", "A temperature")
    return Horizon(bool(members[0]), *(number_of(name, member) for name, member in zip(names, members[1:])))


def limits_of(limits: CriterionLimits | Sequence[float]) -> CriterionLimits:
    members = _members_of("Limits of criteria are up to five numbers", limits, 1, 5)
    return CriterionLimits(*(number_of(name, member) for name, member in zip(CriterionLimits._fields, members)))


@functools.lru_cache(maxsize=1024)
def _named_clock(name: str) -> _engine.Clock:
    return _engine.Clock.of_zone(name)


def zone_of(zone: ZoneLike) -> str | float:
    """The name of a zone, or the hours of a fixed clock."""
    if isinstance(zone, str):
        return zone
    if isinstance(zone, dt.timezone):
        return zone.utcoffset(None).total_seconds() / 3600
    if isinstance(zone, dt.tzinfo):
        name = getattr(zone, "key", None) or getattr(zone, "zone", None)
        if not isinstance(name, str):
            raise BadArgument(f"A zone without a name is no clock of a place: {zone!r}.")
        return name
    return number_of("A zone must be a name, a tzinfo or hours, and so", zone)


def clock_of(zone: ZoneLike) -> _engine.Clock:
    known = zone_of(zone)
    return _named_clock(known) if isinstance(known, str) else _engine.Clock.fixed(known)


# Rules and choices


def _core_value(value: Any) -> Any:
    if isinstance(value, Word):
        return value.number
    if isinstance(value, (tuple, list)):
        return tuple(map(_core_value, value))
    return value


def filled(core: Core, values: Any, **instead: Any) -> Core:
    """The extension module's own class of some rules, with a dataclass's values.

    instead: values in place of the dataclass's; a member that the other class has not is passed over
    """
    for field in dataclasses.fields(values):
        if not hasattr(type(core), field.name):
            continue
        value = instead.get(field.name, getattr(values, field.name))
        if field.name not in instead and isinstance(field.default, Word):
            value = word_of(type(field.default), value)
        try:
            setattr(core, field.name, _core_value(value))
        except TypeError:
            raise BadArgument(f"{type(values).__name__}.{field.name} cannot be {value!r}.") from None
    return core
