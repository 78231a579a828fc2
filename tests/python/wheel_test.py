#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""wheel_test.py SOURCE BUILD: pip makes the package's wheel without a network, and it works alone in another place."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import zipfile

SOURCE, BUILD = map(pathlib.Path, sys.argv[1:3])
PROGRAM = """
import halvane, pathlib
folder = pathlib.Path(halvane.__file__).parent
months = halvane.hijri_months("umm-al-qura", (1446, 1), (1446, 12))
print(folder, halvane.__version__, halvane.sun(2451545.0).longitude, len(months))
mapped = pathlib.Path("/proc/self/maps").read_text()
print(*sorted({line.split()[-1] for line in mapped.splitlines() if "libhalvane" in line}))
"""


def printed(*command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, **options)
    if done.returncode:
        raise AssertionError(done.stdout + done.stderr)
    return done.stdout


class Wheel(unittest.TestCase):
    def test_it_is_made_and_works(self):
        alone = {name: value for name, value in os.environ.items() if not name.startswith(("PYTHON", "LD_"))}
        with tempfile.TemporaryDirectory() as folder:
            folder = pathlib.Path(folder).resolve()
            printed(sys.executable, "-m", "venv", "--system-site-packages", folder / "venv", env=alone)
            pip = [folder / "venv/bin/python", "-m", "pip", "--disable-pip-version-check"]
            made = [*pip, "wheel", "--no-index", "--no-deps", "--config-settings", f"build={BUILD}"]
            for name in ("first", "second"):
                printed(*made, "--wheel-dir", folder / name, SOURCE, env=alone)
            first, second = (next((folder / name).glob("*.whl")) for name in ("first", "second"))
            self.assertEqual(first.read_bytes(), second.read_bytes())
            names = {pathlib.PurePosixPath(name).name for name in zipfile.ZipFile(first).namelist()}
            self.assertLessEqual({"py.typed", "_engine.pyi", "LICENSE", "libhalvane.so.1", "world.txt"}, names)
            printed(*pip, "install", "--no-index", first, env=alone)
            first_line, second_line = printed(
                folder / "venv/bin/python", "-c", PROGRAM, env=alone, cwd=folder
            ).splitlines()
            installed, version, longitude, months = first_line.split()
            self.assertTrue(installed.startswith(str(folder / "venv")), installed)
            self.assertEqual(version, first.name.split("-")[1])
            # Meeus, Astronomical Algorithms, ch. 25: at J2000.0 the Sun's mean longitude is 280.466 deg, its equation
            # of the centre -0.08, aberration and nutation -0.01.
            self.assertAlmostEqual(float(longitude), 280.37, delta=0.01)
            self.assertEqual(months, "12")
            self.assertEqual(second_line, f"{installed}/libhalvane.so.1")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
