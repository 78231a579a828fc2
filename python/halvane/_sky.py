# SPDX-License-Identifier: MIT
"""Places of the Sun and the Moon.

`when` is a Julian day [d], an `Instant`, a datetime with a zone or a datetime64 of Universal Time, for numbers; or an
array or sequence of them, for arrays of its shape. `scale` tells which clock a Julian day counts on that is a number.
"""

from __future__ import annotations

from typing import Any, overload

import numpy as np

from halvane import _engine
from halvane._arguments import (
    Moment,
    Moments,
    Numbers,
    ObserverLike,
    instant_of,
    instants_of,
    is_scalar,
    number_of,
    numbers_of,
    observer_of,
)
from halvane._engines import Engine, core_of
from halvane._errors import BadArgument
from halvane._values import Floats, MoonLight, MoonPlace, SeenMoon, SeenPlace, SeenSun, SunPlace
from halvane._words import Accuracy, Scale, word_of


def _places(one: Any, many: Any, when: Any, scale: str, engine: Engine | None, *others: Any) -> list[Any]:
    """The columns of a function of the extension module for one moment, or for each of an array."""
    if is_scalar(when):
        return list(one(core_of(engine), instant_of(when, scale), *others))
    days, number = instants_of(when, scale)
    return [column.reshape(days.shape) for column in many(core_of(engine), days.ravel(), number, *others)]


@overload
def sun(when: Moment, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...) -> SunPlace[float]: ...


@overload
def sun(when: Moments, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...) -> SunPlace[Floats]: ...


def sun(
    when: Moment | Moments,
    *,
    accuracy: str = Accuracy.COMPLETE,
    scale: str = Scale.UT1,
    engine: Engine | None = None,
) -> SunPlace[Any]:
    """Apparent geocentric place of the Sun, of the date's equator and ecliptic.

    when: a moment, or an array of moments
    accuracy: complete, medium or low; of the complete series 1"

    Raises BadArgument for a moment outside the years -4000 to 9999.
    """
    number = word_of(Accuracy, accuracy).number
    return SunPlace(*_places(_engine.sun, _engine.suns, when, scale, engine, number))


@overload
def moon(when: Moment, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...) -> MoonPlace[float]: ...


@overload
def moon(when: Moments, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...) -> MoonPlace[Floats]: ...


def moon(
    when: Moment | Moments,
    *,
    accuracy: str = Accuracy.COMPLETE,
    scale: str = Scale.UT1,
    engine: Engine | None = None,
) -> MoonPlace[Any]:
    """Apparent geocentric place of the Moon, of the date's equator and ecliptic.

    when: a moment, or an array of moments
    accuracy: complete, medium or low; of the complete tables 10"

    Raises BadArgument for a moment outside the years -4000 to 9999.
    """
    number = word_of(Accuracy, accuracy).number
    return MoonPlace(*_places(_engine.moon, _engine.moons, when, scale, engine, number))


@overload
def sun_seen(
    when: Moment, observer: ObserverLike, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...
) -> SeenSun[float]: ...


@overload
def sun_seen(
    when: Moments, observer: ObserverLike, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...
) -> SeenSun[Floats]: ...


def sun_seen(
    when: Moment | Moments,
    observer: ObserverLike,
    *,
    accuracy: str = Accuracy.COMPLETE,
    scale: str = Scale.UT1,
    engine: Engine | None = None,
) -> SeenSun[Any]:
    """The Sun from the Earth's centre and from an observer's place, airless.

    when: a moment, or an array of moments
    observer: latitude, longitude [deg], height [m]
    accuracy: complete, medium, low or fast
    """
    number = word_of(Accuracy, accuracy).number
    numbers = _places(
        _engine.sun_seen, _engine.suns_seen, when, scale, engine, observer_of(observer), number
    )
    return SeenSun(SunPlace(*numbers[:6]), SeenPlace(*numbers[6:]))


@overload
def moon_seen(
    when: Moment, observer: ObserverLike, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...
) -> SeenMoon[float]: ...


@overload
def moon_seen(
    when: Moments, observer: ObserverLike, *, accuracy: str = ..., scale: str = ..., engine: Engine | None = ...
) -> SeenMoon[Floats]: ...


def moon_seen(
    when: Moment | Moments,
    observer: ObserverLike,
    *,
    accuracy: str = Accuracy.COMPLETE,
    scale: str = Scale.UT1,
    engine: Engine | None = None,
) -> SeenMoon[Any]:
    """The Moon from the Earth's centre and from an observer's place, airless.

    when: a moment, or an array of moments
    observer: latitude, longitude [deg], height [m]
    accuracy: complete, medium, low or fast
    """
    number = word_of(Accuracy, accuracy).number
    numbers = _places(
        _engine.moon_seen, _engine.moons_seen, when, scale, engine, observer_of(observer), number
    )
    return SeenMoon(MoonPlace(*numbers[:5]), SeenPlace(*numbers[5:11]), *numbers[11:])


@overload
def moon_light(when: Moment, *, scale: str = ..., engine: Engine | None = ...) -> MoonLight[float]: ...


@overload
def moon_light(when: Moments, *, scale: str = ..., engine: Engine | None = ...) -> MoonLight[Floats]: ...


def moon_light(
    when: Moment | Moments, *, scale: str = Scale.UT1, engine: Engine | None = None
) -> MoonLight[Any]:
    """How the Sun lights the Moon's disc, seen from the Earth's centre.

    when: a moment, or an array of moments
    """
    return MoonLight(*_places(_engine.moon_light, _engine.moon_lights, when, scale, engine))


@overload
def refracted(altitude: float) -> float: ...


@overload
def refracted(altitude: Numbers) -> Floats: ...


def refracted(altitude: float | Numbers) -> float | Floats:
    """The altitude that a body without air would have, raised by refraction in standard air [deg].

    altitude: airless, -4 to 90 [deg], or an array

    Source: Bennett, Journal of Navigation 35, 255 (1982).
    """
    if is_scalar(altitude):
        return _engine.refracted(number_of("An altitude", altitude))
    altitudes = numbers_of("Altitudes", altitude)
    return _engine.refracteds(altitudes.ravel()).reshape(altitudes.shape)


@overload
def qiblah_direction(latitude: float, longitude: float) -> float: ...


@overload
def qiblah_direction(latitude: float | Numbers, longitude: Numbers) -> Floats: ...


@overload
def qiblah_direction(latitude: Numbers, longitude: float | Numbers) -> Floats: ...


def qiblah_direction(latitude: float | Numbers, longitude: float | Numbers) -> float | Floats:
    """Direction of the Kaaba: the initial bearing of the great circle, from true north through east, 0 to 360 [deg].

    latitude, longitude: north and east positive [deg]; arrays are brought to one shape by NumPy's rules

    Raises Error (no_value) at the Kaaba itself, BadArgument.
    """
    if is_scalar(latitude) and is_scalar(longitude):
        return _engine.qiblah_direction(number_of("A latitude", latitude), number_of("A longitude", longitude))
    try:
        latitudes, longitudes = np.broadcast_arrays(
            numbers_of("Latitudes", latitude), numbers_of("Longitudes", longitude)
        )
    except ValueError as refused:
        raise BadArgument(f"Latitudes and longitudes do not go together: {refused}.") from None
    return _engine.qiblah_directions(latitudes.ravel(), longitudes.ravel()).reshape(latitudes.shape)
