#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""An atlas of crescents: the map of every month's best evening, a compressed NumPy archive for each year.

The best evening of a month is the first on which its new crescent can be seen by eye somewhere on the map, of the three
evenings that begin with the conjunction's date in Universal Time; the last of them when none is. An archive holds, for the
months of its year in their order, `date` (year, month, day), `conjunction` (Julian days, Universal Time), `map_class`
(month, row, column), and the `latitudes` and `longitudes` of rows and columns. Classes are those of the criterion, the
lowest 0, or halvane.MAP_CONJUNCTION_TO_COME and those after it.
"""

import io
import sys

import numpy as np

import halvane
import parts

EVENINGS = 3


def conjunctions(year):
    """Julian days of a year's conjunctions, in Universal Time."""
    start, end = (halvane.julian_day((number, 1, 1)) for number in (year, year + 1))
    phases = halvane.moon_phases(start - 1, end + 1)
    moments = [moment.instant.ut1 for moment in phases if moment.phase is halvane.Phase.NEW_MOON]
    return [moment for moment in moments if start <= moment < end]


def best_evening(conjunction, by_eye, criterion, step):
    """The date and the grid of a month's best evening."""
    for evening in range(EVENINGS):
        date = halvane.civil_date(conjunction + evening)
        grid = halvane.crescent_map(date, criterion=criterion, step=step, east=180 - step)[0]
        seen = (grid.map_class >= by_eye) & (grid.map_class < halvane.MAP_CONJUNCTION_TO_COME)
        if seen.any():
            break
    return date, grid


def make(year, criterion, by_eye, step):
    """The bytes of a year's archive."""
    moments = conjunctions(year)
    evenings = [best_evening(moment, by_eye, criterion, step) for moment in moments]
    archive = io.BytesIO()
    np.savez_compressed(
        archive,
        date=np.array([date for date, _ in evenings], dtype=np.int32),
        conjunction=np.array(moments),
        map_class=np.array([grid.map_class for _, grid in evenings]),
        latitudes=evenings[0][1].latitudes,
        longitudes=evenings[0][1].longitudes,
    )
    return archive.getvalue()


def main():
    parser = parts.options(__doc__.splitlines()[0], "atlas")
    parser.add_argument("--first", type=int, default=1977, help="year (%(default)s)")
    parser.add_argument("--years", type=int, default=100, help="how many (%(default)s)")
    parser.add_argument("--step", type=float, default=1, help="of the grid [deg] (%(default)s)")
    parser.add_argument("--criterion", default="yallop-1997", help="key (%(default)s)")
    chosen = parser.parse_args()
    by_eye = {criterion.key: criterion.by_eye for criterion in halvane.criteria()}
    if chosen.criterion not in by_eye:
        parser.error(f"there is no criterion {chosen.criterion}; known are {', '.join(by_eye)}")
    if chosen.years < 1:
        parser.error("an atlas has one year at least")
    if not 0.05 <= chosen.step <= 30:
        parser.error("a step is 0.05 to 30 degrees")
    settings = {"criterion": chosen.criterion, "step": chosen.step}
    years = range(chosen.first, chosen.first + chosen.years)
    work = {f"atlas-{year}.npz": (year, chosen.criterion, by_eye[chosen.criterion], chosen.step) for year in years}
    parts.run(chosen, settings, make, work)


if __name__ == "__main__":
    try:
        parts.end_quietly(main)
    except (halvane.Error, OSError) as error:
        sys.exit(str(error))
