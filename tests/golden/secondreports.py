#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A second computation of the prayer and the Moon report, for the golden files of this folder.

    secondreports.py DATA FOLDER prayer|moon

DATA holds the series files, FOLDER the stored files of a case; the report is written to standard output.
Nothing here is shared with the program: plain loops after the same books (Meeus, Astronomical Algorithms;
Chapront-Touze and Chapront, Lunar Tables and Programs; Montenbruck and Pfleger, Astronomy on the Personal
Computer; Espenak and Meeus for Delta T), the standard library's atan2, asin and datetime.
"""

import csv
import datetime
import math
import struct
import sys
from functools import lru_cache
from math import cos, degrees, floor, radians, sin, sqrt, tan

EPOCH = 2451545.0


# --- stored files ------------------------------------------------------------------------------------------


def record(path):
    with open(path, encoding="utf-8", newline="") as stream:
        row = next(csv.reader(stream))
    return [True if f == "#TRUE#" else False if f == "#FALSE#" else f for f in row]


def numbers(path):
    with open(path, encoding="ascii") as stream:
        return [[float(f) for f in line.split(",")] for line in stream if line.strip()]


class Series:
    """The series files as plain lists of rows."""

    def __init__(self, data):
        def groups(rows, counts):
            result, start = [], 0
            for count in counts:
                result.append(rows[start : start + count])
                start += count
            assert start <= len(rows)
            return result

        term = [row[1:] for row in numbers(f"{data}/term.vsk")]
        self.term = groups(term, [78, 39, 27, 8, 4, 4, 7, 3, 50, 14, 8, 2, 4])
        mterm = [row[1:] for row in numbers(f"{data}/mterm.vsk")]
        self.nutation, self.moon_longitude, self.moon_latitude = groups(mterm, [63, 60, 60])
        elp = [row[1:] for row in numbers(f"{data}/elp.vsk")]
        self.elp = groups(elp, [218, 244, 154, 25, 188, 64, 64, 12, 154, 114, 68, 19])


SERIES = None


class Settings:
    def __init__(self, folder):
        p = record(f"{folder}/pref.vsk")
        self.fajer_angle, self.isha_angle = float(p[0]), float(p[1])
        self.summer_span = [int(float(x)) for x in p[2:6]]
        self.subtract_fajer, self.add_dhohur, self.add_maghreb = (float(x) for x in p[6:9])
        self.summer, self.standard_shadow = p[9] == "1", p[11] == "1"
        self.seconds = p[12] == "0"
        self.height_counts = p[14] == "1"
        self.add_asr = float(p[16])
        self.high_latitude = float(p[17]) == 1
        self.text = p
        l = record(f"{folder}/loc.vsk")
        self.name = l[0]
        part = [float(x) for x in l[1:9]]
        self.parts = part
        self.east, self.north = l[9], l[10]
        self.longitude = (part[0] + part[1] / 60 + part[2] / 3600) * (1 if self.east else -1)
        self.latitude = (part[3] + part[4] / 60 + part[5] / 3600) * (1 if self.north else -1)
        self.height, self.zone = part[6], part[7]
        self.city, self.pressure, self.temperature = float(l[13]), float(l[14]), float(l[15])
        d = record(f"{folder}/date.vsk")
        self.one_day = d[0]
        self.start, self.end = [[int(float(x)) for x in d[i : i + 3]] for i in (1, 4)]
        assert not d[17], "a golden case has its own dates"


# --- calendar ----------------------------------------------------------------------------------------------


def julian_day(y, m, d):
    """0 h of a Gregorian civil date."""
    return datetime.date(y, m, d).toordinal() + 1721424.5


def civil(jd):
    return datetime.date.fromordinal(round(jd - 1721424.5))


def delta_t(jd):
    """Seconds; the years that the cases need."""
    y = (jd - 1721057) / 365.2425
    t = y - 2000
    if 1986 <= y < 2005:
        return 63.86 + 0.3345 * t - 0.060374 * t**2 + 0.0017275 * t**3 + 0.000651814 * t**4 + 0.00002373599 * t**5
    assert 2005 <= y < 2050
    return 62.92 + 0.32217 * t + 0.005589 * t**2


def summer_hours(s, jd):
    if not s.summer:
        return 0
    day = civil(jd)

    def date(month, number):
        return datetime.date(day.year, month, 1) + datetime.timedelta(number - 1)

    start, end = date(*s.summer_span[:2]), date(*s.summer_span[2:])
    return int(start <= day <= end if start <= end else day >= start or day <= end)


# --- Earth orientation -------------------------------------------------------------------------------------


def centuries(jd):
    return (jd + delta_t(jd) / 86400 - EPOCH) / 36525


@lru_cache(maxsize=64)
def orientation(jd):
    """Nutation in longitude, true obliquity: degrees."""
    t = centuries(jd)
    d = 297.85036 + 445267.11148 * t - 0.0019142 * t**2 + t**3 / 189474
    m = 357.52772 + 35999.05034 * t - 0.0001603 * t**2 - t**3 / 300000
    mp = 134.96298 + 477198.867398 * t + 0.0086972 * t**2 + t**3 / 56250
    f = 93.27191 + 483202.017538 * t - 0.0036825 * t**2 + t**3 / 327270
    o = 125.04452 - 1934.136261 * t + 0.0020708 * t**2 + t**3 / 450000
    psi = eps = 0.0
    for kd, km, kmp, kf, ko, a, b, c, e in SERIES.nutation:
        arg = radians((kd * d + km * m + kmp * mp + kf * f + ko * o) % 360)
        psi += (a + b * t) * sin(arg)
        eps += (c + e * t) * cos(arg)
    u = t / 100
    mean = 84381.448
    for power, factor in enumerate([-4680.93, -1.55, 1999.25, -51.38, -249.67, -39.05, 7.12, 27.87, 5.79, 2.45], 1):
        mean += factor * u**power
    return psi / 36e6, mean / 3600 + eps / 36e6


def sidereal(jd):
    psi, eps = orientation(jd)
    days = jd - EPOCH
    t = days / 36525
    return (280.46061837 + 360.98564736629 * days + 0.000387933 * t**2 - t**3 / 38710000 + psi * cos(radians(eps))) % 360


# --- places ------------------------------------------------------------------------------------------------


def equatorial(lon, lat, eps):
    l, b, e = radians(lon), radians(lat), radians(eps)
    ra = math.atan2(sin(l) * cos(e) - tan(b) * sin(e), cos(l))
    dec = math.asin(sin(b) * cos(e) + cos(b) * sin(e) * sin(l))
    return degrees(ra) % 360, degrees(dec)


def mean_longitude(t):
    u = t / 10
    return 280.4664567 + 360007.6982779 * u + 0.03032028 * u**2 + u**3 / 49931 - u**4 / 15299 - u**5 / 1988000


def minutes_of_angle(e):
    return 4 * ((e + 180) % 360 - 180)


@lru_cache(maxsize=256)
def sun_low(jd):
    """Right ascension, declination, equation of time."""
    t = centuries(jd)
    m = radians(357.5291 + 35999.0503 * t - 0.0001559 * t**2 - 0.00000048 * t**3)
    c = (1.9146 - 0.004817 * t - 0.000014 * t**2) * sin(m) + (0.019993 - 0.000101 * t) * sin(2 * m) + 0.00029 * sin(3 * m)
    node = radians(125.04 - 1934.136 * t)
    lon = mean_longitude(t) + c - 0.00569 - 0.00478 * sin(node)
    psi, eps = orientation(jd)
    ra, dec = equatorial(lon, 0, eps)
    return ra, dec, minutes_of_angle(mean_longitude(t) - 0.0057183 - ra + psi * cos(radians(eps)))


@lru_cache(maxsize=256)
def sun_medium(jd):
    """Right ascension, declination, equation of time, radius."""
    t = centuries(jd)
    tau = t / 10
    sums = [sum(a * cos(b + c * tau) for a, b, c in group) for group in SERIES.term]
    scale = [1, 10, 10, 1000, 1000, 1000, 1, 10, 1, 10, 10, 1000, 1000]
    sums = [s / k for s, k in zip(sums, scale)]
    l = sum(s * tau**i for i, s in enumerate(sums[:6])) / 1e8
    b = sum(s * tau**i for i, s in enumerate(sums[6:8])) / 1e8
    r = sum(s * tau**i for i, s in enumerate(sums[8:])) / 1e8
    lon, lat = degrees(l) + 180, -degrees(b)
    lp = radians(lon - 1.397 * t - 0.00031 * t**2)
    lat += (cos(lp) - sin(lp)) * 0.03916 / 3600
    lon -= 0.09 / 3600
    psi, eps = orientation(jd)
    lon += psi - 0.0056916111 / r
    ra, dec = equatorial(lon, lat, eps)
    return ra, dec, minutes_of_angle(mean_longitude(t) - 0.0057183 - ra + psi), r


def moon_low_ecliptic(jd):
    t = centuries(jd)
    lp = 218.3164591 + 481267.88134236 * t - 0.0013268 * t**2 + t**3 / 189474 - t**4 / 65194000
    d = 297.8502042 + 445267.1115168 * t - 0.00163 * t**2 + t**3 / 545868 - t**4 / 113065000
    m = 357.5291092 + 35999.0502909 * t - 0.0001536 * t**2 + t**3 / 24490000
    mp = 134.9634114 + 477198.8676313 * t + 0.008997 * t**2 + t**3 / 69699 - t**4 / 14712000
    f = 93.2720993 + 483202.0175273 * t - 0.0034029 * t**2 - t**3 / 3526000 + t**4 / 863310000
    a1, a2, a3 = 119.75 + 131.849 * t, 53.09 + 479264.29 * t, 313.45 + 481266.484 * t
    e = 1 - 0.002516 * t - 0.0000074 * t**2

    def s(x):
        return sin(radians(x % 360))

    l = 3958 * s(a1) + 1962 * s(lp - f) + 318 * s(a2)
    r = 0.0
    for kd, km, kmp, kf, al, ar, *_ in SERIES.moon_longitude:
        arg = radians((kd * d + km * m + kmp * mp + kf * f) % 360)
        l += al * e ** abs(km) * sin(arg)
        r += ar * e ** abs(km) * cos(arg)
    b = -2235 * s(lp) + 382 * s(a3) + 175 * s(a1 - f) + 175 * s(a1 + f) + 127 * s(lp - mp) - 115 * s(lp + mp)
    for kd, km, kmp, kf, ab, *_ in SERIES.moon_latitude:
        b += ab * e ** abs(km) * s(kd * d + km * m + kmp * mp + kf * f)
    return lp + l / 1e6, b / 1e6, 385000.56 + r / 1000


def moon_medium_ecliptic(jd):
    t = centuries(jd)

    def main(block, wave):
        return sum(
            a * wave(radians(a0 + a1 * t + a2 * 1e-4 * t**2 + (a3 * 1e-6 * t**2) * (a4 * 1e-8 * t**4)))
            for a, a0, a1, a2, a3, a4 in block
        )

    def secondary(block, wave):
        return sum(a * wave(radians(a0 + a1 * t)) for a, a0, a1 in block)

    e = SERIES.elp
    v = 218.31665 + 481267.88134 * t - 13.268e-4 * t**2 + 1.8561e-6 * t**3 - 1.534e-8 * t**4 + main(e[0], sin)
    v += 1e-3 * (secondary(e[1], sin) + t * secondary(e[2], sin) + 1e-4 * t**2 * secondary(e[3], sin))
    u = main(e[4], sin)
    u += 1e-3 * (secondary(e[5], sin) + t * secondary(e[6], sin) + 1e-4 * t**2 * secondary(e[7], sin))
    r = 385000.57 + main(e[8], cos)
    r += secondary(e[9], cos) + t * secondary(e[10], cos) + 1e-4 * t**2 * secondary(e[11], cos)
    v += -0.00019524 - 0.00001059 * sin(radians(225 + 477198.9 * t))
    u += -0.00001754 * sin(radians(183.3 + 483202 * t))
    r += 0.0708 * cos(radians(225 + 477198.9 * t))
    return v, u, r


@lru_cache(maxsize=256)
def moon(jd, medium):
    """Right ascension, declination, longitude, latitude, distance."""
    lon, lat, r = (moon_medium_ecliptic if medium else moon_low_ecliptic)(jd)
    psi, eps = orientation(jd)
    return (*equatorial(lon + psi, lat, eps), lon + psi, lat, r)


def moon_disc(s, jd):
    """Topocentric semidiameter and horizontal parallax of the low Moon, by vectors: degrees."""
    _, _, lon, lat, r = moon(jd, False)
    eps = radians(orientation(jd)[1])
    theta = radians(sidereal(jd) + s.longitude)
    phi = radians(s.latitude)
    u = math.atan(0.99664719 * tan(phi))
    rho_sin = 0.99664719 * sin(u) + s.height / 6378140 * sin(phi)
    rho_cos = cos(u) + s.height / 6378140 * cos(phi)
    x, y, z = rho_cos * cos(theta), rho_cos * sin(theta), rho_sin
    observer = (x, y * cos(eps) + z * sin(eps), z * cos(eps) - y * sin(eps))
    l, b = radians(lon), radians(lat)
    body = (cos(b) * cos(l), cos(b) * sin(l), sin(b))
    sine_parallax = 6378.137 / r
    near = [p - sine_parallax * q for p, q in zip(body, observer)]
    distance = sqrt(sum(c * c for c in near))
    return degrees(math.asin(0.2725076 * sine_parallax / distance)), degrees(math.asin(sine_parallax))


def horizontal(s, jd, ra, dec):
    """Altitude, azimuth from north."""
    h, d, phi = radians(sidereal(jd) + s.longitude - ra), radians(dec), radians(s.latitude)
    altitude = math.asin(sin(phi) * sin(d) + cos(phi) * cos(d) * cos(h))
    azimuth = math.atan2(sin(h), cos(h) * sin(phi) - tan(d) * cos(phi))
    return degrees(altitude), (degrees(azimuth) + 180) % 360


# --- rise and set ------------------------------------------------------------------------------------------


class Horizon:
    sun = 0.0
    moon = 0.0


def parabola(ym, y0, yp):
    """Extremum's ordinate and the roots within -1 to 1."""
    a, b, c = 0.5 * (ym + yp) - y0, 0.5 * (yp - ym), y0
    if a == 0 or b * b - 4 * a * c <= 0:
        return 0, []
    middle, half = -b / (2 * a), 0.5 * sqrt(b * b - 4 * a * c) / abs(a)
    return (a * middle + b) * middle + c, [x for x in (middle - half, middle + half) if abs(x) <= 1]


def shadow_altitude(s, jd0):
    dec, phi = radians(sun_medium(jd0 + 0.5)[1]), radians(s.latitude)
    noon = degrees(math.asin(sin(phi) * sin(dec) + cos(phi) * cos(dec)))
    air = s.pressure / 1010 * 283 / (s.temperature + 273)
    noon += 1.02 / tan(radians(noon + 10.3 / (noon + 5.11))) / 60 * air
    length = 1 / tan(radians(noon)) + (1 if s.standard_shadow else 2)
    # The arc cotangent is taken without its sign: the altitude comes out the same for a short shadow.
    apparent = 90 - abs(degrees(math.atan(length)))
    return apparent - air / tan(radians(apparent + 7.31 / (apparent + 4.4))) / 60


def search(s, body, jd0, forced=None):
    is_moon = body == "Moon"
    refraction = 0.5692857
    if (s.pressure, s.temperature) != (1010, 10):
        refraction *= 0.28 * s.pressure / (s.temperature + 273)
    dip = math.copysign((0.02917 + 0.0061667) * sqrt(abs(s.height)), s.height)

    def moon_threshold(jd):
        semidiameter, parallax = moon_disc(s, jd)
        return refraction + semidiameter - parallax

    if body == "Sun":
        depression = refraction + 0.2665639 / sun_medium(jd0 + 0.5)[3] - 0.0024
        Horizon.sun = -(dip + depression)
    elif is_moon:
        depression = moon_threshold(jd0 + 1 / 24)
        Horizon.moon = -(dip + depression)
    elif body == "Asr":
        depression = -shadow_altitude(s, jd0)
    else:
        depression = forced or (s.fajer_angle if body == "Fajer" else s.isha_angle)

    def with_dip(x):
        return -(x + (dip if s.height_counts and body in ("Sun", "Moon") else 0))

    h0 = with_dip(depression)

    def low_sine(hour):
        jd = jd0 + hour / 24
        place = moon(jd, False) if is_moon else sun_low(jd)
        return sin(radians(horizontal(s, jd, place[0], place[1])[0]))

    events = {}
    ym = low_sine(0) - sin(radians(h0))
    above = ym > 0
    for hour in range(1, 25, 2):
        if is_moon:
            h0 = with_dip(moon_threshold(jd0 + hour / 24))
        y0, yp = low_sine(hour) - sin(radians(h0)), low_sine(hour + 1) - sin(radians(h0))
        lowest, roots = parabola(ym, y0, yp)
        if len(roots) == 1:
            events["rise" if ym < 0 else "set"] = hour + roots[0]
        elif len(roots) == 2:
            first, second = ("set", "rise") if lowest < 0 else ("rise", "set")
            events[first], events[second] = hour + roots[0], hour + roots[1]
        ym = yp
        if len(events) == 2:
            break
    for kind, t in list(events.items()):
        for _ in range(51):
            jd = jd0 + t / 24
            place = moon(jd, True) if is_moon else sun_medium(jd)
            altitude = horizontal(s, jd, place[0], place[1])[0]
            angle = radians(sidereal(jd) + s.longitude - place[0])
            step = 24 * (altitude - h0) / (360 * cos(radians(place[1])) * cos(radians(s.latitude)) * sin(angle))
            t += step
            if abs(step) <= 0.00013889:
                break
        events[kind] = t
    events = {kind: t for kind, t in events.items() if 0 <= t < 24}
    if not events:
        words = ("Bright", "Dark") if body in ("Fajer", "Isha") else ("Up", "Down")
        return (words[0 if above else 1],) * 2
    return events.get("rise", "----"), events.get("set", "----")


# --- texts -------------------------------------------------------------------------------------------------


def clock(seconds, hours):
    if isinstance(hours, str):
        return hours
    whole = floor(hours)
    x = (hours - whole) * 60
    minute = floor(x)
    second = (x - minute) * 60
    if seconds:
        if whole == 23 and minute == 59 and second >= 59.5:
            return "24:00:00"
        n = (whole * 3600 + minute * 60 + round(second)) % 86400
        return f"{n // 3600:02d}:{n // 60 % 60:02d}:{n % 60:02d}"
    if whole == 23 and minute == 59 and second >= 29.5:
        return "24:00"
    n = (whole * 60 + round(minute + second / 60)) % 1440
    return f"{n // 60:02d}:{n % 60:02d}"


def plain(x):
    return str(int(x)) if x == int(x) else repr(x)


def item(x):
    return (" " if x >= 0 else "") + plain(x) + " "


def date_text(y, m, d):
    return f"{d:02d}/{m:02d}/{y}"


class Lines:
    def __init__(self):
        self.out, self.line = [], ""

    def put(self, *parts):
        for part in parts:
            if isinstance(part, int):
                if len(self.line) + 1 > part:
                    self.end()
                self.line += " " * (part - 1 - len(self.line))
            else:
                self.line += part
        return self

    def end(self):
        self.out.append(self.line)
        self.line = ""

    def text(self):
        assert not self.line
        return "".join(line + "\r\n" for line in self.out)


def head(s, lines, words, first, last, angles=None):
    def row(*parts):
        lines.put(*parts).end()

    row(26, "By the Name of Allah")
    row(19, "Tarsine Sky Circle")
    row(20, "Halvane 5.3, By Orlan Vesk")
    row("")
    row("* Settings:-")
    if s.one_day:
        row("- ", words, " for:  ", date_text(*s.start), " CE")
    else:
        row("- ", words, " from:  ", date_text(*s.start), " CE   To:  ", date_text(*s.end), " CE")

    def angle(width, positive, d, m, sec):
        sign = "" if positive or d == 0 else "-"
        return f"{sign}{abs(d):0{width}.0f}:{m:02.0f}:{sec:04.1f}"

    p = s.parts
    lon, lat = angle(2, s.east, *p[0:3]), angle(2, s.north, *p[3:6])
    row("- ", s.name, ", Long: ", lon, ", Lat: ", lat, f", Ele:{s.height:.1f}, Zone:{s.zone:.2f}")
    if s.summer:
        a, b, c, d = s.summer_span
        row(f"- Summer time is from:  {b:02d}/{a:02d}   To:  {d:02d}/{c:02d}")
    else:
        row("- No Summer Time.")
    height = "affects rise  and  set events." if s.height_counts else "does NOT affect rise  and  set events"
    row("- Height above mean sea-level ", height)
    if angles:
        single = struct.unpack("f", struct.pack("f", s.add_maghreb))[0]
        assert single == s.add_maghreb
        row(
            "- Subtract Fajer:", item(s.subtract_fajer), "Min, Add Dhohur:", item(s.add_dhohur), "Min, Add Asr:",
            item(s.add_asr), "Min, Add Maghreb:", item(s.add_maghreb), "Min",
        )
        row("- Fajer Angle:", item(angles[0]), ",  Isha Angle:", item(angles[1]))
    row("- Refraction Settings: Temperature: ", plain(s.temperature), " °C   Pressure: ", plain(s.pressure), " mb")
    if angles:
        row("- Mazhab:  ", "Standard" if s.standard_shadow else "Hanafi")
    row("- City Settings: 0 Km." if s.city == 0 else f"- City Settings:{item(s.city)}Km.")
    row(f"- Delta T: {delta_t((first + last) / 2):04.1f} Second(s)")
    row("=" * 71)
    row("")


def tail(lines, remarks):
    lines.put("=" * 71).end()
    lines.put("").end()
    lines.put("* Remarks:-").end()
    for remark in ["Date format: dd/mm/yyyy.", "The Symbol '*' before the date, refers to Summer Time."] + remarks:
        lines.put("- ", remark).end()


def end_row(lines, number):
    lines.end()
    if number % 5 == 0:
        lines.put("").end()


# --- prayer report -----------------------------------------------------------------------------------------

FRACTIONS = [
    0.190605047, 0.185005721, 0.182066707, 0.181891441, 0.181178348, 0.182046483, 0.182659714, 0.182380892,
    0.18457608, 0.185936751, 0.18824565, 0.190677889, 0.193164432, 0.194939368, 0.198701123, 0.201963999, 0.205548098,
]  # fmt: skip


class Refused(Exception):
    pass


def shifted(hours, by):
    if isinstance(hours, str):
        return hours
    return hours + by if 0 <= hours + by < 24 else "----"


def prayer_day(s, jd, forced, seconds):
    """Six texts in the order of the row, and whether the night's fraction was used."""
    hour = summer_hours(s, jd)
    ahead = s.zone + hour
    jd0 = jd - ahead / 24
    phi = radians(s.latitude)
    city = s.city / (111.413 * cos(phi) - 0.094 * cos(3 * phi)) * 4 / 60 if s.city else 0
    rise, set_ = search(s, "Sun", jd0)
    if rise not in ("Up", "Down"):
        rise, set_ = shifted(rise, -city), shifted(set_, s.add_maghreb / 60)
    angles = (forced, forced) if forced else (s.fajer_angle, s.isha_angle)
    fajer, isha = search(s, "Fajer", jd0, forced)
    if angles[0] != angles[1]:
        isha = search(s, "Isha", jd0, forced)[1]
    mark = False
    if fajer == "Bright" and s.high_latitude and s.latitude > 48.5:
        if s.latitude > 65:
            raise Refused
        evening = 24 if set_ == "----" else set_ + 24 if 0 <= set_ < 1 else set_
        part = FRACTIONS[max(0, math.ceil(s.latitude - 49.5))] * (24 - (evening - s.add_maghreb / 60 - rise))
        fajer, isha, mark = rise - part, evening + part, True
    fajer = shifted(fajer, -city - s.subtract_fajer / 60)
    aser = search(s, "Asr", jd0)[1]
    aser = "Down" if set_ == "Down" else "----" if isinstance(aser, str) else shifted(aser, s.add_asr / 60)

    def passage(equation):
        return hour + 12 + ((s.zone * 15 - s.longitude) * 4 - equation) / 60

    t = passage(sun_low(jd + 0.5 - ahead / 24)[2])
    while True:
        instant = jd - (ahead - t) / 24
        ra, dec, equation, _ = sun_medium(instant)
        before, t = t, passage(equation)
        if abs(t - before) <= 6.94444e-05:
            break
    dhohur = clock(seconds, t + s.add_dhohur / 60)
    if horizontal(s, instant, ra, dec)[0] <= Horizon.sun:
        dhohur = "----"
    shuroq, maghreb = clock(seconds, rise), clock(seconds, set_)
    if shuroq == maghreb and shuroq != "Up":
        dhohur = shuroq
    return [clock(seconds, fajer), shuroq, dhohur, clock(seconds, aser), maghreb, clock(seconds, isha)], mark


def minutes(text):
    return int(text[:2]) * 60 + int(text[3:])


def plus(text, step):
    n = (minutes(text) + round(step)) % 1440
    return f"{n // 60:02d}:{n % 60:02d}"


def smoothed(rows):
    """rows: dicts with summer, date, times, mark, of one year. Rows are counted from 1 as the method counts."""
    n = len(rows)
    raw = [None] + rows
    final = [None] + [{**row, "times": list(row["times"]), "marks": {0: row["mark"], 5: row["mark"]}} for row in rows]

    def jump(d, limit):
        return limit < abs(d) < 1440 - limit

    limit = {0: 10, 5: 10}
    change = {0: +5, 5: -5}
    for k in range(2, n - 193 + 1):
        for c in (5, 0):
            if jump(minutes(raw[k]["times"][c]) - minutes(final[k - 1]["times"][c]), limit[c]):
                final[k]["times"][c] = plus(final[k - 1]["times"][c], change[c])
                final[k]["marks"][c] = "#*"
                limit[c] = 5
    limit = {0: 10, 5: 10}
    skip = 0
    for k in range(n - 1, n - 192 - 1, -1):
        hour1, hour2 = ("23", "22") if raw[k]["summer"] else ("00", "23")
        here, after = raw[k]["times"][5], final[k + 1]["times"][5]
        guard = limit[5] == 10 and here[:2] == hour1 and after[:2] == hour2
        guard = guard and abs(minutes(raw[k - 1]["times"][5]) - minutes(here)) <= 10
        for c in (5, 0):
            if not jump(minutes(final[k + 1]["times"][c]) - minutes(raw[k]["times"][c]), limit[c]):
                continue
            if c == 5 and guard and skip == 0:
                skip = 1
                continue
            final[k]["times"][c] = plus(final[k + 1]["times"][c], change[c])
            final[k]["marks"][c] = "#*"
            limit[c] = 5
    k = next(i for i in range(1, n + 1) if final[i]["date"][:5] == "22/06")

    def gap(c):
        return minutes(final[k - 1]["times"][c]) - minutes(final[k]["times"][c])

    def spread(c, source, near, far, step, mark):
        final[near]["times"][c] = plus(final[source]["times"][c], step)
        final[far]["times"][c] = plus(final[near]["times"][c], step)
        final[near]["marks"][c] = final[far]["marks"][c] = mark

    bound = 1440 - limit[0]
    if (g := gap(0)) < -5:
        spread(0, k + 2, k + 1, k, (g + 10) / 2, "#*F")
    if (g := gap(5)) < -5 and abs(g) < bound:
        spread(5, k - 3, k - 2, k - 1, -(g + 10) / 2, "#*I")
    if (g := gap(0)) > 5:
        spread(0, k - 3, k - 2, k - 1, -(g - 10) / 2, "#*F")
    if (g := gap(5)) > 5 and abs(g) < bound:
        spread(5, k + 2, k + 1, k, (g - 10) / 2, "#*I")
    return final[1:]


def prayer_report(s, rows_until=None):
    forced_year = s.high_latitude and 48.5 < s.latitude <= 65
    first, last = julian_day(*s.start), julian_day(*s.end)
    forced, seconds = None, s.seconds
    if forced_year:
        first, last = julian_day(s.start[0], 1, 1), julian_day(s.start[0], 12, 31)
        forced, seconds = 18.0, False
    lines = Lines()
    head(s, lines, "Prayer times", first, last, (18.0, 18.0) if forced_year else (s.fajer_angle, s.isha_angle))
    if s.seconds:
        lines.put("  Date", 15, "Fajer", 25, "Shuroq", 35, "Dhohur", 46, "Aser", 54, "Maghreb", 66, "Isha").end()
        lines.put(" " * 14 + "B. Twi.   Sunrise   Transit    -----    Sunset    E. Twi.").end()
    else:
        lines.put("  Date         Fajer    Shuroq     Dhohur    Aser     Maghreb    Isha").end()
        lines.put(" " * 14 + "B. Twi.   Sunrise    Transit   -----    Sunset    E. Twi.").end()
    lines.put("").end()
    start = 14 if seconds else 16
    stored = []
    number = 0
    jd = first
    while jd <= last:
        day = civil(jd)
        text = date_text(day.year, day.month, day.day)
        summer = summer_hours(s, jd) == 1
        try:
            times, mark = prayer_day(s, jd, forced, seconds)
        except Refused:
            return lines.text()
        if forced_year:
            times[5] = "00:00" if times[5] in ("24:00", "----") else times[5]
            times[0] = "00:00" if times[0] == "----" else times[0]
            if summer:
                times[0], times[5] = plus(times[0], -60), plus(times[5], -60)
            stored.append({"summer": summer, "date": text, "times": times, "mark": "#" if mark else ""})
        else:
            lines.put("*" if summer else "", text)
            for column, value in zip(range(start, 70, 10), times):
                lines.put(column, value)
            number += 1
            end_row(lines, number)
            if number == rows_until:
                break
        jd += 1
    for row in smoothed(stored) if forced_year else []:
        times = row["times"]
        if row["summer"]:
            times[0], times[5] = plus(times[0], 60), plus(times[5], 60)
        times[0] += row["marks"][0]
        times[5] += row["marks"][5]
        lines.put("*" if row["summer"] else "", row["date"])
        for column, value in zip(range(16, 70, 10), times):
            lines.put(column, value)
        number += 1
        end_row(lines, number)
    tail(
        lines,
        [
            "Fajer: Beginning of Astronomical Twilight.", "Shuroq: Sunrise.", "Dhohur: Transit of Sun.",
            "Maghreb: Sunset.", "Isha: End of Astronomical Twilight.", "----: There is no event.",
            "Up: The Sun is always above horizon.", "Down: The Sun is always below horizon.",
            "Bright: The sky is always bright.", "Dark: The sky is always dark.",
        ],
    )  # fmt: skip
    return lines.text()


# --- Moon report -------------------------------------------------------------------------------------------


def moon_day(s, jd):
    ahead = s.zone + summer_hours(s, jd)
    jd0 = jd - ahead / 24
    rise, set_ = (clock(s.seconds, event) for event in search(s, "Moon", jd0))
    t = (moon(jd0, False)[0] - s.longitude - sidereal(jd0)) / 15 % 24
    while True:
        instant = jd - (ahead - t) / 24
        angle = (sidereal(instant) + s.longitude - moon(instant, True)[0] + 180) % 360 - 180
        t -= angle / 15
        if abs(angle / 15) <= 0.0002777777:
            break
    t %= 24
    instant = jd - (ahead - t) / 24
    altitude, azimuth = horizontal(s, instant, *moon(instant, False)[:2])
    transit = clock(s.seconds, t)
    if altitude <= Horizon.moon or min(abs(azimuth - meridian) for meridian in (0, 180, 360)) > 7:
        transit = "----"
    if rise == set_ and rise != "Up":
        transit = rise
    return rise, transit, set_


def moon_report(s):
    first, last = julian_day(*s.start), julian_day(*s.end)
    lines = Lines()
    head(s, lines, "Moon Times", first, last)
    if s.seconds:
        lines.put("  Date", 17, "Moon Rise", 35, "Moon Transit", 55, "Moon Set").end()
    else:
        lines.put("  Date          Moon Rise      Moon Transit        Moon Set").end()
    lines.put("").end()
    columns = (17, 37, 55) if s.seconds else (18, 35, 54)
    for number in range(1, int(last - first) + 2):
        jd = first + number - 1
        day = civil(jd)
        lines.put("*" if summer_hours(s, jd) else "", date_text(day.year, day.month, day.day))
        for column, value in zip(columns, moon_day(s, jd)):
            lines.put(column, value)
        end_row(lines, number)
    tail(lines, [])
    return lines.text()


def main():
    global SERIES
    data, folder, task = sys.argv[1:4]
    SERIES = Series(data)
    settings = Settings(folder)
    rows = int(sys.argv[4]) if len(sys.argv) > 4 else None
    report = prayer_report(settings, rows) if task == "prayer" else moon_report(settings)
    sys.stdout.buffer.write(report.encode("utf-8"))


if __name__ == "__main__":
    main()
