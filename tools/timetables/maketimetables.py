#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the examples of docs/timetable: every output of a timetable for four places, and pictures of the pages.

usage: maketimetables.py PROGRAM_FOLDER OUTPUT_FOLDER

PROGRAM_FOLDER  holds halvane-report and halvane-paper with the delivered files
OUTPUT_FOLDER   docs/timetable; its profiles/ holds the profiles of the examples

Pictures need pdftoppm (poppler-utils), those of the HTML pages chromium.
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

FORMATS = ("csv", "ics", "json", "html", "pdf")
STORED = ("*.vsk", "loc.txt", "zones.csv")
RULES = ("none", "middle", "seventh", "angle", "latitude", "share", "year")
NOW = "2026-11-22T12:00"  # of the calendar files' stamps
PAGE_DOTS_PER_INCH = "80"
PHONE, DESK = "390,1400", "1280,1500"

EXAMPLES = {
    "amman": ["--place", "Amman", "--month", "2026-02"],
    "makkah": ["--place", "Makkah", "--hijri-month", "1447-09", "--profile", "umm-al-qura", "--language", "ar"],
    "london": ["--place", "London", "--month", "2026-06", "--profile", "London"],
    **{f"oslo-{rule}": ["--place", "Oslo", "--month", "2026-06", "--profile", f"Oslo-{rule}"] for rule in RULES},
}
PICTURED = ("amman", "makkah", "london", "oslo-seventh")
# Each example beside the same place and month by other rules.
OTHER_RULES = {"oslo": "Oslo-seventh"}
USUAL_OTHER_RULES = "egypt"
# A table that adds and takes off minutes, beside a timetable of the same angles that does not.
COMPARED_PLACE = ["--place", "Jakarta", "--month", "2026-02"]
TABLE, PLAIN = ["--profile", "kemenag", "--format", "csv"], ["--profile", "Jakarta-plain"]


def timetable(program, folder, words, output):
    command = [program, "--folder", folder, "--now", NOW, "timetable", *words, "--output", output]
    subprocess.run([str(word) for word in command], check=True, stdout=subprocess.DEVNULL)


def without_page(words):
    """The place and the days of an example."""
    pairs = zip(words[::2], words[1::2])
    return [word for pair in pairs if pair[0] not in ("--profile", "--language") for word in pair]


def compare(program, folder, name, words, output):
    other = Path(folder) / "other.csv"
    rules = OTHER_RULES.get(name.split("-")[0], USUAL_OTHER_RULES)
    timetable(program, folder, [*without_page(words), "--profile", rules, "--format", "csv"], other)
    timetable(program, folder, [*words, "--compare", other], output / f"{name}-compared.txt")


def picture_of_page(pdf, picture):
    stem = picture.with_suffix("")
    subprocess.run(["pdftoppm", "-r", PAGE_DOTS_PER_INCH, "-png", "-singlefile", pdf, stem], check=True)


def pictures_of_html(html, stem):
    browser = shutil.which("chromium")
    if browser is None:
        print("no chromium: no pictures of the HTML pages")
        return
    for name, size in (("phone", PHONE), ("desk", DESK)):
        subprocess.run(
            [browser, "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", f"--window-size={size}",
             f"--screenshot={stem}-{name}.png", html.resolve().as_uri()],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )


def make_folder(program_folder, profiles, folder):
    for pattern in STORED:
        for path in program_folder.glob(pattern):
            shutil.copy(path, folder)
    for path in profiles.glob("profile-*.ini"):
        shutil.copy(path, folder)


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    program_folder, output = map(Path, arguments)
    program = program_folder / "halvane-report"
    with tempfile.TemporaryDirectory() as folder:
        make_folder(program_folder, output / "profiles", Path(folder))
        for name, words in EXAMPLES.items():
            for form in FORMATS:
                timetable(program, folder, [*words, "--format", form], output / f"{name}.{form}")
            compare(program, folder, name, words, output)
            if name in PICTURED:
                picture_of_page(output / f"{name}.pdf", output / f"{name}-page.png")
        for name in ("amman", "makkah"):
            pictures_of_html(output / f"{name}.html", output / f"{name}-html")
        table = Path(folder) / "table.csv"
        timetable(program, folder, [*COMPARED_PLACE, *TABLE], table)
        timetable(program, folder, [*COMPARED_PLACE, *PLAIN, "--compare", table], output / "jakarta-compared.txt")


if __name__ == "__main__":
    main(sys.argv[1:])
