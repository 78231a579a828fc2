#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Damages a sound list of locations one way at a time: every damage must be found and named.

usage: checklocations_test.py LOC_FILE
"""

import subprocess
import sys
import tempfile
from pathlib import Path

CHECKER = Path(__file__).resolve().parents[2] / "tools" / "makelocations" / "checklocations.py"

# A square of land about Amman, a lake about Zarqa in it, and an islet far off.
LAND = "ring,hole,longitude,latitude\n" + "".join(
    f"{ring},{hole},{longitude},{latitude}\n"
    for ring, hole, west, south, size in ((1, 0, 35, 31, 2), (2, 1, 35.6, 31.97, 0.95), (3, 0, 0, 0, 0.1))
    for longitude, latitude in (
        (west, south), (west + size, south), (west + size, south + size), (west, south + size), (west, south)
    )
)


def run(content, *options):
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder, "loc.txt")
        path.write_bytes(content)
        Path(folder, "land.csv").write_text(LAND, encoding="utf-8")
        result = subprocess.run(
            [sys.executable, str(CHECKER), str(path), *options], cwd=folder, capture_output=True, text=True
        )
    return result.returncode, result.stderr


def main():
    sound = Path(sys.argv[1]).read_bytes()
    amman = next(line for line in sound.split(b"\r\n") if line.startswith(b'"Amman",'))

    def with_amman(replacement):
        return sound.replace(amman, replacement)

    fields = amman.split(b",")

    def with_field(index, text):
        return with_amman(b",".join(fields[:index] + [text] + fields[index + 1 :]))

    cases = {
        "Amman: 13 fields in place of 14": with_amman(b",".join(fields[:-1])),
        "Amman: 60 is not a whole number from 0 to 59": with_field(2, b"60"),
        "Amman: 2 is not a whole number from 0 to 1": with_field(7, b"2"),
        "Amman: the zone -3 is": with_field(9, b"-3"),
        "Amman: 2.3 is no zone": with_field(9, b"2.3"),
        "Amman: an elevation of 9000 m": with_field(10, b"9000"),
        "Amman: -20 m, below the sea": with_field(10, b"-20"),
        "Amman: 100 m, its aerodrome 779 m": with_field(10, b"100"),
        "Amman: city offset, pressure and temperature": with_field(12, b"1000"),
        "Amman: the capital of Jordan is missing": with_amman(b'"Ammaan",' + b",".join(fields[1:])),
        "Amman: stands more than once": with_amman(amman + b"\r\n" + amman),
        "the list: is not sorted": amman + b"\r\n" + sound.replace(amman + b"\r\n", b""),
        "the list: 2 locations, fewer than 300": amman + b"\r\n" + amman + b"\r\n",
        "the file: every line must end in CR LF": sound.replace(b"\r\n", b"\n"),
    }
    failed = [words for words, content in cases.items() if words not in run(content)[1] or run(content)[0] != 1]
    if run(sound) != (0, ""):
        failed.append("the sound list passes")
    at_sea = run(sound, "--land", "land.csv")[1]
    if "Aqaba: stands" not in at_sea or "Zarqa: stands" not in at_sea or "Amman: stands" in at_sea:
        failed.append("land, sea and lake are told apart")
    for words in failed:
        print(f"not found: {words}", file=sys.stderr)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
