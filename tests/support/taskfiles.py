# SPDX-License-Identifier: MIT
"""What tests of files share that halvane-report writes: running a task, the words, margins and fonts of PDF pages."""

import html
import re
import subprocess

SKIPPED = 77
DOTS_PER_MM = 200 / 25.4
MARGIN = 14.6  # mm; the rules at the margins are smoothed


class Difference(Exception):
    pass


def expect(holds, what):
    if not holds:
        raise Difference(what)


def run(*command, **options):
    return subprocess.run([str(word) for word in command], capture_output=True, check=False, **options)


def told(*command):
    done = run(*command)
    expect(done.returncode == 0 and not done.stderr, f"{command}: {done.stderr}")
    return done.stdout


class Task:
    """A task of halvane-report on a program folder."""

    def __init__(self, report, folder, name):
        self.report, self.folder, self.name = report, folder, name

    def run(self, *words):
        return run(self.report, "--folder", self.folder, self.name, *words)

    def made(self, *words):
        done = self.run(*words)
        expect(done.returncode == 0 and not done.stderr, f"{words}: {done.stderr}")
        return done.stdout


def words_of(path):
    """The words of each page: text, left side, middle line."""
    pages = told("pdftotext", "-bbox", path, "-").decode().split("<page ")[1:]
    word = re.compile(r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)</word>')
    return [[(html.unescape(m[5]), float(m[1]), (float(m[2]) + float(m[4])) / 2) for m in word.finditer(page)]
            for page in pages]


ARABIC_DIGITS = str.maketrans("٠١٢٣٤٥٦٧٨٩", "0123456789")


def check_margins(path):
    picture = told("pdftoppm", "-r", "200", "-gray", "-f", "1", "-l", "1", path)
    _, size, _, dots = picture.split(b"\n", 3)
    width, height = map(int, size.split())
    lines = [dots[y * width:(y + 1) * width] for y in range(height)]
    blank = b"\xff" * width
    across = round(MARGIN * DOTS_PER_MM)
    expect(all(line == blank for line in lines[:across] + lines[-across:]), f"{path.name}: a margin above or below")
    side = b"\xff" * across
    expect(all(line.startswith(side) and line.endswith(side) for line in lines), f"{path.name}: a margin at a side")
    expect(any(line != blank for line in lines), f"{path.name}: the page is blank")


def check_fonts(path):
    fonts = told("pdffonts", path).decode().splitlines()[2:]
    expect(fonts and all(re.search(r" yes +yes +yes +\d+ +\d+$", font) for font in fonts), f"{path.name}: {fonts}")
