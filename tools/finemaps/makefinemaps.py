#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Makes the examples of docs/finemap: fine maps of two conjunctions, an atlas, and maps as other eyes see them.

usage: makefinemaps.py PROGRAM_FOLDER OUTPUT_FOLDER

PROGRAM_FOLDER  holds halvane-report and halvane-paper with the delivered files
OUTPUT_FOLDER   docs/finemap

Pictures are brought to 256 colours by ImageMagick; what other eyes see needs python3-colorspacious.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "colourvision"))
from colourvision import EYES, seen  # noqa: E402

STORED = ("*.vsk", "loc.txt", "zones.csv", "world.txt")
WIDTH = "1600"
MARKS = ["--mark", "Makkah,Jakarta,London,Los Angeles"]
CRITERIA = ("vesk", "yallop-1997", "saao-2001", "mabims-2021")
MONTHS = {"ramadan-1447": (17, 2, 2026), "shawwal-1446": (29, 3, 2025)}
SINGLE = {
    "ramadan-1447-17-lines-en": ["--criterion", "yallop-1997", "--date", "2026-02-17", "--lines", "lag,age", *MARKS],
    "ramadan-1447-18-en": ["--criterion", "yallop-1997", "--date", "2026-02-18", *MARKS],
    "ramadan-1447-18-ar": ["--criterion", "yallop-1997", "--date", "2026-02-18", "--language", "ar", *MARKS],
    "shawwal-1446-29-en": ["--criterion", "yallop-1997", "--date", "2025-03-29", *MARKS],
    "shawwal-1446-30-en": ["--criterion", "yallop-1997", "--date", "2025-03-30", *MARKS],
    "shawwal-1446-29-ar": ["--criterion", "saao-2001", "--date", "2025-03-29", "--lines", "altitude,elongation",
                           "--language", "ar", *MARKS],
    "shawwal-1446-29-arabia-en": ["--criterion", "vesk", "--date", "2025-03-29", "--window", "30,10,62,34", "--step",
                                  "0.25", "--lines", "lag,elongation", "--mark", "Makkah,Riyadh,Sanaa,Muscat"],
}
SIMULATED = ("ramadan-1447-17-lines-en", "ramadan-1447-18-en")


def report(program, folder, words, output):
    command = [program, "--folder", folder, *words, "--output", output]
    subprocess.run([str(word) for word in command], check=True, stdout=subprocess.DEVNULL)


def reduce_colours(picture, options=()):
    subprocess.run(["convert", picture, *options, "+dither", "-colors", "256", "-strip", f"PNG8:{picture}"], check=True)


def store_conjunction(folder, date):
    """Makes a date the approximate one of the stored choices."""
    path = folder / "visib.vsk"
    fields = path.read_text(encoding="ascii").split(",")
    fields[:3] = [f'"{number}"' for number in date]
    path.write_text(",".join(fields), encoding="ascii", newline="")


def simulate(picture, eye, output):
    """The picture as an eye without one kind of cones sees it."""
    data = subprocess.run(["convert", picture, "-resize", "800x", "+dither", "-colors", "256", "ppm:-"], check=True,
                          capture_output=True).stdout
    head, size, most, dots = data.split(b"\n", 3)
    changed = {}
    for place in range(0, len(dots), 3):
        colour = dots[place:place + 3]
        if colour not in changed:
            changed[colour] = bytes(round(255 * part) for part in seen([part / 255 for part in colour], eye))
    dots = b"".join(changed[dots[place:place + 3]] for place in range(0, len(dots), 3))
    subprocess.run(["convert", "ppm:-", "-strip", f"PNG8:{output}"], check=True,
                   input=b"\n".join((head, size, most, dots)))


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    program_folder, output = map(pathlib.Path, arguments)
    program = program_folder / "halvane-report"
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for pattern in STORED:
            for path in program_folder.glob(pattern):
                shutil.copy(path, folder)
        for month, date in MONTHS.items():
            store_conjunction(folder, date)
            for criterion in CRITERIA if month == "ramadan-1447" else CRITERIA[1:2]:
                language = "ar" if criterion == "mabims-2021" else "en"
                picture = output / f"{month}-{criterion}-{language}.png"
                report(program, folder, ["map", "--fine", "--day", "all", "--criterion", criterion, "--language",
                                         language, "--width", WIDTH], picture)
                reduce_colours(picture)
        for name, words in SINGLE.items():
            picture = output / f"{name}.png"
            report(program, folder, ["map", "--fine", *words, "--width", WIDTH], picture)
            reduce_colours(picture)
        for name in SIMULATED:
            for eye, deficiency in EYES.items():
                if deficiency is not None:
                    simulate(output / f"{name}.png", deficiency, output / f"{name}-{eye}.png")
        report(program, folder, ["map", "--fine", "--criterion", "vesk", "--date", "2026-02-18", "--step", "1",
                                 "--format", "geojson"], output / "ramadan-1447-18-vesk.geojson")
        report(program, folder, ["map", "--fine", "--criterion", "yallop-1997", "--date", "2026-02-18", "--language",
                                 "ar", "--format", "pdf"], output / "ramadan-1447-18-ar.pdf")
        report(program, folder, ["atlas", "--year", "2026", "--criterion", "mabims-2021", "--step", "1"],
               output / "atlas-2026-mabims-2021-en.pdf")


if __name__ == "__main__":
    main(sys.argv[1:])
