# SPDX-License-Identifier: MIT
"""Julian days, dates and clocks."""

from __future__ import annotations

from typing import Any, overload

import numpy as np
import numpy.typing as npt

from halvane import _engine
from halvane._arguments import (
    DateLike,
    Numbers,
    ZoneLike,
    clock_of,
    date_of,
    days_of,
    is_scalar,
    number_of,
    numbers_of,
)
from halvane._values import Date, Dates, Floats


@overload
def julian_day(date: DateLike) -> float: ...


@overload
def julian_day(date: npt.NDArray[Any]) -> Floats: ...


def julian_day(date: DateLike | npt.NDArray[Any]) -> float | Floats:
    """The Julian day of 0 h of a civil date; it ends in .5 [d].

    date: or an array of datetime64 in days, for an array

    Raises BadArgument for a date that the calendar has not.
    """
    if isinstance(date, np.ndarray) and date.dtype.kind == "M":
        return np.asarray(days_of(date.astype("datetime64[D]")))
    return _engine.julian_day(date_of(date))  # type: ignore[arg-type]


@overload
def civil_date(julian_day: float) -> Date: ...


@overload
def civil_date(julian_day: Numbers) -> Dates: ...


def civil_date(julian_day: float | Numbers) -> Date | Dates:
    """The civil date that a Julian day [d] lies in, or the dates of an array of them.

    Raises BadArgument outside the years -4000 to 9999.
    """
    if is_scalar(julian_day):
        return Date(*_engine.civil_date(number_of("A Julian day", julian_day)))
    days = numbers_of("Julian days", julian_day)
    return Dates(*(member.reshape(days.shape) for member in _engine.civil_dates(days.ravel())))


@overload
def delta_t(julian_day: float) -> float: ...


@overload
def delta_t(julian_day: Numbers) -> Floats: ...


def delta_t(julian_day: float | Numbers) -> float | Floats:
    """TDT less UT1 at a Julian day [d], or at each of an array [s]."""
    if is_scalar(julian_day):
        return _engine.delta_t(number_of("A Julian day", julian_day))
    days = numbers_of("Julian days", julian_day)
    return _engine.delta_ts(days.ravel()).reshape(days.shape)


def hours_ahead(zone: ZoneLike, date: DateLike) -> float:
    """Hours of a clock ahead of Universal Time at noon of a date, which every time of that date is told by [h]."""
    return clock_of(zone).hours_ahead(date_of(date))
