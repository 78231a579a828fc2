#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""locales_test.py SOURCE HALVANE_REPORT [HALVANE_SOAK]: golden reports are the same bytes in every locale.

The batch program runs over golden folders of every room, and the panels' buttons over those of the prayer and the Moon
report, under locales with another decimal point, other digits' groups, other letters and other names of days. A locale
that cannot be had is a failure.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools/campaign"))

from systemlocales import LOCALES, locale_environment, make_locale

# Room, task of the batch program, start of the folders' names, report.
GOLDEN = [
    ("prayer", "prayer", "", "results.out"),
    ("moon", "moon", "", "mresults.out"),
    ("phases", "phases", "", "results.out"),
    ("crescent", "crescent", "", "visib.out"),
    ("qibla", "qibla-sun", "sun-", "results.out"),
    ("qibla", "qibla-shadow", "shadow-", "results.out"),
    ("tables", "ephemeris", "", "ephemeris.out"),
]
EACH = 3  # every third folder: seconds instead of a minute
PANEL_REPORTS = {"prayer": ("results.out", "prayer.out"), "moon": ("mresults.out", "mresults.out")}


def golden_folders(golden, room, start):
    """Some of a room's golden folders, reports that were cancelled on the way left out."""
    folders = sorted(path for path in (golden / room).glob(start + "*") if path.is_dir())
    return [folder for folder in folders if not folder.name.endswith("-cancelled")][::EACH]


def written(words, stored, report, environment, delivered=()):
    """The report that a program leaves in a folder of these stored files, or what it says when it leaves none."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for path in [*delivered, *stored.glob("*.vsk")]:
            shutil.copy(path, folder)
        words = [str(folder) if word == "FOLDER" else str(word) for word in words]
        ended = subprocess.run(words, capture_output=True, env=environment, timeout=120)
        found = folder / report
        return found.read_bytes() if found.exists() else ended.stdout + ended.stderr


def first_difference(expected, found):
    pairs = zip(expected.splitlines() + [b""], found.splitlines() + [b""])
    stories = (f"line {n}: expected {e}, found {f}" for n, (e, f) in enumerate(pairs, 1) if e != f)
    return next(stories, "the lengths differ")


def differences(source, program, soak, environment):
    """The golden reports that come out otherwise, and how many were compared."""
    golden = source / "tests/golden"
    works = []
    for room, task, start, report in GOLDEN:
        for folder in golden_folders(golden, room, start):
            works.append((folder, report, report, [program, "--folder", "FOLDER", task], ()))
    if soak:
        delivered = [path for path in (source / "data").iterdir() if path.is_file()]
        for room, (report, panel_report) in PANEL_REPORTS.items():
            folder = golden_folders(golden, room, "")[-1]
            works.append((folder, report, panel_report, [soak, "FOLDER", "reports"], delivered))
    bad = []
    for folder, report, made, words, delivered in works:
        expected = (folder / report).read_bytes()
        found = written(words, folder, made, environment, delivered)
        if found != expected:
            title = f"{pathlib.Path(words[0]).name}, {folder.relative_to(golden)}/{report}"
            bad.append(f"{title}: {first_difference(expected, found)}")
    return bad, len(works)


def main(source, program, soak=None):
    failures = []
    with tempfile.TemporaryDirectory() as locales:
        for name in LOCALES:
            trouble = make_locale(pathlib.Path(locales), name)
            if trouble:
                failures.append(trouble)
                continue
            environment = {**os.environ, **locale_environment(locales, name), "QT_QPA_PLATFORM": "offscreen"}
            bad, compared = differences(pathlib.Path(source), program, soak, environment)
            failures += [f"{name}: {line}" for line in bad]
            if compared < 2 * len(GOLDEN):
                failures.append(f"{name}: only {compared} golden reports were found")
            print(f"{name}: {compared} reports compared, {len(bad)} differ")
    print("\n".join(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
