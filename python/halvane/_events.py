# SPDX-License-Identifier: MIT
"""Rise, transit and set, twilight, passages, phases of the Moon, the Sun in a direction.

`date` is year, month, day of the calendar of `Date`, or a datetime.date; `observer` latitude and longitude [deg] and
perhaps height [m]; `zone` an IANA name, a tzinfo or hours ahead of Universal Time.
"""

from __future__ import annotations

from collections.abc import Sequence
from typing import Any

from halvane import _engine
from halvane._arguments import (
    DateLike,
    Moment,
    ObserverLike,
    ZoneLike,
    clock_of,
    date_of,
    horizon_of,
    instant_of,
    number_of,
    observer_of,
    zone_of,
)
from halvane._engines import Engine, core_of
from halvane._values import (
    AltitudePassage,
    BodyDay,
    ClockTime,
    Date,
    Horizon,
    Instant,
    PhaseMoment,
    SunInDirection,
    Twilight,
)
from halvane._words import Body, Missing, Phase, Scale, word_of

HorizonLike = Horizon | Sequence[Any]


def instant_value(pair: tuple[float, int]) -> Instant:
    jd, number = pair
    return Instant(jd, Scale.all()[number])


def clock_times(pairs: Sequence[tuple[float, int]], date: Date, zone: ZoneLike) -> list[ClockTime]:
    """The times of a date on a place's clock."""
    hours_ahead = clock_of(zone).hours_ahead(date)
    known = zone_of(zone)
    name = known if isinstance(known, str) else None
    return [ClockTime(hours, Missing.all()[missing], date, hours_ahead, name) for hours, missing in pairs]


def sun_day(
    date: DateLike,
    observer: ObserverLike,
    zone: ZoneLike,
    *,
    horizon: HorizonLike = Horizon(),
    engine: Engine | None = None,
) -> BodyDay:
    """The Sun's rise, transit and set on a civil date of a clock, to 5 s at latitudes up to 60 deg.

    Raises BadArgument for a date or a place out of range.
    """
    day = date_of(date)
    pairs = _engine.sun_day(core_of(engine), day, observer_of(observer), clock_of(zone), horizon_of(horizon))
    return BodyDay(*clock_times(pairs, day, zone))


def moon_day(
    date: DateLike,
    observer: ObserverLike,
    zone: ZoneLike,
    *,
    horizon: HorizonLike = Horizon(),
    engine: Engine | None = None,
) -> BodyDay:
    """The Moon's rise, transit and set on a civil date of a clock, to 20 s at latitudes up to 60 deg.

    Raises BadArgument for a date or a place out of range.
    """
    day = date_of(date)
    pairs = _engine.moon_day(core_of(engine), day, observer_of(observer), clock_of(zone), horizon_of(horizon))
    return BodyDay(*clock_times(pairs, day, zone))


def twilight(
    date: DateLike,
    observer: ObserverLike,
    zone: ZoneLike,
    depression: float,
    *,
    horizon: HorizonLike = Horizon(),
    engine: Engine | None = None,
) -> Twilight:
    """The moments of a civil date at which the Sun's centre stands at a depression: dawn and dusk.

    depression: below the horizon, airless, 0 to 90 [deg]
    """
    day = date_of(date)
    degrees = number_of("A depression", depression)
    place = observer_of(observer)
    pairs = _engine.twilight(core_of(engine), day, place, clock_of(zone), degrees, horizon_of(horizon))
    return Twilight(*clock_times(pairs, day, zone))


def altitude_passages(
    body: str,
    altitude: float,
    start: Moment,
    end: Moment,
    observer: ObserverLike,
    *,
    engine: Engine | None = None,
) -> list[AltitudePassage]:
    """Every passage of the Sun's or the Moon's centre through an altitude between two moments, in their order.

    body: sun or moon
    altitude: topocentric, airless, -90 to 90 [deg]
    start, end: at most 400 days apart

    To 1 s where the body crosses the altitude by more than 1 deg an hour; two passages less than ten minutes apart may
    be missed.
    """
    found = _engine.altitude_passages(
        core_of(engine),
        word_of(Body, body).number,
        number_of("An altitude", altitude),
        instant_of(start),
        instant_of(end),
        observer_of(observer),
    )
    return [AltitudePassage(instant_value(instant), rising) for instant, rising in found]


def moon_phases(
    start: Moment, end: Moment, *, observer: ObserverLike | None = None, engine: Engine | None = None
) -> list[PhaseMoment]:
    """The phases of the Moon between two moments, in their order; at most 400 years at once.

    observer: of topocentric longitudes; None: geocentric ones
    """
    place = None if observer is None else observer_of(observer)
    found = _engine.moon_phases(core_of(engine), instant_of(start), instant_of(end), place)
    return [PhaseMoment(Phase.all()[phase], lunation, instant_value(instant)) for phase, lunation, instant in found]


def conjunction(near: Moment, *, observer: ObserverLike | None = None, engine: Engine | None = None) -> Instant:
    """The conjunction of the Moon with the Sun in longitude nearest to a moment.

    observer: of topocentric longitudes; None: geocentric ones
    """
    place = None if observer is None else observer_of(observer)
    return instant_value(_engine.conjunction(core_of(engine), instant_of(near), place))


def sun_in_direction(
    date: DateLike,
    observer: ObserverLike,
    zone: ZoneLike,
    azimuth: float,
    *,
    shadow: bool = False,
    horizon: HorizonLike = Horizon(),
    engine: Engine | None = None,
) -> SunInDirection:
    """When the Sun, or the shadow that it casts, lies in a direction on a civil date of a clock.

    azimuth: from true north through east, 0 to 360 [deg]
    shadow: whether the shadow and not the Sun is meant

    Azimuth of the Sun within 0.05 deg of the target unless it passes close to the zenith.
    """
    day = date_of(date)
    first, second, first_below, second_below = _engine.sun_in_direction(
        core_of(engine),
        day,
        observer_of(observer),
        clock_of(zone),
        number_of("An azimuth", azimuth),
        bool(shadow),
        horizon_of(horizon),
    )
    times = clock_times((first, second), day, zone)
    return SunInDirection(times[0], times[1], first_below, second_below)
