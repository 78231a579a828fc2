#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""refusals_test.py SOURCE HALVANE_REPORT: what a timetable cannot be made of is told in words, and nothing is written.

Each case is a command line, its exit status (2 for a mistake on the line, 1 for a file that is none) and words that its
message holds. The folders hold the same files, byte for byte, before and after.
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

HEAD = "name,latitude,longitude,zone_name\n"
FILES = {
    "hole.csv": HEAD + "A,1,2,Asia/Amman\nB,,2,Asia/Amman\n",
    "zone.csv": HEAD + "A,1,2,Asia/Nowhere\n",
    "head.csv": "name,lat,longitude,zone_name\nA,1,2,Asia/Amman\n",
    "letters.csv": HEAD + "A,north,2,Asia/Amman\n",
    "quote.csv": HEAD + '"A,1,2,Asia/Amman\n',
    "fields.csv": HEAD + "A,1,2\n",
    "empty.csv": "",
    "nobody.csv": HEAD,
    "far.csv": HEAD + "A,91,2,Asia/Amman\n",
    "profile-angle.ini": "[rules]\nfajer_angle = 99\n",
    "profile-key.ini": "[rules]\n\nfajr = 18\n",
    "profile-bytes.ini": "\x00\x01\x02\n",
    "hijri-announced.csv": "year,month,first_day,announced_by\n",
}
DAMAGED_RULE = "[rule]\nrule = nobody\n"
WRONG_LIST = "year,month,first_day,announced_by\n1447,9,2026-02-18,A\n1447,10,2026-03-18,A\n"
WHOLE_LIST_RULE = "[rule]\nannounced = whole\n"
MONTH = ["--month", "2026-02"]
TO_NOWHERE = ["--output", "-"]

CASES = [
    (["--month", "2026-13"], 2, "no month 13"),
    (["--month", "soon"], 2, "wanted YYYY-MM"),
    (["--year", "10000"], 2, "from -4000 to 9999"),
    (["--hijri-year", "0"], 2, "from 1 to 9600"),
    (["--from", "2026-03-02", "--to", "2026-03-01"], 2, "comes before the first"),
    (["--from", "0001-01-01", "--to", "9999-12-31"], 2, "at most 36600 days"),
    (["--from", "2026-02-30", "--to", "2026-03-01"], 2, "no such date"),
    (["--from", "2026-02-20"], 2, "--to"),
    ([], 2, "required"),
    ([*MONTH, "--year", "2026"], 2, "2 were given"),
    ([*MONTH, "--place", "Osl"], 2, 'the nearest is "Oslo"'),
    ([*MONTH, "--latitude", "91", "--longitude", "3", "--zone", "1"], 2, "from -90 to 90"),
    ([*MONTH, "--latitude", "nan", "--longitude", "3", "--zone", "1"], 2, "from -90 to 90"),
    ([*MONTH, "--latitude", "50", "--longitude", "3"], 2, "time zone is missing"),
    ([*MONTH, "--latitude", "50"], 2, "belong together"),
    ([*MONTH, "--zone", "3"], 2, "--latitude and --longitude"),
    ([*MONTH, "--zone-name", "Asia/Ammann"], 2, 'no time zone "Asia/Ammann"'),
    ([*MONTH, "--columns", "date,fajr"], 2, 'no column "fajr"'),
    ([*MONTH, "--format", "doc"], 2, "doc"),
    ([*MONTH, "--profile", "nobody"], 1, 'no profile "nobody"'),
    ([*MONTH, "--profile", "angle"], 1, "line 2: fajer_angle: wanted 1 ... 30"),
    ([*MONTH, "--profile", "key"], 1, "line 3: there is no [rules] fajr"),
    ([*MONTH, "--profile", "bytes"], 1, "line 1"),
    ([*MONTH, "--profile", "../pref"], 1, "no profile"),
    ([*MONTH, "--places", "hole.csv"], 1, "line 3: latitude is missing"),
    ([*MONTH, "--places", "zone.csv"], 1, 'line 2: there is no time zone "Asia/Nowhere"'),
    ([*MONTH, "--places", "head.csv"], 1, "no column latitude"),
    ([*MONTH, "--places", "letters.csv"], 1, 'wanted a number, found "north"'),
    ([*MONTH, "--places", "quote.csv"], 1, "not closed"),
    ([*MONTH, "--places", "fields.csv"], 1, "wanted 4 fields, found 3"),
    ([*MONTH, "--places", "empty.csv"], 1, "head row is missing"),
    ([*MONTH, "--places", "nobody.csv"], 1, "no place follows"),
    ([*MONTH, "--places", "far.csv"], 1, "line 2: a latitude is from"),
    ([*MONTH, "--places", "none.csv"], 1, "No such file"),
    ([*MONTH, "--places", "hole.csv", "--place", "Oslo"], 2, "exclude each other"),
    ([*MONTH, "--places", "hole.csv", "--zone-name", "Asia/Amman"], 2, "does not go with it"),
    ([*MONTH, "--layout", "display", "--format", "ics"], 2, "of CSV files"),
    ([*MONTH, "--compare", "empty.csv"], 1, "head row is missing"),
    ([*MONTH, "--compare", "hole.csv"], 1, "column"),
    ([*MONTH, "--output", "/dev/full"], 1, "No space left"),
    ([*MONTH, "--output", "none/x.csv"], 1, "No such file"),
    ([*MONTH, "--output", "pref.vsk"], 1, "file of the program"),
    ([*MONTH, "--output", "profile-angle.ini"], 1, "file of the program"),
    ([*MONTH, "--places", "hole.csv", "--output", "pref.vsk"], 2, "no folder"),
    ([*MONTH, "--output", "hijri-announced.csv"], 1, "file of the program"),
    ([*MONTH, "--hijri-rule", "nobody"], 2, "nobody"),
    ([*MONTH, "--hijri-rule", "seen-at"], 2, "Choose a place of the list"),
    (["--year", "500", "--hijri-rule", "umm-al-qura"], 2, "no Hijri months"),
]

# Rule that is kept, list of announced months, and the refusal of a timetable by them.
KEPT_CASES = [
    (DAMAGED_RULE, "", (MONTH, 1, "line 2: rule: wanted tabular")),
    (WHOLE_LIST_RULE, WRONG_LIST, (MONTH, 1, "hijri-announced.csv, line 3: Ramadan 1447 would be a month of 28 days")),
    (WHOLE_LIST_RULE, WRONG_LIST, ([*MONTH, "--output", "hijri-rule.ini", "--hijri-rule", "tabular"], 1, "of the program")),
]


def files_of(folder):
    return {path.name: path.read_bytes() for path in sorted(folder.iterdir())}


def refused(program, folder, case):
    """What is wrong with how a case was refused; nothing for a good refusal."""
    words, status, told = case
    before = files_of(folder)
    output = [] if "--output" in words else TO_NOWHERE if "--places" not in words else ["--output", "."]
    run = subprocess.run(
        [program, "--folder", ".", "timetable", *words, *output], cwd=folder, capture_output=True, text=True, timeout=60
    )
    if run.returncode != status:
        return f"status {run.returncode}, wanted {status}: {run.stderr}"
    if told not in run.stderr:
        return f"wanted {told!r} in: {run.stderr}"
    if run.stdout:
        return f"printed {run.stdout[:60]!r}"
    if files_of(folder) != before:
        return "files have changed"
    return None


def main():
    source, program = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    wrong = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for path in [*source.glob("data/*.vsk"), source / "data/loc.txt", source / "data/zones.csv"]:
            shutil.copy(path, folder)
        for file, text in FILES.items():
            (folder / file).write_text(text)
        for case in CASES:
            if finding := refused(program, folder, case):
                print(" ".join(case[0]), ":", finding)
                wrong += 1
        for rule, announced, case in KEPT_CASES:
            (folder / "hijri-rule.ini").write_text(rule)
            (folder / "hijri-announced.csv").write_text(announced)
            if finding := refused(program, folder, case):
                print(" ".join(case[0]), ":", finding)
                wrong += 1
    print(f"{len(CASES) + len(KEPT_CASES)} command lines, {wrong} not refused as they should be")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
