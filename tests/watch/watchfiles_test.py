#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""watchfiles_test.py SOURCE HALVANE_REPORT: the files of a watch as users get them, and what is refused.

The rows of the CSV keep the relations of their columns; every clock stands on the page; margins are blank and fonts
embedded; what cannot be made is told in words, and nothing is written.
"""

import csv
import datetime
import io
import math
import os
import pathlib
import re
import shutil
import struct
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from taskfiles import SKIPPED, Difference, Task, check_fonts, check_margins, expect, told, words_of  # noqa: E402

EVENING = ["--date", "2026-02-18"]
HEAD = ("local_time,universal_time,moon_altitude_deg,moon_apparent_altitude_deg,moon_azimuth_deg,sun_altitude_deg,"
        "sun_apparent_altitude_deg,sun_azimuth_deg,elongation_deg,arcv_deg,daz_deg,width_arcmin,"
        "illuminated_fraction,sky")
BORDERS = ((-50 / 60, "daylight"), (-6, "civil_twilight"), (-12, "nautical_twilight"), (-18, "astronomical_twilight"))
SUN_KM = 149597870.7  # mean distance of the Sun, IAU 2012

REFUSALS = [
    (["--date", "2026-02-30"], "no such date"),
    (["--date", "soon"], "wanted YYYY-MM-DD"),
    (["--date", "20260-02-18"], "from -4000 to 9999"),
    ([], "required"),
    (["--date", "2026-03-03"], "no crescent"),
    (["--date", "2026-06-16", "--place", "Tromso"], "does not set"),
    ([*EVENING, "--place", "Tromsoe"], 'the nearest is "Tromso"'),
    ([*EVENING, "--latitude", "91", "--longitude", "3", "--zone", "1"], "from -90 to 90"),
    ([*EVENING, "--latitude", "50"], "belong together"),
    ([*EVENING, "--latitude", "50", "--longitude", "3"], "time zone is missing"),
    ([*EVENING, "--zone", "3"], "--latitude and --longitude"),
    ([*EVENING, "--zone-name", "Asia/Ammann"], 'no time zone "Asia/Ammann"'),
    ([*EVENING, "--place", "Amman", "--latitude", "1", "--longitude", "3"], "exclude each other"),
    ([*EVENING, "--format", "gif"], "gif"),
    ([*EVENING, "--language", "both"], "both"),
    ([*EVENING, "--format", "pdf", "--width", "500"], "of PNG pictures"),
    ([*EVENING, "--format", "png", "--width", "50"], "from 200 to 10000"),
]


class Watch(Task):
    def __init__(self, report, folder):
        super().__init__(report, folder, "watch")

    def rows(self, *words):
        text = self.made(*words, "--format", "csv", "--output", "-").decode()
        expect(text.startswith(HEAD + "\r\n"), f"{words}: {text[:300]}")
        return list(csv.DictReader(io.StringIO(text)))


def numbers(row, *columns):
    return [float(row[f"{column}_deg"]) for column in columns]


def check_row(row):
    moon, moon_azimuth, sun, sun_azimuth = numbers(row, "moon_altitude", "moon_azimuth", "sun_altitude", "sun_azimuth")
    elongation, arcv, daz = numbers(row, "elongation", "arcv", "daz")
    expect(abs(arcv - (moon - sun)) < 2e-5, f"ARCV: {row}")
    expect(abs(math.remainder(daz - (moon_azimuth - sun_azimuth), 360)) < 2e-5, f"DAZ: {row}")
    cosine = (math.sin(math.radians(moon)) * math.sin(math.radians(sun)) +
              math.cos(math.radians(moon)) * math.cos(math.radians(sun)) * math.cos(math.radians(daz)))
    expect(abs(math.degrees(math.acos(cosine)) - elongation) < 2e-3, f"elongation: {row}")
    check_lit_part(row, elongation)
    local, universal = (datetime.datetime.fromisoformat(row[key].replace("Z", "+00:00"))
                        for key in ("local_time", "universal_time"))
    expect(local == universal and local.tzinfo is not None, f"instants: {row}")
    for column, altitude in (("moon", moon), ("sun", sun)):
        seen = row[f"{column}_apparent_altitude_deg"]
        expect((seen != "") == (altitude >= -1), f"{column}: {row}")
        expect(seen == "" or 0 < float(seen) - altitude < 0.8, f"refraction of the {column}: {row}")


def check_lit_part(row, elongation):
    """Meeus, Astronomical Algorithms, chapter 48: the phase angle by the distances, for any near distance of the Moon;
    width = 2 k s, with a semidiameter of 14.6' to 17'."""
    fraction, width = float(row["illuminated_fraction"]), float(row["width_arcmin"])
    fractions = []
    for moon_km in (354000, 408000):
        phase = math.atan2(SUN_KM * math.sin(math.radians(elongation)), moon_km - SUN_KM * math.cos(math.radians(elongation)))
        fractions.append((1 + math.cos(phase)) / 2)
    slack = 0.02 * max(fractions) + 1e-5  # the Sun's distance changes by 1.7 percent
    expect(min(fractions) - slack < fraction < max(fractions) + slack, f"lit part {fractions}: {row}")
    semidiameter = width / fraction / 2 if fraction > 1e-3 else 15.5
    expect(14.6 < semidiameter < 17, f"width: {row}")


def check_rows(rows, begins):
    instants = [datetime.datetime.fromisoformat(row["universal_time"].replace("Z", "+00:00")) for row in rows]
    steps = [(b - a).total_seconds() for a, b in zip(instants, instants[1:])]
    expect(all(abs(step - 300) <= 1 for step in steps[:-1]) and 0 < steps[-1] <= 301, f"steps: {steps}")
    for row in rows:
        check_row(row)
    first, last = rows[0], rows[-1]
    sun, moon = (first, last) if begins == "sun" else (last, first)
    expect(abs(float(sun["sun_altitude_deg"]) + 50 / 60) < 0.02, f"the Sun's event: {sun}")
    expect(abs(float(moon["moon_altitude_deg"]) + 50 / 60) < 0.05, f"the Moon's event: {moon}")
    for row in rows:
        altitude = float(row["sun_altitude_deg"])
        wanted = next((sky for border, sky in BORDERS if altitude > border), "night")
        expect(row["sky"] == wanted or row is sun, f"sky: {row}")
    expect(sun["sky"] == "civil_twilight", f"sky: {sun}")


def check_page(program, scratch, name, language, paper, *words):
    path = scratch / f"{name}-{language}-{paper}.pdf"
    page = ["--language", language, "--paper", paper]
    printed = program.made(*words, *page, "--output", path)
    expect(printed == f"{path}\n".encode(), f"{path.name}: its path {printed}")
    expect(re.search(rb"Pages: +1\n", told("pdfinfo", path)), f"{path.name}: one page")
    check_margins(path)
    check_fonts(path)
    shown = {text for page_words in words_of(path) for text, _, _ in page_words}
    for row in program.rows(*words):
        clock = row["local_time"][11:19]
        expect(clock in shown, f"{path.name}: no {clock}")
        azimuth = f"{float(row['moon_azimuth_deg']):.2f}"
        expect(any(azimuth in text for text in shown), f"{path.name}: no {azimuth}")
    text = told("pdftotext", path, "-").decode()
    for wanted in {"en": ["New crescent of Ramadan 1447", "What the criteria say"],
                   "ar": ["رمضان", "حكم المعايير"]}[language]:
        expect(wanted in text, f"{path.name}: no {wanted}")


def check_picture(program, scratch):
    path = scratch / "sheet.png"
    program.made(*EVENING, "--place", "Amman", "--format", "png", "--width", "800", "--output", path)
    data = path.read_bytes()
    expect(data[:8] == b"\x89PNG\r\n\x1a\n", "a PNG picture")
    expect(struct.unpack(">II", data[16:24]) == (800, 1131), f"its size {struct.unpack('>II', data[16:24])}")


def check_default_file(program):
    printed = program.made(*EVENING, "--place", "Cape Town", "--format", "csv").decode().strip()
    expect(pathlib.Path(printed) == program.folder / "watch-Cape Town-2026-02-18.csv", printed)
    expect(pathlib.Path(printed).read_bytes().startswith(HEAD.encode()), printed)
    pathlib.Path(printed).unlink()


def check_refusals(program):
    before = {path.name: path.read_bytes() for path in program.folder.iterdir() if path.is_file()}
    for words, wanted in REFUSALS:
        done = program.run(*words)
        expect(done.returncode == 2 and not done.stdout, f"{words}: status {done.returncode} {done.stderr}")
        expect(wanted in done.stderr.decode(), f"{words}: {done.stderr.decode()}")
    done = program.run(*EVENING, "--format", "csv", "--output", "pref.vsk")
    expect(done.returncode == 1 and b"file of the program" in done.stderr, f"a program's file: {done.stderr}")
    done = program.run(*EVENING, "--format", "csv", "--output", "none/x.csv")
    expect(done.returncode == 1 and b"No such file" in done.stderr, f"no folder: {done.stderr}")
    after = {path.name: path.read_bytes() for path in program.folder.iterdir() if path.is_file()}
    expect(before == after, "a refused run has written")


def main(source, report):
    if not shutil.which("pdftotext"):
        print("poppler-utils is not installed: skipped")
        return SKIPPED
    for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"):
        os.environ.pop(variable, None)
    with tempfile.TemporaryDirectory() as scratch_name:
        scratch = pathlib.Path(scratch_name)
        folder = scratch / "program folder"
        shutil.copytree(pathlib.Path(source) / "data", folder)
        program = Watch(pathlib.Path(report), folder)
        os.chdir(folder)
        try:
            for place in ("Amman", "Makkah", "Cape Town", "Tromso"):
                check_rows(program.rows(*EVENING, "--place", place), "sun")
            check_rows(program.rows("--date", "2026-02-16", "--old", "--place", "Jakarta"), "moon")
            check_rows(program.rows(*EVENING, "--latitude", "-13.8", "--longitude", "-171.8", "--zone-name",
                                    "Pacific/Apia", "--height", "20"), "sun")
            expect(len(program.rows("--date", "2026-02-16", "--place", "Amman")) == 1, "a Moon that is down: one row")
            for language in ("en", "ar"):
                for paper in ("A4", "Letter"):
                    check_page(program, scratch, "amman", language, paper, *EVENING, "--place", "Amman")
            check_picture(program, scratch)
            check_default_file(program)
            check_refusals(program)
        except Difference as difference:
            print(f"FAILED: {difference}")
            return 1
    print("passed")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
