#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""installed_test.py SOURCE BUILD REPORT CMAKE: the installed library serves programs of others.

It is installed into a folder of its own; programs in C++20 and C17 are built against the shared and the static library by
find_package and by pkg-config, with every compiler that is there, and run in an empty folder with an empty environment.
The first lines print what halvane-report's timetable of the same rules has.
"""

import csv
import io
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD, REPORT, CMAKE = sys.argv[1:5]
CONSUMERS = pathlib.Path(SOURCE) / "tests/library/consumers"
FIRST_LINES = pathlib.Path(SOURCE) / "examples/firstlines"
WARNINGS = ["-Wall", "-Wextra", "-pedantic", "-Werror"]
COMPILERS = {
    "cpp": [(name, "-std=c++20") for name in ("g++", "clang++") if shutil.which(name)],
    "c": [(name, "-std=c17") for name in ("gcc", "clang") if shutil.which(name)],
}
PRAYERS = ("fajer", "shuroq", "dhohur", "aser", "maghreb", "isha")
# A plain day, the day on which Egypt's summer time begins, a day of Ramadan, midsummer.
DATES = ("2026-11-23", "2026-04-24", "2026-02-18", "2030-06-21")


def done(*words, **options):
    """What a command writes; a failure tells what it said."""
    run = subprocess.run([str(word) for word in words], capture_output=True, text=True, **options)
    if run.returncode != 0:
        raise AssertionError(f"{words} ended with {run.returncode}:\n{run.stdout}{run.stderr}")
    return run.stdout


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="halvane-installed-")
        cls.addClassCleanup(cls.folder.cleanup)
        top = pathlib.Path(cls.folder.name)
        cls.prefix, cls.empty, cls.work = top / "prefix", top / "empty", top / "work"
        cls.empty.mkdir()
        (cls.prefix / "bin").mkdir(parents=True)
        cls.work.mkdir()
        done(CMAKE, "--install", BUILD, "--component", "library", "--prefix", cls.prefix)
        cls.files = {str(path.relative_to(cls.prefix)) for path in cls.prefix.rglob("*") if not path.is_dir()}
        cls.library = next(cls.prefix.rglob("libhalvane.a")).parent

    def run_alone(self, program, *words):
        return done(program, *words, cwd=self.empty, env={})

    def compiled(self, source, compiler, standard, package):
        """A program in bin/ of the prefix, beside the series."""
        words = done("pkg-config", "--cflags", "--libs", package,
                     env={"PKG_CONFIG_PATH": self.library / "pkgconfig", "PATH": "/usr/bin:/bin"}).split()
        program = self.prefix / "bin" / f"{source.name}-{compiler}-{package}"
        done(compiler, standard, *WARNINGS, source, "-o", program, *words, f"-Wl,-rpath,{self.library}")
        return program

    def every_program(self, folder, name):
        for language, compilers in COMPILERS.items():
            self.assertTrue(compilers)
            for compiler, standard in compilers:
                for package in ("halvane", "halvane-static"):
                    with self.subTest(language=language, compiler=compiler, package=package):
                        yield self.compiled(folder / f"{name}.{language}", compiler, standard, package)

    def test_nothing_but_the_library_is_installed(self):
        files = self.files
        headers = {path.name for path in (pathlib.Path(SOURCE) / "library/halvane").glob("*.h")}
        self.assertEqual({pathlib.Path(name).name for name in files if name.startswith("include/halvane/")}, headers)
        self.assertEqual({pathlib.Path(name).name for name in files if name.startswith("share/halvane/")},
                         {"termfull.vsk", "term.vsk", "mterm.vsk", "elp.vsk", "world.txt"})
        others = {pathlib.Path(name).name for name in files if not name.startswith(("include/", "share/halvane/"))}
        self.assertEqual({name for name in others if not name.startswith("libhalvane.so.")},
                         {"libhalvane.so", "libhalvane.a", "HalvaneConfig.cmake", "HalvaneConfigVersion.cmake",
                          "halvane.pc", "halvane-static.pc", "LICENSE"})

    def test_every_compiler_by_pkg_config(self):
        told = {self.run_alone(program) for program in self.every_program(CONSUMERS, "consumer")}
        self.assertEqual(len(told), 1, told)
        self.assertIn("yallop-1997", told.pop())

    def test_every_compiler_by_find_package(self):
        told = set()
        for language, compilers in COMPILERS.items():
            for compiler, _ in compilers:
                with self.subTest(language=language, compiler=compiler):
                    work = self.work / compiler
                    kind = "CMAKE_C_COMPILER" if language == "c" else "CMAKE_CXX_COMPILER"
                    done(CMAKE, "-S", CONSUMERS, "-B", work, f"-DCONSUMER={language}", f"-D{kind}={compiler}",
                         f"-DCMAKE_PREFIX_PATH={self.prefix}")
                    done(CMAKE, "--build", work)
                    told.add(self.run_alone(work / "consumer_halvane"))
                    # The static library looks for the series from where its program stands.
                    beside = shutil.copy(work / "consumer_static", self.prefix / "bin" / f"consumer-{compiler}")
                    told.add(self.run_alone(beside))
        self.assertEqual(len(told), 1, told)

    def test_a_program_shares_nothing_but_the_interface(self):
        """No dependency beside the language's own; no symbol of the static library that others could meet."""
        needed = done("readelf", "-d", self.library / "libhalvane.so")
        names = {line.split("[")[1].rstrip("]") for line in needed.splitlines() if "(NEEDED)" in line}
        self.assertLessEqual({name.split(".so")[0] for name in names},
                             {"libstdc++", "libm", "libgcc_s", "libc", "ld-linux-x86-64", "ld-linux-aarch64"})
        told = done("nm", "--defined-only", "--extern-only", "--format=just-symbols", self.library / "libhalvane.a")
        wanted = (pathlib.Path(SOURCE) / "library/symbols.txt").read_text().split()
        self.assertEqual(sorted(line for line in told.splitlines() if line and not line.endswith(":")), sorted(wanted))

    def test_the_first_lines_print_what_the_timetable_has(self):
        programs = list(self.every_program(FIRST_LINES, "first"))
        for date in DATES:
            table = done(REPORT, "timetable", "--from", date, "--to", date, "--latitude", "30.05", "--longitude", "31.25",
                         "--zone-name", "Africa/Cairo", "--profile", "egypt", "--columns", ",".join(PRAYERS),
                         "--format", "csv", "--output", "-")
            row = next(csv.DictReader(io.StringIO(table)))
            for program in programs:
                self.assertEqual(self.run_alone(program, date).split(), [row[name] for name in PRAYERS], (program, date))
        for program in programs:
            self.assertEqual(len(self.run_alone(program).split()), len(PRAYERS))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
