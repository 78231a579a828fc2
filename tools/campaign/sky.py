# SPDX-License-Identifier: MIT
"""Calendars, times and maps against computations of their own.

Nothing here is shared with the engine: whole-number calendars, and the low-precision formulae that the
Astronomical Almanac gives for the Sun (0.01 degree from 1950 to 2050) and for the Moon (0.3 degree).
"""

import datetime
import math
import re

from ground import Outcome

# --- calendars ----------------------------------------------------------------------------------------------

FIRST_HIJRI_DAY = 1948440  # 16 July 622, Julian calendar
FIRST_GREGORIAN_DAY = 2299161  # 15 October 1582
GREGORIAN_ORDINAL = 1721425  # the Julian day number of noon, less datetime's ordinal
WEEKDAYS = ["Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"]
# The eleven leap years of the cycle of thirty in the common tabular calendar.
HIJRI_LEAP_YEARS = {2, 5, 7, 10, 13, 16, 18, 21, 24, 26, 29}


def julian_dates(year):
    """The Julian calendar counted day by day from 1 January of a year; the day number of that noon comes first."""
    # 1 January 4713 before the era is day 0; a leap year every fourth.
    number = 365 * (year + 4712) + (year + 4712 + 3) // 4
    while True:
        for month in range(1, 13):
            length = (31, 29 if year % 4 == 0 else 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31)[month - 1]
            for day in range(1, length + 1):
                yield number, (year, month, day)
                number += 1
        year += 1


def civil_dates(first, last):
    """Every civil date of the day numbers from `first` to `last`."""
    number = first
    if first < FIRST_GREGORIAN_DAY:
        year = (first - 1721058) // 366 - 1  # at or before the year of `first`
        for number, date in julian_dates(year):
            if number > last or number >= FIRST_GREGORIAN_DAY:
                break
            if number >= first:
                yield number, date
        number = FIRST_GREGORIAN_DAY
    while number <= last:
        date = datetime.date.fromordinal(number - GREGORIAN_ORDINAL)
        yield number, (date.year, date.month, date.day)
        number += 1


def hijri_dates():
    """The tabular calendar counted day by day from its first."""
    year = 1
    while True:
        for month in range(1, 13):
            leap = year % 30 in HIJRI_LEAP_YEARS
            length = 30 if month % 2 == 1 or (month == 12 and leap) else 29
            for day in range(1, length + 1):
                yield year, month, day
        year += 1


def sound_day(number, civil, hijri):
    """The row of a day as it must be."""
    year, month, day = civil
    hijri_text = "%d,%d,%d" % hijri
    weekday = WEEKDAYS[number % 7]
    return f"{number},{year},{month},{day},{number}.0,{hijri_text},{number}.0,{hijri_text},{year},{month},{day},{weekday}"


def judge_day(row, civil, hijri):
    """What is wrong with the probe's row of a day."""
    number, year, month, day, back, *rest = row.split(",")
    weekday = rest.pop()
    hijri_year, hijri_month, hijri_day, hijri_back, *panels = (float(x) for x in rest)
    noon = int(number)
    wrong = []
    if (float(year), float(month), float(day)) != civil:
        wrong.append(f"day {number} is {day}/{month}/{year}, wanted {civil}")
    if float(back) != noon:
        wrong.append(f"{civil} is day {back}, wanted {number}")
    if (hijri_year, hijri_month, hijri_day) != hijri:
        wrong.append(f"{civil} is Hijri {hijri_day:g}/{hijri_month:g}/{hijri_year:g}, wanted {hijri}")
    if hijri_back != noon:
        wrong.append(f"Hijri {hijri} is day {hijri_back:g}, wanted {number}")
    if tuple(panels[:3]) != hijri:
        wrong.append(f"the panel converts {civil} to {panels[:3]}, wanted {hijri}")
    if tuple(panels[3:]) != civil:
        wrong.append(f"the panel converts Hijri {hijri} to {panels[3:]}, wanted {civil}")
    if weekday != WEEKDAYS[noon % 7]:
        wrong.append(f"{civil} is a {weekday}, wanted {WEEKDAYS[noon % 7]}")
    return wrong


def judge_days(rows, first, last):
    wrong, days = [], 0
    hijri = hijri_dates()
    for _ in range(first - FIRST_HIJRI_DAY):
        next(hijri)
    rows = iter(rows)
    for number, civil in civil_dates(first, last):
        row = next(rows, None)
        if row is None or not row.startswith(f"{number},"):
            wrong.append(f"wanted day {number}, found {row!r}")
            break
        hijri_date = next(hijri)
        if row != sound_day(number, civil, hijri_date):
            wrong += judge_day(row, civil, hijri_date) or [f"wanted {sound_day(number, civil, hijri_date)}, found {row}"]
        days += 1
    return days, wrong


def calendars(ground):
    """Every day is cheap enough at every scale."""
    last = datetime.date(2500, 12, 31).toordinal() + GREGORIAN_ORDINAL
    asked = last - FIRST_HIJRI_DAY + 1
    outcome = Outcome(f"{asked:,} days, 16 July 622 to 31 December 2500, both ways")
    with ground.folder() as folder:
        days, outcome.findings = judge_days(ground.rows(folder, "calendars", FIRST_HIJRI_DAY, last), FIRST_HIJRI_DAY, last)
    outcome.done = f"{days:,} days"
    return outcome


# --- the globe ----------------------------------------------------------------------------------------------

WORDS = {"----", "Up", "Down", "Bright", "Dark"}
PRAYERS = ["Fajer", "Shuroq", "Dhohur", "Aser", "Maghreb", "Isha"]
HORIZON = -0.833  # the Sun's centre at rise and set: refraction 34', semi-diameter 16' [deg]
TWILIGHT = -18.0
ASER_LIMIT = 66  # beyond this latitude Aser may come before Dhohur, as the user's guide tells [deg]


MOON_LIMIT = 60  # beyond this latitude the Moon may rise, culminate and set in one minute: told as well [deg]
GRAZING_LIMIT = 75  # beyond this latitude the Moon climbs less than 4 degrees an hour: the search misses by more [deg]


def sin(degrees):
    return math.sin(math.radians(degrees))


def cos(degrees):
    return math.cos(math.radians(degrees))


def equatorial(longitude, latitude, obliquity):
    x = cos(latitude) * cos(longitude)
    y = cos(obliquity) * cos(latitude) * sin(longitude) - sin(obliquity) * sin(latitude)
    z = sin(obliquity) * cos(latitude) * sin(longitude) + cos(obliquity) * sin(latitude)
    return math.degrees(math.atan2(y, x)), math.degrees(math.asin(max(-1.0, min(1.0, z))))


def sun(jd):
    """Right ascension and declination by the Almanac's low-precision formula [deg]"""
    n = jd - 2451545.0
    anomaly = 357.528 + 0.9856003 * n
    longitude = 280.460 + 0.9856474 * n + 1.915 * sin(anomaly) + 0.020 * sin(2 * anomaly)
    return equatorial(longitude, 0, 23.439 - 0.0000004 * n)


def moon(jd):
    """Right ascension, declination and parallax by the Almanac's low-precision formula [deg]"""
    t = (jd - 2451545.0) / 36525
    longitude = (
        218.32
        + 481267.881 * t
        + 6.29 * sin(135.0 + 477198.87 * t)
        - 1.27 * sin(259.3 - 413335.36 * t)
        + 0.66 * sin(235.7 + 890534.22 * t)
        + 0.21 * sin(269.9 + 954397.74 * t)
        - 0.19 * sin(357.5 + 35999.05 * t)
        - 0.11 * sin(186.5 + 966404.03 * t)
    )
    latitude = (
        5.13 * sin(93.3 + 483202.02 * t)
        + 0.28 * sin(228.2 + 960400.89 * t)
        - 0.28 * sin(318.3 + 6003.15 * t)
        - 0.17 * sin(217.6 - 407332.21 * t)
    )
    parallax = (
        0.9508
        + 0.0518 * cos(135.0 + 477198.87 * t)
        + 0.0095 * cos(259.3 - 413335.36 * t)
        + 0.0078 * cos(235.7 + 890534.22 * t)
        + 0.0028 * cos(269.9 + 954397.74 * t)
    )
    return (*equatorial(longitude, latitude, 23.439 - 0.013 * t), parallax)


def hour_angle(jd, longitude, right_ascension):
    sidereal = 280.46062 + 360.98564737 * (jd - 2451545.0)
    return (sidereal + longitude - right_ascension + 180) % 360 - 180


def altitude(latitude, declination, angle):
    s = sin(latitude) * sin(declination) + cos(latitude) * cos(declination) * cos(angle)
    return math.degrees(math.asin(max(-1.0, min(1.0, s))))


def hours(text):
    """Hours of a clock text "hh:mm:ss"; None for any other text."""
    if len(text) != 8 or text[2] != ":" or text[5] != ":":
        return None
    parts = text.split(":")
    if not all(part.isascii() and part.isdigit() for part in parts):
        return None
    h, m, s = (int(part) for part in parts)
    return h + m / 60 + s / 3600 if (h < 24 and m < 60 and s < 60) or text == "24:00:00" else None


def judge_order(times, latitude):
    """The order of a day's times around its Dhohur. Returns what is wrong, and what is a limit that is told."""
    noon = times["Dhohur"]
    if noon is None:
        return [], []
    placed = {}
    for name in PRAYERS:
        if times[name] is None:
            continue
        time = times[name]
        if name in ("Fajer", "Shuroq") and time > noon:
            time -= 24
        if name in ("Maghreb", "Isha") and time < noon:
            time += 24
        placed[name] = time
    wrong, told = [], []
    names = list(placed)
    for earlier, later in zip(names, names[1:]):
        if placed[earlier] <= placed[later]:
            continue
        words = f"{later} comes before {earlier}"
        (told if (earlier, later) == ("Dhohur", "Aser") and abs(latitude) > ASER_LIMIT else wrong).append(words)
    return wrong, told


def judge_sun(times, start, longitude, latitude):
    """Each time against the Sun's own place at it."""
    wrong = []
    noon = times["Dhohur"]
    for name in PRAYERS:
        if times[name] is None:
            continue
        jd = start + times[name] / 24
        right_ascension, declination = sun(jd)
        angle = hour_angle(jd, longitude, right_ascension)
        height = altitude(latitude, declination, angle)
        if name == "Dhohur":
            if abs(angle) > 0.05:
                wrong.append(f"at Dhohur the Sun is {angle:.3f} degrees from the meridian")
            continue
        if name == "Aser":
            # A shadow one length longer than at the transit of the same day.
            if noon is None:
                continue
            highest = altitude(latitude, sun(start + noon / 24)[1], 0)
            wanted = math.degrees(math.atan2(1, 1 + 1 / math.tan(math.radians(highest)))) if highest > 0 else None
        else:
            wanted = HORIZON if name in ("Shuroq", "Maghreb") else TWILIGHT
        if wanted is not None and highest_error(name, latitude) < abs(height - wanted):
            wrong.append(f"at {name} the Sun stands at {height:.3f} degrees, wanted {wanted:.3f}")
    return wrong


def highest_error(name, latitude):
    """How far the low-precision Sun may be from the true one at an event [deg]"""
    return 0.3 if name == "Aser" else 0.06


def is_one_moment(rise, transit, set_):
    """A Moon that rises, culminates and sets in one minute: a limit in the far north and south that is told."""
    times = [hours(text) for text in (rise, transit, set_)]
    return None not in times and max(times) - min(times) <= 1 / 60


def judge_moon(rise, transit, set_, start, longitude, latitude):
    wrong = []
    for name, text in (("moonrise", rise), ("transit", transit), ("moonset", set_)):
        time = hours(text)
        if time is None:
            if text not in WORDS:
                wrong.append(f"{name} is {text!r}")
            continue
        jd = start + time / 24
        right_ascension, declination, parallax = moon(jd)
        angle = hour_angle(jd, longitude, right_ascension)
        if name == "transit":
            if abs(angle) > 8:
                wrong.append(f"at transit the Moon is {angle:.1f} degrees from the meridian")
            continue
        # Refraction 34', parallax, semi-diameter.
        wanted = parallax - 0.5667 - 0.2725 * parallax
        height = altitude(latitude, declination, angle)
        if abs(height - wanted) > (2 if abs(latitude) > GRAZING_LIMIT else 0.6):
            wrong.append(f"at {name} the Moon stands at {height:.2f} degrees, wanted {wanted:.2f}")
    return wrong


def judge_place_day(row, by_almanac):
    """What is wrong with the probe's row of a place and day, and what is a limit that is told."""
    fields = row.split(",")
    longitude, latitude, zone, day = (float(x) for x in fields[:4])
    texts = dict(zip(PRAYERS, fields[4:10]))
    start = day - zone / 24
    wrong = [f"{name} is {text!r}" for name, text in texts.items() if hours(text) is None and text not in WORDS]
    times = {name: hours(text) for name, text in texts.items()}
    disorder, told = judge_order(times, latitude)
    wrong += disorder
    if by_almanac:
        wrong += judge_sun(times, start, longitude, latitude)
        if is_one_moment(*fields[10:13]) and abs(latitude) > MOON_LIMIT:
            told.append("the Moon rises, culminates and sets in one minute")
        else:
            wrong += judge_moon(*fields[10:13], start, longitude, latitude)
    else:
        wrong += [f"the Moon: {text!r}" for text in fields[10:13] if hours(text) is None and text not in WORDS]
    return [f"{words} ({row})" for words in wrong], told


def globe(ground):
    near = ground.times(4_000_000, 1500)
    far = ground.times(1_000_000, 500)
    outcome = Outcome(f"{near + far:,} days of random places: times finite, in order, with Sun and Moon where they must be")
    done = told = 0
    with ground.folder() as folder:
        for count, first, last in ((near, 1950, 2050), (far, 622, 2500)):
            for row in ground.rows(folder, "globe", ground.seed, count, first, last):
                wrong, limits = judge_place_day(row, first == 1950)
                outcome.findings += wrong
                told += len(limits)
                done += 1
    outcome.done = f"{done:,} days"
    if told:
        outcome.note(
            f"{told} days beyond {ASER_LIMIT} degrees with Aser before Dhohur, or beyond {MOON_LIMIT} with a Moon that "
            "rises, culminates and sets in one minute: the limits that the guide tells"
        )
    return outcome


# --- phases -------------------------------------------------------------------------------------------------

FIRST_LUNATION, LAST_LUNATION = -30925, 12380  # of the years -500 and 3000
# The periodic terms of the same chapter add up to less than 0.63 d and 0.86 d; their eccentricity factor is 1.06 at -500.
NEW_OR_FULL_BOUND, QUARTER_BOUND = 0.70, 0.95


def mean_phase(k):
    """Meeus, Astronomical Algorithms, equation 49.1 [JDE]"""
    t = k / 1236.85
    return 2451550.09766 + 29.530588861 * k + 0.00015437 * t**2 - 0.000000150 * t**3 + 0.00000000073 * t**4


def judge_phases(rows):
    """Every quarter of every lunation once, in order, each near its mean one. Returns the moments by k."""
    wrong, moments = [], []
    before = None
    for row in rows:
        k, moment = (float(x) for x in row.split(","))
        bound = NEW_OR_FULL_BOUND if (4 * k) % 2 == 0 else QUARTER_BOUND
        if abs(moment - mean_phase(k)) > bound:
            wrong.append(f"phase {k} at {moment} is not at {mean_phase(k):.4f}")
        if before and (k != before[0] + 0.25 or not 6.2 < moment - before[1] < 8.6):
            wrong.append(f"phase {k} at {moment} follows {before[0]} at {before[1]}")
        before = (k, moment)
        moments.append(before)
    return moments, wrong


def calendar_of(first, last):
    """The civil date of every day number from `first` to `last`."""
    return dict(civil_dates(first, last))


def judge_tables(rows, moments, years):
    """Every phase of a year stands in the year's table in its column once, to the minute."""
    first, last = int(moments[0][1]) - 1, int(moments[-1][1]) + 2
    dates = calendar_of(first, last)
    wanted = {year: set() for year in years}
    for k, moment in moments:
        whole = math.floor(moment + 0.5)
        year, month, day = dates[whole]
        minutes = (moment + 0.5 - whole) * 1440
        if year in wanted:
            wanted[year].add((int(4 * k) % 4, month, day, minutes))
    wrong, found_count = [], 0
    by_year = {year: [] for year in years}
    for row in rows:
        year, line = row.split(",", 1)
        found = table_row(line)
        if found:
            by_year[int(year)] += found
    for year in years:
        for column, day, month, minutes in by_year[year]:
            near = [w for w in wanted[year] if w[:3] == (column, month, day) and abs(w[3] - minutes) <= 0.51]
            if len(near) != 1:
                wrong.append(f"the table of {year} has a phase {column} at {day}/{month} {minutes} min")
            for phase in near:
                wanted[year].discard(phase)
            found_count += 1
        wrong += [f"the table of {year} lacks {phase}" for phase in wanted[year]]
    return found_count, wrong


def table_row(line):
    """Column, day, month and minutes of the phases of a line of the table."""
    column_width = 28
    return [
        (match.start() // column_width, int(match[1]), int(match[2]), int(match[4]) * 60 + int(match[5]))
        for match in re.finditer(r"(\d\d)/(\d\d)/(-?\d{4,})  (\d\d):(\d\d)(?![:\d])", line)
    ]


def lunations(ground):
    """Every lunation is cheap enough at every scale; the tables of every year are not."""
    step = max(1, round(0.1 / ground.scale))
    years = range(-499, 3000, step)
    asked = LAST_LUNATION - FIRST_LUNATION + 1
    outcome = Outcome(f"{asked:,} lunations, -500 to 3000; the tables of {len(years):,} years")
    with ground.folder() as folder:
        moments, outcome.findings = judge_phases(ground.rows(folder, "lunations", FIRST_LUNATION, LAST_LUNATION))
        if len(moments) != 4 * asked:
            outcome.find(f"{len(moments)} phases, not {4 * asked}")
        rows = (row for year in years for row in ground.rows(folder, "phase-tables", year, year))
        if step == 1:
            rows = ground.rows(folder, "phase-tables", years[0], years[-1])
        count, wrong = judge_tables(rows, moments, years)
        outcome.findings += wrong
    outcome.done = f"{len(moments):,} phases; {count:,} rows' entries"
    return outcome


# --- maps ---------------------------------------------------------------------------------------------------


def judge_map_point(row):
    """A point has the class that it has alone, or the class of its nearest neighbourhood at a border."""
    _, _, _, on_map, alone, *beside = row.split(",")
    return [] if on_map == alone or on_map in beside else [f"class {on_map} on the map, {alone} alone ({row})"]


def maps(ground):
    count, points = ground.times(3000, 4), 100
    outcome = Outcome(f"{count} maps of random months 622 to 2500, {points} points of each evaluated alone")
    done = border = 0
    with ground.folder() as folder:
        for row in ground.rows(folder, "map-points", ground.seed, count, points):
            outcome.findings += judge_map_point(row)
            fields = row.split(",")
            border += fields[3] != fields[4]
            done += 1
    outcome.done = f"{done:,} points, {border} at a border of two classes"
    return outcome
