# SPDX-License-Identifier: MIT
"""Prayer times and timetables."""

from __future__ import annotations

from collections.abc import Callable, Iterable
from typing import Any, TypeAlias

from halvane import _engine
from halvane._arguments import (
    DateLike,
    ObserverLike,
    ZoneLike,
    clock_of,
    date_of,
    filled,
    horizon_of,
    observer_of,
)
from halvane._engines import Engine, core_of
from halvane._errors import BadArgument
from halvane._events import clock_times
from halvane._values import (
    Authority,
    Iqamah,
    PrayerTimes,
    ReportRules,
    TimetableDay,
    TimetablePlace,
    TimetableRules,
    Timetables,
)
from halvane._words import HighLatitudeRule, IqamahKind, Rounding, RuleUse, word_of

Progress: TypeAlias = Callable[[float], object] | None
"""A function of the percentage that is done, 0 to 100; when it gives False, the work ends with Error (cancelled)."""


def prayer_times(
    date: DateLike,
    observer: ObserverLike,
    zone: ZoneLike,
    rules: ReportRules = ReportRules(),
    *,
    engine: Engine | None = None,
) -> PrayerTimes:
    """The six times of a civil date, as Halvane's prayer report calculates them, before any rounding.

    Raises BadArgument, and Error (no_value) where the method of high latitudes does not reach.
    """
    day = date_of(date)
    core = filled(_engine.ReportRules(), rules, horizon=horizon_of(rules.horizon))
    pairs = _engine.prayer_times(core_of(engine), day, observer_of(observer), clock_of(zone), core)
    return PrayerTimes(*clock_times(pairs, day, zone))


def authorities() -> list[Authority]:
    """The authorities that publish rules of prayer times."""
    return [Authority(*members) for members in _engine.authorities()]


def rules_of_authority(key: str) -> TimetableRules:
    """The rules of an authority.

    key: one of `authorities`, "umm-al-qura"

    Raises BadArgument for a key that there is none of, naming every known one.
    """
    core = _engine.rules_of_authority(str(key))
    return TimetableRules(
        fajer_angle=core.fajer_angle,
        isha_angle=core.isha_angle,
        isha_minutes=core.isha_minutes,
        isha_minutes_ramadan=core.isha_minutes_ramadan,
        maghreb_angle=core.maghreb_angle,
        hanafi=core.hanafi,
        height_counts=core.height_counts,
        added=tuple(core.added),
        rounding=tuple(Rounding.all()[number] for number in core.rounding),
        high_latitude=HighLatitudeRule.all()[core.high_latitude],
        rule_use=RuleUse.all()[core.rule_use],
        reference_latitude=core.reference_latitude,
        night_until_fajer=core.night_until_fajer,
        imsak_minutes=core.imsak_minutes,
        seconds=core.seconds,
        iqamah=tuple(Iqamah(IqamahKind.all()[kind], minutes, up) for kind, minutes, up in core.iqamah),
        jumuah=tuple(core.jumuah),
    )


def _core_rules(rules: TimetableRules) -> _engine.TimetableRules:
    return filled(
        _engine.TimetableRules(),
        rules,
        rounding=tuple(word_of(Rounding, word) for word in rules.rounding),
        iqamah=tuple((word_of(IqamahKind, kind), *others) for kind, *others in rules.iqamah),
    )


def timetable(
    first: DateLike,
    last: DateLike,
    observer: ObserverLike,
    zone: ZoneLike,
    rules: TimetableRules = TimetableRules(),
    *,
    progress: Progress = None,
    engine: Engine | None = None,
) -> list[TimetableDay]:
    """The rows from one date to another, both inside, 36600 at most.

    Each time is found in its own night, whatever the clock does at midnight or on the days of its change.

    Raises BadArgument for rules, a place or dates out of range; Error: no_value where the year method does not reach;
    cancelled.
    """
    arrays = _engine.timetable(
        core_of(engine),
        date_of(first),
        date_of(last),
        observer_of(observer),
        clock_of(zone),
        _core_rules(rules),
        progress,
    )
    return Timetables(**arrays).days(0)


def _pair_of(place: Any) -> tuple[Any, Any]:
    try:
        observer, zone = place
    except (TypeError, ValueError):
        raise BadArgument(f"A place is an observer and a zone, not {place!r}.") from None
    return observer_of(observer), clock_of(zone)


def timetables(
    first: DateLike,
    last: DateLike,
    places: Iterable[TimetablePlace | tuple[ObserverLike, ZoneLike]],
    rules: TimetableRules = TimetableRules(),
    *,
    progress: Progress = None,
    engine: Engine | None = None,
) -> Timetables:
    """The timetables of many places as arrays, by one thread: the dates of a year share the Sun.

    places: pairs of an observer and a zone. A day of a place takes 400 bytes here and as many again while it is made.

    Raises as `timetable`.
    """
    arrays = _engine.timetables(
        core_of(engine),
        date_of(first),
        date_of(last),
        [_pair_of(place) for place in places],
        _core_rules(rules),
        progress,
    )
    return Timetables(**arrays)
