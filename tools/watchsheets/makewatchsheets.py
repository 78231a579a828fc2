#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the examples of docs/watch: the watch sheets of four places for the evening of 18 February 2026 (Ramadan 1447),
and of days on which nothing can be seen.

usage: makewatchsheets.py PROGRAM_FOLDER OUTPUT_FOLDER

PROGRAM_FOLDER  holds halvane-report and halvane-paper with the delivered files
OUTPUT_FOLDER   docs/watch
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

STORED = ("*.vsk", "loc.txt", "zones.csv")
PICTURE = ("--width", "1000")
EVENING = ("--date", "2026-02-18")
ARABIC = ("--language", "ar")

EXAMPLES = {
    "amman": (*EVENING, "--place", "Amman"),
    "amman-ar": (*EVENING, "--place", "Amman", *ARABIC),
    "makkah": (*EVENING, "--place", "Makkah"),
    "makkah-ar": (*EVENING, "--place", "Makkah", *ARABIC),
    "cape-town": (*EVENING, "--place", "Cape Town"),
    "tromso": (*EVENING, "--place", "Tromso"),
    "tromso-up": ("--date", "2026-04-18", "--place", "Tromso"),
    "jakarta-old-ar": ("--date", "2026-02-16", "--old", "--place", "Jakarta", *ARABIC),
    "amman-before": ("--date", "2026-02-16", "--place", "Amman"),
}
WITH_CSV = ("amman",)


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    program_folder, output = map(Path, arguments)
    with tempfile.TemporaryDirectory() as folder:
        for pattern in STORED:
            for path in program_folder.glob(pattern):
                shutil.copy(path, folder)
        for name, words in EXAMPLES.items():
            formats = [("pdf", ()), ("png", PICTURE)] + ([("csv", ())] if name in WITH_CSV else [])
            for form, more in formats:
                command = [program_folder / "halvane-report", "--folder", folder, "watch", *words, "--format", form,
                           *more, "--output", output / f"{name}.{form}"]
                subprocess.run([str(word) for word in command], check=True, stdout=subprocess.DEVNULL)


if __name__ == "__main__":
    main(sys.argv[1:])
