# SPDX-License-Identifier: MIT
"""Months and dates of the Hijri calendar."""

from __future__ import annotations

from halvane import _engine
from halvane._arguments import (
    DateLike,
    HijriLike,
    clock_of,
    date_of,
    filled,
    hijri_of,
    limits_of,
    month_of,
    observer_of,
    whole_number_of,
)
from halvane._engines import Engine, core_of
from halvane._prayer import Progress
from halvane._values import Date, HijriChoices, HijriDate, HijriMonth, HijriRule


def tabular_hijri(date: DateLike) -> HijriDate:
    """The date of the tabular calendar: cycles of 30 years from 16 July 622 (Julian), as Halvane's reports reckon.

    Raises BadArgument for a date before the calendar.
    """
    return HijriDate(*_engine.tabular_hijri(date_of(date)))


def tabular_civil(date: HijriLike) -> Date:
    """The civil date of a date of the tabular calendar.

    Raises BadArgument for a date that the calendar has not.
    """
    return Date(*_engine.tabular_civil(hijri_of(date)))


def hijri_rules() -> list[HijriRule]:
    """What may decide when a month begins."""
    return [HijriRule(*members) for members in _engine.hijri_rules()]


def _core_choices(choices: HijriChoices | str) -> _engine.HijriChoices:
    if isinstance(choices, str):
        choices = HijriChoices(choices)
    core = _engine.HijriChoices()
    core.clock = clock_of(choices.zone)
    announced = [
        (
            whole_number_of("A Hijri year", year),
            whole_number_of("A Hijri month", month),
            date_of(first_day),
            str(announced_by),
        )
        for year, month, first_day, announced_by in choices.announced
    ]
    return filled(
        core,
        choices,
        place=observer_of(choices.place),
        limits=limits_of(choices.limits),
        announced=announced,
    )


def hijri_months(
    choices: HijriChoices | str,
    first: tuple[int, int],
    last: tuple[int, int],
    *,
    progress: Progress = None,
    engine: Engine | None = None,
) -> list[HijriMonth]:
    """The months from one to another by a rule, both inside, without a gap.

    choices: a rule with what it asks for, or the key of one
    first, last: year and month; years 1 to 9600, 2000 years at most at once

    Raises BadArgument; Error: missing_file for a rule that asks for the Americas of an engine without world.txt;
    cancelled.
    """
    found = _engine.hijri_months(core_of(engine), _core_choices(choices), *month_of(first), *month_of(last), progress)
    return [
        HijriMonth(year, month, Date(*first_day), *others) for year, month, first_day, *others in found
    ]


def hijri_date(choices: HijriChoices | str, date: DateLike, *, engine: Engine | None = None) -> HijriDate:
    """The Hijri date of a civil date by a rule."""
    return HijriDate(*_engine.hijri_date(core_of(engine), _core_choices(choices), date_of(date)))


def civil_date_of(choices: HijriChoices | str, date: HijriLike, *, engine: Engine | None = None) -> Date:
    """The civil date of a Hijri one by a rule."""
    return Date(*_engine.civil_date_of(core_of(engine), _core_choices(choices), hijri_of(date)))
