#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""hijrirule_test.py SOURCE HALVANE_REPORT: the Hijri dates of a timetable follow the rule that is kept.

21 June 2024 is 14 Thul Hejjah 1445 of the tabular calendar. The Umm al-Qura calendar has 1 Thul Hejjah on 7 June, a day
before the tabular one (R. H. van Gent, The Umm al-Qura calendar of Saudi Arabia), so it is the 15th there.
"""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile

import jsonschema

ANNOUNCED = "year,month,first_day,announced_by\n1445,12,2024-06-07,A\n"
KEPT_ANNOUNCED = "[rule]\nrule = tabular\nannounced = whole\n"
KEPT_UMM_AL_QURA = "[rule]\nrule = umm-al-qura\n"


class Folder:
    def __init__(self, source, program, path):
        self.program, self.path = program, path
        for file in [*source.glob("data/*.vsk"), source / "data/loc.txt", source / "data/zones.csv"]:
            shutil.copy(file, path)
        self.schema = json.loads((source / "docs/timetable.schema.json").read_text())
        self.wrong = []

    def written(self, *words):
        run = subprocess.run(
            [self.program, "--folder", ".", "timetable", "--place", "Amman", "--columns", "date,hijri", *words, "--output", "-"],
            cwd=self.path,
            capture_output=True,
            text=True,
            timeout=60,
            check=True,
        )
        return run.stdout

    def expect(self, what, found, wanted):
        if found != wanted:
            self.wrong.append(f"{what}: {found!r}, wanted {wanted!r}")

    def expect_day(self, what, wanted, *words):
        rows = dict(line.split(",") for line in self.written("--month", "2024-06", *words).split())
        self.expect(what, rows["2024-06-21"], wanted)

    def expect_names(self, name):
        """What the formats that have notes say of the rule; nothing where it is the tabular calendar."""
        made = json.loads(self.written("--month", "2024-06", "--format", "json"))
        jsonschema.validate(made, self.schema)
        self.expect("JSON", made["settings"].get("hijri_dates", {}).get("en"), name)
        page = self.written("--month", "2024-06", "--format", "html")
        self.expect("HTML", f"Hijri dates: {name}" in page if name else "Hijri dates:" in page, bool(name))
        calendar = self.written("--month", "2024-06", "--format", "ics").replace("\n ", "").replace("\\,", ",")
        told = f"First day of the month: {name}" if name else "First day of the month by the tabular Hijri calendar"
        self.expect("ICS", told in calendar, True)


def main():
    source, program = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = Folder(source, program, pathlib.Path(name))
        tabular_file = folder.written("--month", "2024-06", "--format", "json")
        folder.expect_day("nothing kept", "1445-12-14")
        folder.expect_names(None)

        (folder.path / "hijri-rule.ini").write_text(KEPT_UMM_AL_QURA)
        folder.expect_day("kept", "1445-12-15")
        folder.expect_day("kept, by name", "1445-12-15", "--hijri-rule", "kept")
        folder.expect_day("tabular", "1445-12-14", "--hijri-rule", "tabular")
        folder.expect_names("Umm al-Qura")
        month = folder.written("--hijri-month", "1445-12").split()
        folder.expect("first day of the month", month[1], "2024-06-07,1445-12-01")
        again = folder.written("--month", "2024-06", "--format", "json", "--hijri-rule", "tabular")
        folder.expect("the tabular file", again, tabular_file)

        (folder.path / "hijri-rule.ini").write_text(KEPT_ANNOUNCED)
        (folder.path / "hijri-announced.csv").write_text(ANNOUNCED)
        folder.expect_day("announced", "1445-12-15")
        folder.expect_names("Announced, else Tabular")
        (folder.path / "hijri-rule.ini").unlink()
        folder.expect_day("kept no more", "1445-12-14")
    for words in folder.wrong:
        print(words)
    return 1 if folder.wrong else 0


if __name__ == "__main__":
    sys.exit(main())
