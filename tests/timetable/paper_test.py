#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""paper_test.py SOURCE HALVANE_REPORT: PDF files of timetables as users get them, read by Poppler's programs.

Each time of the CSV stands on the page in its row and its order, from the right in Arabic; the margins are blank, fonts
are embedded, the pages are counted, and words tell of what cannot be done.
"""

import csv
import io
import os
import pathlib
import re
import shutil
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from taskfiles import ARABIC_DIGITS, SKIPPED, Difference, Task, check_fonts, check_margins, expect, told, words_of  # noqa: E402

ROW = 3  # points that words of one row differ in, at most
MANY = "date,weekday,hijri,imsak,fajer,fajer_iqamah,shuroq,dhohur,dhohur_iqamah,aser_standard,aser_hanafi,maghreb,isha,midnight"


class Timetables(Task):
    def __init__(self, report, folder):
        super().__init__(report, folder, "timetable")

    def pdf(self, name, *words):
        path = self.folder / f"{name}.pdf"
        expect(self.made(*words, "--format", "pdf", "--output", path) == f"{path}\n".encode(), f"{name}: its path")
        return path


def check_rows(path, rows, language, digits="western"):
    """The clocks of each day stand side by side; those of the next one below them."""
    digit = "[0-9]" if digits == "western" or language == "en" else "[٠-٩]"
    clock = re.compile(f"{digit}{digit}:{digit}{digit}")
    lines = []
    for text, left, middle in sorted((word for page in words_of(path) for word in page if clock.match(word[0])),
                                     key=lambda word: word[2]):
        if lines and middle - lines[-1][0][2] < ROW:
            lines[-1].append((text, left, middle))
        else:
            lines.append([(text, left, middle)])
    expect(len(lines) == len(rows), f"{path.name}: {len(lines)} rows of times, {len(rows)} days")
    for line, row in zip(lines, rows):
        shown = [clock.match(text)[0].translate(ARABIC_DIGITS) for text, _, _ in sorted(line, key=lambda word: word[1])]
        if language == "ar":
            shown.reverse()
        times = [value for value in row.values() if re.fullmatch(r"\d\d:\d\d", value)]
        expect(shown == times, f"{path.name}, {row['date']}: {shown} where the rows have {times}")


def check_month(programs, language, paper, columns):
    options = ["--month", "2026-02", "--place", "Amman", "--columns", columns, "--language", language, "--paper", paper]
    path = programs.pdf(f"{language}-{paper}-{columns.count(',') + 1}", *options)
    rows = list(csv.DictReader(io.StringIO(programs.made(*options, "--output", "-").decode())))
    check_rows(path, rows, language)
    check_margins(path)
    check_fonts(path)
    text = told("pdftotext", path, "-").decode()
    for words in {"en": ["Prayer times, February 2026"], "ar": ["مواقيت الصلاة"],
                  "both": ["Prayer times, February 2026", "مواقيت الصلاة"]}[language]:
        expect(words in text, f"{path.name}: no {words}")


def check_digits(programs):
    """Arabic-Indic digits are those of a page with Arabic on it."""
    for language in ("en", "ar", "both"):
        options = ["--month", "2026-02", "--place", "Amman", "--language", language, "--digits", "arabic"]
        path = programs.pdf(f"digits-{language}", *options)
        rows = list(csv.DictReader(io.StringIO(programs.made(*options, "--output", "-").decode())))
        check_rows(path, rows, language, "arabic")


def check_year(programs):
    path = programs.pdf("year", "--year", "2026", "--place", "Amman")
    expect(re.search(rb"Pages: +12\n", told("pdfinfo", path)), "a year has 12 pages")
    text = told("pdftotext", "-layout", path, "-").decode()
    for number, page in enumerate(text.split("\f")[:12], 1):
        expect(f"Page {number} of 12" in page, f"page {number}: its foot")
    expect(programs.made("--year", "2026", "--format", "pdf", "--output", "-").startswith(b"%PDF-"), "standard output")


def check_places(programs):
    """Files of many places, which are made side by side, hold what each alone does."""
    names = [f"Place {number}" for number in range(12)]
    table = "name,latitude,longitude,zone_name,zone,height\n" + "".join(
        f"{name},{20 + 3 * number},{-100 + 15 * number},,{number - 6},0\n" for number, name in enumerate(names))
    (programs.folder / "places.csv").write_text(table)
    folder = programs.folder / "many"
    folder.mkdir()
    programs.made("--month", "2026-02", "--places", programs.folder / "places.csv", "--language", "both", "--format", "pdf",
                  "--output", folder)
    for number, name in enumerate(names):
        alone = programs.pdf("alone", "--month", "2026-02", "--latitude", 20 + 3 * number, "--longitude",
                             -100 + 15 * number, "--zone", number - 6, "--height", 0, "--language", "both")
        one, other = ([word for word in words_of(path)[0] if ":" in word[0]]
                      for path in (alone, folder / f"{name}.pdf"))
        expect(one and one == other, f"{name}: not the page that it has alone")


def check_light(report):
    """The program of scripts and servers does without Qt."""
    libraries = told("ldd", report).decode()
    expect("libc.so" in libraries and "libQt" not in libraries, f"{report}: {libraries}")


def check_fontless(programs, scratch):
    """Without any font there is no page without words."""
    fonts = scratch / "fonts.conf"
    fonts.write_text('<?xml version="1.0"?><fontconfig><dir>/nowhere</dir></fontconfig>')
    os.environ["FONTCONFIG_FILE"] = str(fonts)
    done = programs.run("--month", "2026-02", "--format", "pdf", "--output", "-")
    del os.environ["FONTCONFIG_FILE"]
    expect(done.returncode == 1 and not done.stdout and b"no font" in done.stderr, f"without fonts: {done.stderr}")


def check_failures(programs, scratch):
    lonely = scratch / "lonely"
    lonely.mkdir()
    shutil.copy(programs.report, lonely)
    alone = Timetables(lonely / programs.report.name, programs.folder)
    done = alone.run("--month", "2026-02", "--format", "pdf", "--output", "-")
    expect(done.returncode == 1 and not done.stdout, "without halvane-paper")
    expect(done.stderr.decode().startswith("halvane-report: ") and b"halvane-paper" in done.stderr and
           done.stderr.count(b"\n") == 1, f"its words: {done.stderr}")
    expect(alone.run("--month", "2026-02", "--output", "-").returncode == 0, "CSV without halvane-paper")
    mistake = programs.run("--month", "2026-13", "--format", "pdf", "--output", "-")
    expect(mistake.returncode == 2 and mistake.stderr.startswith(b"halvane-report: "), "a month that is none")
    unwritten = programs.run("--month", "2026-02", "--format", "pdf", "--output", scratch / "none" / "page.pdf")
    expect(unwritten.returncode == 1 and unwritten.stderr.startswith(b"halvane-report: "), "a folder that is not there")


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
        programs = Timetables(pathlib.Path(report), folder)
        try:
            for language in ("en", "ar", "both"):
                for paper in ("A4", "Letter"):
                    for columns in ("date,weekday,hijri,fajer,shuroq,dhohur,aser,maghreb,isha", MANY):
                        check_month(programs, language, paper, columns)
            check_digits(programs)
            check_year(programs)
            check_places(programs)
            check_light(report)
            check_fontless(programs, scratch)
            check_failures(programs, scratch)
        except Difference as difference:
            print(f"FAILED: {difference}")
            return 1
    print("passed")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
