#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A second computation of the crescent and the phase report, for the golden files of this folder.

    secondcrescents.py DATA FOLDER crescent|phases

DATA holds the series files, FOLDER the stored files of a case; the report is written to standard output. It
builds on secondreports.py for the series, the Moon, the horizon and the search of rise and set, and adds the
complete Sun, topocentric places by vectors, phases and conjunctions by bisection of the elongation, and the
layout of the two reports.
"""

import math
import sys
from functools import lru_cache
from math import atan2, cos, degrees, floor, radians, sin, sqrt, tan

import secondreports as engine

EPOCH = 2451545.0
AU = 149597870.66


# --- time --------------------------------------------------------------------------------------------------


def polynomial(x, factors):
    return sum(factor * x**power for power, factor in enumerate(factors))


def delta_t(jd):
    """Seconds, after the five millennium canon."""
    y = (jd - 1721057) / 365.2425
    far = -20 + 32 * ((y - 1820) / 100) ** 2
    table = [
        (-500, None, None),
        (500, y / 100, [10583.6, -1014.41, 33.78311, -5.952053, -0.1798452, 0.022174192, 0.0090316521]),
        (1600, (y - 1000) / 100, [1574.2, -556.01, 71.23472, 0.319781, -0.8503463, -0.005050998, 0.0083572073]),
        (1700, y - 1600, [120, -0.9808, -0.01532, 1 / 7129]),
        (1800, y - 1700, [8.83, 0.1603, -0.0059285, 0.00013336, -1 / 1174000]),
        (
            1860,
            y - 1800,
            [13.72, -0.332447, 0.0068612, 0.0041116, -0.00037436, 0.0000121272, -0.0000001699, 0.000000000875],
        ),
        (1900, y - 1860, [7.62, 0.5737, -0.251754, 0.01680668, -0.0004473624, 1 / 233174]),
        (1920, y - 1900, [-2.79, 1.494119, -0.0598939, 0.0061966, -0.000197]),
        (1941, y - 1920, [21.20, 0.84493, -0.076100, 0.0020936]),
        (1961, y - 1950, [29.07, 0.407, -1 / 233, 1 / 2547]),
        (1986, y - 1975, [45.45, 1.067, -1 / 260, -1 / 718]),
        (2005, y - 2000, [63.86, 0.3345, -0.060374, 0.0017275, 0.000651814, 0.00002373599]),
        (2050, y - 2000, [62.92, 0.32217, 0.005589]),
    ]
    for end, x, factors in table:
        if y < end:
            return far if factors is None else polynomial(x, factors)
    return far - 0.5628 * (2150 - y) if y < 2150 else far


engine.delta_t = delta_t


def julian_day(y, m, d):
    """0 h of a civil date, Julian before 15 October 1582, by counting days."""
    julian = (y, m, d) < (1582, 10, 15)
    a = (14 - m) // 12
    years, months = y + 4800 - a, m + 12 * a - 3
    days = d + (153 * months + 2) // 5 + 365 * years + years // 4
    return (days - 32083 if julian else days - years // 100 + years // 400 - 32045) - 0.5


def civil(jd):
    """Year, month, day and hours of a civil date."""
    day = floor(jd + 0.5)
    if day < 2299161:
        c = day + 32082
        century = 0
    else:
        a = day + 32044
        century = (4 * a + 3) // 146097
        c = a - 146097 * century // 4
    d = (4 * c + 3) // 1461
    e = c - 1461 * d // 4
    m = (5 * e + 2) // 153
    y = 100 * century + d - 4800 + m // 10
    return y, m + 3 - 12 * (m // 10), e - (153 * m + 2) // 5 + 1, (jd + 0.5 - day) * 24


def in_summer(s, year, month, day):
    if not s.summer:
        return 0

    def count(m, d):
        # Days of the proleptic Gregorian calendar; a day past its month's end rolls over.
        a = (14 - m) // 12
        y = year + 4800 - a
        return d + (153 * (m + 12 * a - 3) + 2) // 5 + 365 * y + y // 4 - y // 100 + y // 400

    start, end, date = count(*s.summer_span[:2]), count(*s.summer_span[2:]), count(month, day)
    return int(start <= date <= end if start <= end else date >= start or date <= end)


# --- places ------------------------------------------------------------------------------------------------

SUN = None


def read_sun(data):
    rows = engine.numbers(f"{data}/termfull.vsk")
    groups, start = [], 0
    for count in [559, 341, 142, 22, 11, 5, 184, 99, 49, 11, 5, 526, 292, 139, 27, 10, 3]:
        groups.append(rows[start : start + count])
        start += count
    assert start == len(rows)
    return groups


def daily_variation(tau):
    def sine(a, b, c):
        return a * sin(radians(b + c * tau))

    v = 3548.193
    for row in [
        (118.568, 87.5287, 359993.7286), (2.476, 85.0561, 719987.4571), (1.376, 27.8502, 4452671.1152),
        (0.119, 73.1375, 450368.8564), (0.114, 337.2264, 329644.6718), (0.086, 222.5400, 659289.3436),
        (0.078, 162.8136, 9224659.7915), (0.054, 82.5823, 1079981.1857), (0.052, 171.5189, 225184.4282),
        (0.034, 30.3214, 4092677.3866), (0.033, 119.8105, 337181.4711), (0.023, 247.5418, 299295.6151),
        (0.023, 325.1526, 315559.5560), (0.021, 155.1241, 675553.2846),
    ]:  # fmt: skip
        v += sine(*row)
    for row in [(7.311, 333.4515, 359993.7286), (0.305, 330.9814, 719987.4571), (0.010, 328.5170, 1079981.1857)]:
        v += tau * sine(*row)
    for row in [(0.309, 241.4518, 359993.7286), (0.021, 205.0482, 719987.4571), (0.004, 297.8610, 4452671.1152)]:
        v += tau**2 * sine(*row)
    return (v + tau**3 * sine(0.010, 154.7066, 359993.7286)) / 3600


def sun_ecliptic(jd):
    """Apparent longitude, latitude [deg], radius [AU]."""
    t = engine.centuries(jd)
    tau = t / 10
    sums = [sum(a * cos(b + c * tau) for a, b, c in group) for group in SUN]
    l = sum(s * tau**i for i, s in enumerate(sums[:6]))
    b = sum(s * tau**i for i, s in enumerate(sums[6:11]))
    r = sum(s * tau**i for i, s in enumerate(sums[11:]))
    lon, lat = degrees(l) + 180, -degrees(b)
    lp = radians(lon - 1.397 * t - 0.00031 * t**2)
    lat += (cos(lp) - sin(lp)) * 0.03916 / 3600
    lon -= 0.09 / 3600
    return lon + engine.orientation(jd)[0] - 0.005775518 * r * daily_variation(tau), lat, r


def moon_ecliptic(jd):
    """Apparent longitude, latitude [deg], distance [km]."""
    lon, lat, r = engine.moon_medium_ecliptic(jd)
    return lon + engine.orientation(jd)[0], lat, r


def observer(s, jd):
    """Ecliptic vector of the place, in equatorial radii."""
    eps = radians(engine.orientation(jd)[1])
    theta, phi = radians(engine.sidereal(jd) + s.longitude), radians(s.latitude)
    u = math.atan(0.99664719 * tan(phi))
    z = 0.99664719 * sin(u) + s.height / 6378140 * sin(phi)
    rho = cos(u) + s.height / 6378140 * cos(phi)
    x, y = rho * cos(theta), rho * sin(theta)
    return x, y * cos(eps) + z * sin(eps), z * cos(eps) - y * sin(eps)


class Place:
    """A body at an instant: geocentric or topocentric ecliptic and equatorial place, semidiameter, parallax."""

    def __init__(self, s, jd, ecliptic, sine_parallax, sine_radius, geocentric):
        lon, lat, self.distance = ecliptic
        l, b = radians(lon), radians(lat)
        vector = (cos(b) * cos(l), cos(b) * sin(l), sin(b))
        if not geocentric:
            vector = [p - sine_parallax * q for p, q in zip(vector, observer(s, jd))]
        length = sqrt(sum(c * c for c in vector))
        self.longitude = degrees(atan2(vector[1], vector[0])) % 360
        self.latitude = degrees(math.asin(vector[2] / length))
        eps = engine.orientation(jd)[1]
        self.ra, self.dec = engine.equatorial(self.longitude, self.latitude, eps)
        self.semidiameter = degrees(math.asin(sine_radius / length))
        self.parallax = degrees(math.asin(sine_parallax))


def sun_place(s, jd, geocentric):
    ecliptic = sun_ecliptic(jd)
    sine_parallax = sin(radians(0.00244277777778 / ecliptic[2]))
    return Place(s, jd, ecliptic, sine_parallax, 0, geocentric)


def moon_place(s, jd, geocentric):
    ecliptic = moon_ecliptic(jd)
    sine_parallax = 6378.137 / ecliptic[2]
    return Place(s, jd, ecliptic, sine_parallax, 0.2725076 * sine_parallax, geocentric)


@lru_cache(maxsize=None)
def phase_near(s, tt, angle, geocentric):
    """Instant of dynamical time at which the elongation is `angle`, by bisection around an estimate."""

    def beyond(t):
        ut = universal(t)
        longitude = moon_place(s, ut, geocentric).longitude - sun_place(s, ut, geocentric).longitude
        return (longitude - angle + 180) % 360 - 180

    step = 0.02
    low, high = tt - step, tt + step
    while beyond(low) > 0:
        low -= step
    while beyond(high) < 0:
        high += step
    for _ in range(40):
        middle = (low + high) / 2
        if beyond(middle) < 0:
            low = middle
        else:
            high = middle
    return (low + high) / 2


def universal(tt):
    """UT1 whose dynamical time this is."""
    ut = tt
    for _ in range(6):
        ut = tt - delta_t(ut) / 86400
    return ut


def mean_phase(k):
    """Instant within three quarters of a day, by the mean lunation and the two largest terms."""
    t = k / 1236.85
    m = radians(2.5534 + 29.10535669 * k)
    mp = radians(201.5643 + 385.81693528 * k + 0.0107438 * t**2)
    jde = 2451550.09765 + 29.530588853 * k + 0.0001337 * t**2
    quarter = k % 1 in (0.25, 0.75)
    return jde + (-0.628 if quarter else -0.407) * sin(mp) + 0.172 * sin(m)


# --- texts -------------------------------------------------------------------------------------------------


def sexagesimal(value, letter):
    n = round(abs(value) * 3600)
    sign = "-" if value < 0 else "+"
    d, m, s = n // 3600, n // 60 % 60, n % 60
    return f"{sign}{d:02d}°:{m:02d}':{s:02d}\"" if letter == "d" else f"{sign}{d:02d}H {m:02d}M {s:02d}S "


def hours_text(s, value):
    if s.seconds:
        return sexagesimal(value, "h")
    n = round(abs(value) * 60)
    return f"{'-' if value < 0 else '+'}{n // 60:02d}H {n % 60:02d}M "


def place_line(s):
    p = s.parts

    def angle(positive, d, m, sec):
        sign = "" if positive or d == 0 else "-"
        return f"{sign}{abs(d):02.0f}:{m:02.0f}:{sec:04.1f}"

    return (
        f"- {s.name}, Long: {angle(s.east, *p[0:3])}, Lat: {angle(s.north, *p[3:6])}, "
        f"Ele:{s.height:.1f}, Zone:{s.zone:.2f}"
    )


HIJRI = [
    "Muharram", "Safar", "Rabeea' Awwal", "Rabeea' Thani", "Jamada Aula", "Jamada Aakherah", "Rajab", "Sha'ban",
    "Ramadan", "Shawwal", "Thul Kea'deh", "Thul Hejjah",
]  # fmt: skip


def first_of_hijri(year, month):
    """Day number of the noon of a month's first day, by adding up months of 30 and 29 days and leap years."""
    leap = sum(1 for y in range(1, (year - 1) % 30 + 1) if (11 * y + 14) % 30 < 11)
    days = (year - 1) // 30 * 10631 + (year - 1) % 30 * 354 + leap
    return 1948440 + days + sum(30 if m % 2 else 29 for m in range(1, month))


def hijri_of(day):
    year = (day - 1948440) // 355 + 1
    while first_of_hijri(year + 1, 1) <= day:
        year += 1
    month = max(m for m in range(1, 13) if first_of_hijri(year, m) <= day)
    return HIJRI[month - 1], year


def number(text):
    """The leading decimal number of an entry."""
    for end in range(len(text), 0, -1):
        part = text[:end]
        if all(c in "+-.0123456789" for c in part):
            try:
                return float(part)
            except ValueError:
                continue
    return 0.0


# --- crescent ----------------------------------------------------------------------------------------------


class Crescent:
    def __init__(self, s, folder):
        v = engine.record(f"{folder}/visib.vsk")
        self.new, self.geocentric = v[3], v[4]
        self.days = max([i for i in range(3) if v[5 + i]], default=0)
        self.time = max([i for i in range(4) if v[8 + i]], default=0)
        self.user = number(v[12]) + number(v[13]) / 60
        if v[14]:
            y, m, d = number(v[2]), number(v[1]), number(v[0])
        else:
            day = first_of_hijri(int(number(v[17])), int(float(v[16])) + 1) + (0 if self.new else 30)
            y, m, d, _ = civil(day)
        lunation = round((y + ((m - 1) * 30.4 + d) / 365.25 - 2000) * 12.3685)
        tt = phase_near(s, mean_phase(lunation), 0, self.geocentric)
        ut = tt - delta_t(tt) / 86400
        year, month, day, _ = civil(ut)
        # Month and day count, the year does not.
        self.summer = in_summer(s, 2004, month, day)
        self.conjunction = ut + (self.summer + s.zone) / 24
        date = civil(self.conjunction)
        self.day = julian_day(*date[:3]) + (self.days if self.new else -self.days)
        ahead = (s.zone + self.summer) / 24
        sun = engine.search(s, "Sun", self.day - ahead)
        moon = engine.search(s, "Moon", self.day - ahead)
        which = 1 if self.new else 0
        self.sun, self.moon = sun[which], moon[which]
        self.short = isinstance(self.sun, str) or isinstance(self.moon, str)
        if self.short:
            return
        self.lag = (self.moon - self.sun) * (1 if self.new else -1)
        best = self.sun + (1 if self.new else -1) * self.lag * 4 / 9
        if self.time == 2 and self.lag <= 0:
            best = self.sun if self.new else self.moon
        self.hours = [self.sun, self.moon, best, self.user][self.time]
        instant = self.day + self.hours / 24
        self.age = (instant - self.conjunction) * 24
        self.ut = instant - ahead
        self.fill(s, self.ut, self.geocentric)
        values = (self.altitude_difference, self.width)
        self.fill(s, self.day + best / 24 - ahead, False)
        self.arcv, self.best_width = self.altitude_difference, self.width * 60
        w = self.best_width
        self.v = self.arcv - (7.1651 - 6.3226 * w + 0.7319 * w**2 - 0.1018 * w**3)
        self.fill(s, self.ut, self.geocentric)
        assert values == (self.altitude_difference, self.width)

    def fill(self, s, ut, geocentric):
        sun, moon = sun_place(s, ut, geocentric), moon_place(s, ut, geocentric)
        self.sun_place, self.moon_place = sun, moon
        self.sun_altaz = engine.horizontal(s, ut, sun.ra, sun.dec)
        self.moon_altaz = engine.horizontal(s, ut, moon.ra, moon.dec)
        self.altitude_difference = self.moon_altaz[0] - self.sun_altaz[0]

        def vector(place):
            a, d = radians(place.ra), radians(place.dec)
            return cos(d) * cos(a), cos(d) * sin(a), sin(d)

        p, q = vector(sun), vector(moon)
        dot = sum(x * y for x, y in zip(p, q))
        cross = (p[1] * q[2] - p[2] * q[1], p[2] * q[0] - p[0] * q[2], p[0] * q[1] - p[1] * q[0])
        e = atan2(sqrt(sum(c * c for c in cross)), dot)
        rs, rm = sun.distance * AU, moon.distance
        i = atan2(rs * sin(e), rm - rs * cos(e))
        self.elongation, self.phase_angle = degrees(e), degrees(i)
        self.fraction = (1 + cos(i)) / 2
        self.width = 2 * self.fraction * moon.semidiameter
        self.magnitude = -12.73 + 0.026 * self.phase_angle + 4e-9 * self.phase_angle**4


def crescent_report(s, folder):
    c = Crescent(s, folder)
    lines = engine.Lines()

    def row(*parts):
        lines.put(*parts).end()

    row(26, "By the Name of Allah")
    row(19, "Tarsine Sky Circle")
    row(20, "Halvane 5.3, By Orlan Vesk")
    row("")
    if c.short:
        row("Crescent Visibility calculations on this day from this location need careful ")
        row("technique, because there is no Sunset/Sunrise and/or Moonset/Moonrise event(s).")
        return lines.text()
    row("* Settings:-")
    name, year = hijri_of(floor(c.day + (7 if c.new else -7)))
    kind = "Waxing Crescent (New, Evening)." if c.new else "Waning Crescent (Old, Morning)."
    row(f"- Calculations for {name} {year} AH {kind}")
    y, m, d, _ = civil(c.day)
    weekday = ["Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"][int(c.day + 0.5) % 7]
    row(f"- Crescent Visibility on: {weekday}  {d:02d}/{m:02d}/{y} CE")
    word = [["Sunset", "Moonset"], ["Sunrise", "Moonrise"]][0 if c.new else 1] + ["Best", "User"]
    row(f"- Calculations are Done at {word[c.time]} Time at:  {engine.clock(s.seconds, c.hours % 24)} LT")
    row(f"- Calculations are {'Geocentric' if c.geocentric else 'Topocentric'}.")
    row(place_line(s))
    row("- Summer time is: ", "On" if c.summer else "Off")
    height = "affects rise and set events." if s.height_counts else "does NOT affect rise and set events"
    row("- Height above mean sea-level ", height)
    row(
        f"- Refraction Settings: Temperature: {engine.plain(s.temperature)} °C   "
        f"Pressure: {engine.plain(s.pressure)} mb"
    )
    row(f"- Delta T: {delta_t(c.ut):05.2f} Second(s)")
    row("=" * 78)
    row("")
    g = "G. " if c.geocentric else "T. "
    y, m, d, hours = civil(c.conjunction)
    row(f"- {g}Conjunction Time:", 24, f"{d:02d}/{m:02d}/{y:04d} CE, {engine.clock(s.seconds, hours)} LT")
    row("- Julian Date at Time of Calculations:", 40, f"{c.ut:.5f}")
    row("")
    first, second = ("Sunset:", "Moonset:") if c.new else ("Moorise:", "Sunrise:")
    times = [engine.clock(s.seconds, t) for t in ((c.sun, c.moon) if c.new else (c.moon, c.sun))]
    row("- ", first, 12, times[0], " LT", 43, g, "Moon Age:", 58, hours_text(s, c.age))
    row("- ", second, 12, times[1], " LT", 43, "Moon Lag Time:", 58, hours_text(s, c.lag))
    row("")

    def pair(label, value, a, other, other_value, b):
        row("- ", g, label, a, value, 43, other, b, other_value)

    def d_(value):
        return sexagesimal(value, "d")

    for body, p in (("Moon", c.moon_place), ("Sun", c.sun_place)):
        ra = sexagesimal(p.ra / 15, "h")
        pair(f"{body} Right Ascension:", ra, 28, f"{g}{body} Declination:", d_(p.dec), 64)
    row("")
    for body, p in (("Moon", c.moon_place), ("Sun", c.sun_place)):
        pair(f"{body} Longitude:", d_(p.longitude), 22, f"{g}{body} Latitude:", d_(p.latitude), 61)
    row("")
    for body, p in (("Moon", c.moon_altaz), ("Sun", c.sun_altaz)):
        pair(f"{body} Altitude:", d_(p[0]), 21, f"{g}{body} Azimuth:", d_(p[1]), 60)
    row("")
    azimuth = c.moon_altaz[1] - c.sun_altaz[1]
    pair("Relative Altitude:", d_(c.altitude_difference), 25, f"{g}Elongation:", d_(c.elongation), 59)
    pair("Relative Azimuth:", d_(azimuth), 25, f"{g}Phase Angle:", d_(c.phase_angle), 59)
    row("")
    moon = c.moon_place
    pair("Crescent Width:", d_(c.width), 22, f"{g}Moon Semi-Diameter:", d_(moon.semidiameter), 67)
    light = f"{c.fraction * 100:05.2f} %"
    pair("Illumination:", light, 22, "G. Horizontal Parallax:", d_(moon.parallax), 67)
    row("")
    sign = "-" if c.magnitude < 0 else ""
    pair("Magnitude:", f"{sign}{abs(c.magnitude):05.2f}", 17, "G. Distance:", f"{moon.distance:.2f} Km", 56)
    row("- According to Vesk Criteria, using the following values at Best Time:")

    def signed(value, width, digits):
        return ("-" if value < 0 else "") + f"{abs(value):0{width}.{digits}f}"

    row("  * Moon-Sun Topocentric Relative Altitude =", 45, d_(c.arcv), f" ({signed(c.arcv, 4, 1)}°)")
    row("  * Topocentric Crescent width =", 34, d_(c.best_width / 60), f" ({c.best_width:.2f}')")
    row("  * q =", 9, signed(c.v, 4, 2))
    row("")
    sentence = (
        "Easily Visible By Naked Eye." if c.v >= 5.65
        else "Visible With Optical Aid, Could Be Seen By Naked Eye." if c.v >= 2
        else "Visible With Optical Aid Only." if c.v >= -0.97
        else "Not Visible Even With Optical Aid."
    )  # fmt: skip
    row("  * The Crescent Visibility is:", 33, sentence)
    row("")
    early = c.age < 0 if c.new else c.age > 0
    what = "New" if c.new else "Old"
    behind = "Moon Sets" if c.new else "Moon Rises"
    order = "Before The Sun" if c.new else "After The Sun"
    when = "Occurs After Sunset." if c.new else "Occurs Before Moonrise."
    if c.lag < 0 and early:
        row(f"- Note: It's Impossible To See The {what} Crescent Today, Because The {behind}")
        row(f"        {order}, and The Conjunction {when}")
    elif early:
        row(f"- Note: It's Impossible To see The {what} Crescent Today, Because The Conjunction")
        row(f"        {when}")
    elif c.lag < 0:
        row(f"- Note: It's Impossible To see The {what} Crescent Today, Because The {behind} ")
        row(f"        {order}.")
    row("=" * 78)
    row("")
    row("* Remarks:-")
    row("")
    row("- Date format: dd/mm/yyyy.")
    row("- The Prefix 'G.' means Geocentric, and 'T.' means Topocentric.")
    row("- For New Crescent: Moon Lag Time = Moonset - Sunset.")
    row("- For Old Crescent: Moon Lag Time = Sunrise - Moonrise.")
    row("- For New Crescent: Best Time = Sunset + 4/9 (Moon Lag Time).")
    row("- For Old Crescent: Best Time = Sunrise - 4/9 (Moon Lag Time).")
    return lines.text()


# --- phases ------------------------------------------------------------------------------------------------


def phase_report(s, folder):
    year_text, geocentric, ut1 = engine.record(f"{folder}/phase.vsk")
    year = int(number(year_text))
    proposed = round(delta_t(julian_day(year, 6, 15)), 2)
    lines = engine.Lines()

    def row(*parts):
        lines.put(*parts).end()

    row(26, "By the Name of Allah")
    row(19, "Tarsine Sky Circle")
    row(20, "Halvane 5.3, By Orlan Vesk")
    row("")
    row("* Settings:-")
    shown = f"{'-' if year < 0 else ''}{abs(year):04d}"
    row(f"- {'Geocentric' if geocentric else 'Topocentric'} Phases of The Moon for The Year:  {shown} CE")
    row(place_line(s))
    if s.summer:
        a, b, c, d = s.summer_span
        row(f"- Summer time is from:  {b:02d}/{a:02d}   To:  {d:02d}/{c:02d}")
    else:
        row("- No Summer Time.")
    if ut1:
        row(f"- Time Reference is Local (UT1),  Delta T: {proposed:05.2f} Second(s)")
    else:
        row("- Time Reference is Local (TDT).")
    row("")
    row("=" * 103)
    row("")
    row(7, "New Moon", 32, "First Quarter", 61, "Full Moon", 90, "Last Quarter")
    row("")
    complete = 0
    k = floor((year - 2000) * 12.3685) - 1
    open_line = False
    for number_of_row in range(15):
        for quarter, column in ((0, 2), (1, 29), (2, 58), (3, 87)):
            t = phase_near(s, mean_phase(k + number_of_row + quarter / 4), 90 * quarter, geocentric)
            if ut1:
                t -= proposed / 86400
            y, m, d, _ = civil(t)
            summer = in_summer(s, y, m, d)
            y, m, d, hours = civil(t + (summer + s.zone) / 24)
            if y != year:
                continue
            date = f"{d:02d}/{m:02d}/{'-' if y < 0 else ''}{abs(y):04d}  {engine.clock(s.seconds, hours)}"
            lines.put(column - 1, "*") if summer else lines.put(column)
            lines.put(date)
            open_line = True
            if quarter == 3:
                lines.end()
                open_line = False
                complete += 1
                if complete in (4, 8):
                    row("")
    if open_line:
        lines.end()
    else:
        row("")
    row("")
    row("=" * 103)
    row("")
    row("* Remarks:-")
    row("- Date format: dd/mm/yyyy.")
    row("- The Symbol '*' before the date, refers to Summer Time.")
    return lines.text()


def main():
    global SUN
    data, folder, task = sys.argv[1:4]
    engine.SERIES = engine.Series(data)
    SUN = read_sun(data)
    s = settings(folder)
    report = crescent_report(s, folder) if task == "crescent" else phase_report(s, folder)
    sys.stdout.buffer.write(report.encode("utf-8"))


def settings(folder):
    """The stored place and preferences; the dates of the other reports do not matter here."""
    s = engine.Settings.__new__(engine.Settings)
    record = engine.record

    def reader(path):
        if not path.endswith("date.vsk"):
            return record(path)
        return [True] + ["1"] * 16 + [False]

    engine.record = reader
    s.__init__(folder)
    engine.record = record
    return s


if __name__ == "__main__":
    main()
