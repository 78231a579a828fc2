# SPDX-License-Identifier: MIT
"""Visibility of the crescent."""

from __future__ import annotations

from collections.abc import Sequence
from typing import Any

from halvane import _engine
from halvane._arguments import (
    DateLike,
    ObserverLike,
    ZoneLike,
    clock_of,
    date_of,
    filled,
    horizon_of,
    limits_of,
    number_of,
    observer_of,
)
from halvane._engines import Engine, core_of
from halvane._events import instant_value
from halvane._prayer import Progress
from halvane._values import (
    Circumstances,
    CircumstanceChoices,
    CrescentAnswer,
    CrescentEvening,
    CrescentQuantities,
    CrescentSky,
    CrescentVerdict,
    Criterion,
    CriterionClass,
    CriterionLimits,
    Date,
    HijriDate,
    MapGrid,
    MoonPlace,
    Observer,
    SeenMoon,
    SeenPlace,
    SeenSun,
    SunPlace,
)
from halvane._words import CrescentKind, word_of

LimitsLike = CriterionLimits | Sequence[float]


def criteria() -> list[Criterion]:
    """Every criterion of crescent visibility, in the order of Halvane's lists."""
    return [
        Criterion(*texts, of_mornings, place and Observer(*place), tuple(CriterionClass(*row) for row in rows), by_eye)
        for texts, of_mornings, place, rows, by_eye in _engine.criteria()
    ]


def _sky(members: Sequence[Any]) -> CrescentSky:
    instant, geocentric, topocentric, parallax = members
    return CrescentSky(
        instant_value(instant), CrescentQuantities(*geocentric), CrescentQuantities(*topocentric), parallax
    )


def _evening(members: Sequence[Any]) -> CrescentEvening:
    kind, conjunction, sun_event, moon_event, lag, age, at_sun_event, at_best_time = members
    return CrescentEvening(
        CrescentKind.all()[kind],
        instant_value(conjunction),
        instant_value(sun_event),
        instant_value(moon_event),
        lag,
        age,
        _sky(at_sun_event),
        _sky(at_best_time),
    )


def crescent(
    kind: str,
    date: DateLike,
    observer: ObserverLike,
    zone: ZoneLike,
    *,
    limits: LimitsLike = CriterionLimits(),
    engine: Engine | None = None,
) -> CrescentAnswer:
    """The crescent of a civil date of a place's clock, of the conjunction nearest to it.

    kind: new, of the evening, or old, of the morning

    The horizon is that of the sea in standard air. Raises BadArgument for a date or a place out of range.
    """
    has_crescent, evening, verdicts = _engine.crescent(
        core_of(engine),
        word_of(CrescentKind, kind).number,
        date_of(date),
        observer_of(observer),
        clock_of(zone),
        limits_of(limits),
    )
    return CrescentAnswer(
        has_crescent,
        None if evening is None else _evening(evening),
        tuple(CrescentVerdict(*members) for members in verdicts),
    )


def crescent_circumstances(
    near: DateLike,
    observer: ObserverLike,
    clock_hours: float,
    choices: CircumstanceChoices = CircumstanceChoices(),
    *,
    engine: Engine | None = None,
) -> Circumstances | None:
    """A crescent as the report tells it, of the conjunction nearest to a date.

    clock_hours: of a fixed clock ahead of Universal Time, -24 to 24 [h]

    None where the Sun or the Moon has no event on the chosen day.
    """
    core = filled(_engine.CircumstanceChoices(), choices, horizon=horizon_of(choices.horizon))
    hours = number_of("The hours of a clock", clock_hours)
    found = _engine.crescent_circumstances(core_of(engine), date_of(near), observer_of(observer), hours, core)
    if found is None:
        return None
    conjunction, date, hijri, sun_event, moon_event, lag, observed, age, sun, moon, quantities, *best = found
    return Circumstances(
        instant_value(conjunction),
        Date(*date),
        HijriDate(*hijri),
        sun_event,
        moon_event,
        lag,
        instant_value(observed),
        age,
        SeenSun(SunPlace(*sun[0]), SeenPlace(*sun[1])),
        SeenMoon(MoonPlace(*moon[0]), SeenPlace(*moon[1]), *moon[2:]),
        CrescentQuantities(*quantities),
        *best,
    )


def crescent_map(
    date: DateLike,
    *,
    kind: str = CrescentKind.NEW,
    criterion: str = "yallop-1997",
    limits: LimitsLike = CriterionLimits(),
    west: float = -180.0,
    south: float = -60.0,
    east: float = 180.0,
    north: float = 60.0,
    step: float = 1.0,
    progress: Progress = None,
    engine: Engine | None = None,
) -> list[MapGrid]:
    """The grids of a map of crescent visibility: one, or two beside each other at the date line.

    date: of every place
    west, east: -180 to below 180, and above it by 360 at most; beyond 180 across the date line [deg]
    south, north: -85 to 85 [deg]
    step: 0.05 to 30 [deg]

    It works on one core; call it from several threads for several maps. Raises BadArgument for choices out of range and
    for a criterion that judges by one place or not of mornings; Error (cancelled).
    """
    choices = _engine.MapChoices()
    choices.kind = word_of(CrescentKind, kind).number
    choices.date = date_of(date)
    choices.criterion = str(criterion)
    choices.limits = limits_of(limits)
    choices.west = number_of("A map's western edge", west)
    choices.south = number_of("A map's southern edge", south)
    choices.east = number_of("A map's eastern edge", east)
    choices.north = number_of("A map's northern edge", north)
    choices.step = number_of("A map's step", step)
    return [MapGrid(*members) for members in _engine.crescent_map(core_of(engine), choices, progress)]
