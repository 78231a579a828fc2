#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""finemapfiles_test.py SOURCE HALVANE_REPORT: files of fine maps as users get them, read by other programs.

GeoJSON by Shapely, PNG by a reader of its own here, SVG by librsvg, PDF by Poppler; what cannot be mapped is told in
words and leaves no file.
"""

import csv
import json
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

SKIPPED = 77
try:
    from shapely.geometry import Point, shape
    from shapely.ops import unary_union
except ImportError:
    print("python3-shapely is not installed: skipped")
    sys.exit(SKIPPED)

EVENING = ["--date", "2026-02-18", "--step", "1"]
REFUSED = [
    (["map", "--date", "2026-02-18"], "--date goes with --fine only"),
    (["map", "--lines", "lag"], "--lines goes with --fine only"),
    (["map", "--criterion", "yallop-1997"], "not in {vesk,yallop,saao}"),
    (["map", "--format", "png"], "not in {gif,csv,json}"),
    (["map", "--day", "all"], "not in range 0 to 2"),
    (["map", "--fine", "--csv", "x.csv"], "--csv does not go with --fine"),
    (["map", "--fine", "--criterion", "nobody"], "nobody not in"),
    (["map", "--fine", "--criterion", "umm-al-qura"], "judges by one place alone"),
    (["map", "--fine", "--criterion", "turkey-1978", "--old", "--date", "2026-02-16"], "new crescents alone"),
    (["map", "--fine", "--format", "gif"], "gif not in"),
    (["map", "--fine", "--date", "2026-02-18", "--day", "1"], "excludes"),
    (["map", "--fine", "--date", "2026-02-25"], "the nearest conjunction is on 2026-02-17, 8 days from"),
    (["map", "--fine", "--date", "2026-02-30"], "no such date"),
    (["map", "--fine", "--date", "soon"], "wanted YYYY-MM-DD"),
    (["map", "--fine", "--date", "20000-01-01"], "from -4000 to 9999"),
    (["map", "--fine", "--step", "2"], "2 not in"),
    (["map", "--fine", "--window", "1,2,3"], "wanted W,S,E,N"),
    (["map", "--fine", "--window", "1,2,3,nan"], "wanted W,S,E,N"),
    (["map", "--fine", "--window", "0,0,10,90"], "from -85 to 85"),
    (["map", "--fine", "--window", "0,10,10,0"], "its north above its south"),
    (["map", "--fine", "--window", "10,0,10,5"], "at least one step wide"),
    (["map", "--fine", "--window", "190,0,200,10"], "from -180 to below 180"),
    (["map", "--fine", "--width", "63"], "from 64 to 30000"),
    (["map", "--fine", "--width", "30001"], "from 64 to 30000"),
    (["map", "--fine", "--width", "500.5"], "from 64 to 30000"),
    (["map", "--fine", "--width", "500", "--format", "csv"], "--width is of png and svg"),
    (["map", "--fine", "--paper", "A4"], "--paper is of pdf"),
    (["map", "--fine", "--lines", "lag,width"], "width not in"),
    (["map", "--fine", "--mark", "Makka"], 'the nearest is "Makkah"'),
    (["map", "--fine", "--limits", "lag=2"], "of the criterion user"),
    (["map", "--fine", "--criterion", "user", "--limits", "width=2"], "wanted lag=, altitude="),
    (["map", "--fine", "--criterion", "user", "--limits", "lag=two"], "wanted a number or nothing"),
    (["map", "--fine", "--criterion", "user", "--limits", "lag=,altitude=,elongation=,age="], "one limit at least"),
    (["map", "--fine", "--danjon", "7"], "of the criterion danjon"),
    (["map", "--fine", "--criterion", "danjon", "--danjon", "200"], "from 0 to 180"),
    (["atlas"], "--year is required"),
    (["atlas", "--year", "10000"], "from -4000 to 9999"),
    (["atlas", "--year", "0", "--hijri"], "from 1 to 9600"),
    (["atlas", "--year", "2026", "--format", "png"], "png not in"),
]


class Difference(Exception):
    pass


def expect(holds, what):
    if not holds:
        raise Difference(what)


def told(*command):
    done = subprocess.run([str(word) for word in command], capture_output=True, check=False, timeout=120)
    expect(done.returncode == 0 and not done.stderr, f"{command}: {done.stderr}")
    return done.stdout


class Maps:
    def __init__(self, report, folder):
        self.report, self.folder = report, folder

    def made(self, *words):
        return told(self.report, "--folder", self.folder, *words, "--output", "-")

    def fine(self, *words):
        return self.made("map", "--fine", *words)

    def refused(self, words, wanted):
        files = sorted(self.folder.iterdir())
        done = subprocess.run([self.report, "--folder", self.folder, *words, "--output", self.folder / "x.out"],
                              capture_output=True, text=True, check=False, timeout=60, cwd=self.folder)
        expect(done.returncode == 2, f"{words}: status {done.returncode}: {done.stderr}")
        expect(wanted in done.stderr, f"{words}: wanted {wanted!r} in {done.stderr!r}")
        expect(not done.stdout and sorted(self.folder.iterdir()) == files, f"{words}: something was written")


def is_counter_clockwise(ring):
    return sum((b[0] - a[0]) * (b[1] + a[1]) for a, b in zip(ring, ring[1:])) < 0


def check_geometry(geometry, name):
    """RFC 7946, 3.1.6 and 3.1.9."""
    expect(geometry["type"] == "MultiPolygon", f"{name}: {geometry['type']}")
    for polygon in geometry["coordinates"]:
        for number, ring in enumerate(polygon):
            expect(len(ring) >= 4 and ring[0] == ring[-1], f"{name}: a ring is not closed")
            expect(is_counter_clockwise(ring) == (number == 0), f"{name}: a ring turns the wrong way")
            expect(all(-180 <= x <= 180 and -90 <= y <= 90 for x, y in ring), f"{name}: a place beyond the Earth")
            expect(max(x for x, _ in ring) - min(x for x, _ in ring) <= 360, f"{name}: a ring around the Earth")
    for polygon in shape(geometry).geoms:
        # Six decimals turn a corner by 1e-6 deg at most.
        expect(polygon.is_valid or polygon.buffer(0).symmetric_difference(polygon.buffer(1e-6)).area < 1e-3,
               f"{name}: Shapely calls a polygon invalid")


def zones_of(text, window_area, name):
    """The zones by their numbers; they fill the window and share no area."""
    data = json.loads(text)
    expect(data["type"] == "FeatureCollection", name)
    zones = {}
    for feature in data["features"]:
        properties = feature["properties"]
        expect({"class", "words", "criterion", "colour", "date", "number"} <= set(properties), f"{name}: {properties}")
        expect(re.fullmatch(r"#[0-9A-F]{6}", properties["colour"]), f"{name}: {properties['colour']}")
        check_geometry(feature["geometry"], f"{name}, {properties['class']}")
        zones[properties["class"]] = unary_union([polygon.buffer(0) for polygon in shape(feature["geometry"]).geoms])
    area = sum(zone.area for zone in zones.values())
    expect(abs(area - window_area) < 1e-3 * window_area, f"{name}: {area} square degrees of {window_area}")
    whole = unary_union([zone.buffer(1e-5) for zone in zones.values()])
    expect(abs(whole.area - window_area) < 2e-3 * window_area, f"{name}: zones lie on each other")
    return data, zones


def check_geojson_and_csv(maps):
    """Each place of the grid lies in the zone of its class."""
    for criterion in ("vesk", "yallop-1997", "saao-2001", "mabims-2021"):
        words = ["--criterion", criterion, *EVENING]
        data, zones = zones_of(maps.fine(*words, "--format", "geojson"), 360 * 170, criterion)
        numbers = {feature["properties"]["class"]: feature["properties"]["number"] for feature in data["features"]}
        rows = list(csv.DictReader(maps.fine(*words, "--format", "csv").decode().splitlines()))
        expect(len(rows) == 361 * 171, f"{criterion}: {len(rows)} rows")
        for row in rows[::37]:
            place = Point(float(row["longitude"]), float(row["latitude"]))
            classes = {numbers[name] for name, zone in zones.items() if zone.distance(place) < 2e-3}
            expect(int(row["class"]) in classes, f"{criterion}: {row} lies in {classes}")


def check_date_line(maps):
    text = maps.fine("--criterion", "vesk", *EVENING, "--window", "160,-30,-160,30", "--format", "geojson")
    zones_of(text, 40 * 60, "date line")
    longitudes = {x for f in json.loads(text)["features"] for p in f["geometry"]["coordinates"] for r in p for x, _ in r}
    expect(min(longitudes) == -180 and max(longitudes) == 180, "the date line has two sides")
    expect(not any(-160 < x < 160 for x in longitudes), "places outside the window")


def check_days(maps):
    features = json.loads(maps.fine("--day", "all", "--criterion", "maunder", "--step", "1", "--format", "geojson"))
    dates = sorted({feature["properties"]["date"] for feature in features["features"]})
    expect(len(dates) == 3, f"three days: {dates}")


def png_rows(data):
    """Width and the rows of a PNG picture of three bytes a pixel. Source  W3C Recommendation, 2nd edition (2003)."""
    expect(data.startswith(b"\x89PNG\r\n\x1a\n"), "PNG: its signature")
    packed, place, width, height = b"", 8, 0, 0
    while place < len(data):
        size, kind = struct.unpack(">I4s", data[place:place + 8])
        body = data[place + 8:place + 8 + size]
        check, = struct.unpack(">I", data[place + 8 + size:place + 12 + size])
        expect(check == zlib.crc32(kind + body), f"PNG: the check of {kind}")
        if kind == b"IHDR":
            width, height, depth, colours = struct.unpack(">IIBB", body[:10])
            expect((depth, colours) == (8, 2), "PNG: its colours")
        elif kind == b"IDAT":
            packed += body
        place += 12 + size
    expect(kind == b"IEND", "PNG: its end")
    raw = zlib.decompress(packed)
    expect(len(raw) == height * (3 * width + 1), "PNG: its size")
    rows, above = [], bytes(3 * width)
    for row in range(height):
        line = raw[row * (3 * width + 1):(row + 1) * (3 * width + 1)]
        expect(line[0] == 2, "PNG: a filter that was not looked for")
        above = bytes((a + b) & 0xFF for a, b in zip(line[1:], above))
        rows.append(above)
    return width, rows


def check_png(maps):
    width, rows = png_rows(maps.fine("--criterion", "vesk", *EVENING, "--width", "300"))
    expect(width == 300 and 150 < len(rows) < 250, f"PNG: {width} x {len(rows)}")
    expect(rows[0] == b"\xff" * 900, "PNG: the margin is blank")
    greens = sum(row[x + 1] > row[x] + 20 and row[x + 1] > row[x + 2] + 20 for row in rows for x in range(0, 900, 3))
    expect(greens > 5000, f"PNG: {greens} green pixels of an evening that most of the world sees the crescent on")
    for extreme in ("64", "2000"):
        data = maps.fine("--criterion", "vesk", *EVENING, "--width", extreme)
        expect(struct.unpack(">I", data[16:20])[0] == int(extreme), f"PNG: a width of {extreme}")


def check_svg(maps):
    svg = maps.folder / "map.svg"
    for language in ("en", "ar"):
        svg.write_bytes(maps.fine("--criterion", "vesk", *EVENING, "--format", "svg", "--language", language))
        picture = told("rsvg-convert", "-w", "200", svg)
        expect(picture.startswith(b"\x89PNG") and len(picture) > 5000, "SVG: librsvg draws nothing")
        expect(b"e+" not in svg.read_bytes() and b"nan" not in svg.read_bytes(), "SVG: numbers")
    svg.unlink()


def check_pdf(maps):
    pdf = maps.folder / "map.pdf"
    lines = {
        "en": ["New Crescent Visibility, Ramadan 1447", "Evening of Wednesday, 18 February 2026",
               "Geocentric conjunction: 17 February 2026, 12:01 UT; 15:01 in Amman (UTC+3)",
               "A: easily visible", "The Moon sets before the Sun", "Coasts and borders: Natural Earth.", "Makkah"],
        "ar": ["رؤية هلال أول الشهر", "رمضان 1447", "مساء الأربعاء", "يرى بسهولة بالعين المجردة", "يغرب القمر قبل الشمس"],
    }
    for language, wanted in lines.items():
        for paper, size in (("A4", "841.89 x 595.276"), ("Letter", "792 x 612")):
            pdf.write_bytes(maps.fine("--criterion", "yallop-1997", *EVENING, "--format", "pdf", "--language", language,
                                      "--paper", paper, "--mark", "Makkah"))
            text = re.sub("[\u200e\u200f\u202a-\u202e]", "", told("pdftotext", "-layout", pdf, "-").decode())
            for words in wanted:
                expect(words in text, f"PDF, {language}: no {words!r} in {text}")
            order = [text.index(words) for words in wanted[:1] + wanted[3:5]]
            expect(order == sorted(order), f"PDF, {language}: the head, the best class, the others follow one another")
            info = told("pdfinfo", pdf).decode()
            found = re.search(r"Page size: +([\d.]+) x ([\d.]+)", info)
            expect(all(abs(float(a) - float(b)) < 1 for a, b in zip(found.groups(), size.split(" x "))), info)
            fonts = told("pdffonts", pdf).decode().splitlines()[2:]
            expect(fonts and all(re.search(r" yes +yes +yes +\d+ +\d+$", font) for font in fonts), f"{fonts}")
    pdf.unlink()


def check_atlas(maps):
    """A page for each conjunction of the year; those of 2026 by Meeus, Astronomical Algorithms, chapter 49, in UT."""
    pdf = maps.folder / "atlas.pdf"
    pdf.write_bytes(maps.made("atlas", "--year", "2026", "--criterion", "maunder", "--step", "1"))
    text = told("pdftotext", pdf, "-").decode()
    dates = re.findall(r"Geocentric conjunction: (\d+ \w+) 2026", text)
    expect(dates == ["18 January", "17 February", "19 March", "17 April", "16 May", "15 June", "14 July", "12 August",
                     "11 September", "10 October", "9 November", "9 December"], f"atlas: {dates}")
    expect(text.count("Evening of ") == 36, "atlas: three evenings each")
    pdf.write_bytes(maps.made("atlas", "--year", "1447", "--hijri", "--criterion", "maunder", "--step", "1", "--old"))
    months = re.findall(r"Old Crescent Visibility, ([^,\n]+) (\d+)", told("pdftotext", pdf, "-").decode())
    expect(len(months) == 12 and months[0] == ("Muharram", "1447") and months[8] == ("Ramadan", "1447"), f"{months}")
    pdf.unlink()


def check_limits(maps):
    """Of lag alone, 48 minutes are the Babylonian rule: but for its border the map is the same."""
    words = [*EVENING, "--format", "csv"]
    own = maps.fine("--criterion", "user", "--limits", "lag=48,altitude=,elongation=,age=", *words).decode().splitlines()
    babylon = maps.fine("--criterion", "babylon", *words).decode().splitlines()
    expect([line.split(",")[:3] for line in own] == [line.split(",")[:3] for line in babylon], "--limits lag=48")
    wide, narrow = (maps.fine("--criterion", "danjon", "--danjon", limit, *words) for limit in ("5", "12"))
    expect(wide.count(b",4,") > narrow.count(b",4,") > 0, "--danjon")


def main(source, report):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name) / "program folder"
        shutil.copytree(pathlib.Path(source) / "data", folder)
        maps = Maps(pathlib.Path(report).resolve(), folder)
        try:
            for words, wanted in REFUSED:
                maps.refused(words, wanted)
            for check in (check_geojson_and_csv, check_date_line, check_days, check_limits, check_png, check_svg,
                          check_pdf, check_atlas):
                check(maps)
        except Difference as difference:
            print(f"FAILED: {difference}")
            return 1
    print(f"{len(REFUSED)} refusals, passed")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
