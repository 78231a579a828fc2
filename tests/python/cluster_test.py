#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""cluster_test.py EXAMPLES: the works of examples/cluster leave the same bytes, whoever is killed in the middle.

Ends with 77 when Dask is not installed.
"""

import contextlib
import importlib.util
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import halvane

EXAMPLES = pathlib.Path(sys.argv[1])
TIMETABLES = ["timetables.py", "--places", "200", "--months", "1"]
SMALLER_TIMETABLES = ["timetables.py", "--places", "60", "--months", "1"]
ATLAS = ["atlas.py", "--years", "2", "--step", "5"]
# Long enough to be met in the middle: 40 files of some hundredths of a second each.
MANY_TIMETABLES = ["timetables.py", "--places", "2000", "--months", "1"]
MANY_YEARS = ["atlas.py", "--years", "30", "--step", "5"]
OF_ONE_PLACE = next(criterion.key for criterion in halvane.criteria() if criterion.place)
LIMIT = 120  # for what takes seconds [s]


def command(work, folder, *how):
    program, *options = work
    return [sys.executable, EXAMPLES / program, *options, "--folder", folder, *how]


def run(work, folder, *how):
    return subprocess.run(command(work, folder, *how), capture_output=True, text=True, timeout=LIMIT)


def files_of(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def parts_in(folder):
    return len(list(folder.glob("*-*.*"))) if folder.exists() else 0


@contextlib.contextmanager
def met_in_the_middle(work, folder, wanted):
    """A run on two workers of which some parts are done and some are not, and the workers' processes."""
    with subprocess.Popen(
        command(work, folder, "--workers", "2"), stderr=subprocess.PIPE, text=True, start_new_session=True
    ) as process:
        try:
            line = next(line for line in process.stderr if line.startswith("workers "))
            workers = line.split()[1:]
            begun = time.monotonic()
            while parts_in(folder) < 3:
                assert time.monotonic() - begun < LIMIT, "no part was made"
                time.sleep(0.001)
            yield process, [int(worker) for worker in workers]
            if process.poll() is None:
                process.stderr.read()
                process.wait(LIMIT)
        finally:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)


class Works(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        own = tempfile.TemporaryDirectory()
        self.addCleanup(own.cleanup)
        self.folder = pathlib.Path(own.name)

    def serial(self, work):
        folder = self.folder / "serial"
        done = run(work, folder, "--serial")
        self.assertEqual(done.returncode, 0, done.stderr)
        return files_of(folder)

    def equal(self, folder, wanted):
        made = files_of(folder)
        self.assertEqual(sorted(made), sorted(wanted))
        self.assertEqual([name for name in wanted if made[name] != wanted[name]], [])

    def test_any_number_of_workers_makes_the_same(self):
        for number, work in enumerate((TIMETABLES, ATLAS)):
            with self.subTest(work[0]):
                self.folder = pathlib.Path(self.folder, str(number))
                wanted = self.serial(work)
                self.assertEqual(len(wanted), 1 + (4 if work is TIMETABLES else 2))
                for workers in "1", "2":
                    done = run(work, self.folder / workers, "--workers", workers)
                    self.assertEqual(done.returncode, 0, done.stderr)
                    self.equal(self.folder / workers, wanted)

    def killed_worker(self, work):
        wanted = self.serial(work)
        folder = self.folder / "killed"
        with met_in_the_middle(work, folder, wanted) as (process, workers):
            os.kill(workers[0], signal.SIGKILL)
            left = len(wanted) - 1 - parts_in(folder)
        self.assertGreater(left, 0, "the work was over before a worker was killed")
        self.assertEqual(process.returncode, 0)
        self.equal(folder, wanted)

    def test_a_killed_worker_changes_no_timetable(self):
        self.killed_worker(MANY_TIMETABLES)

    def test_a_killed_worker_changes_no_map(self):
        self.killed_worker(MANY_YEARS)

    def test_a_killed_work_goes_on(self):
        wanted = self.serial(MANY_TIMETABLES)
        folder = self.folder / "killed"
        with met_in_the_middle(MANY_TIMETABLES, folder, wanted) as (process, workers):
            os.killpg(process.pid, signal.SIGKILL)
            for worker in workers:
                with contextlib.suppress(ProcessLookupError):
                    os.kill(worker, signal.SIGKILL)
        first = {path.name: path.stat().st_mtime_ns for path in folder.glob("timetables-*")}
        self.assertLess(len(first), len(wanted) - 1, "the work was over before it was killed")
        (folder / ".unfinished-abc").write_bytes(b"half")
        done = run(MANY_TIMETABLES, folder, "--workers", "2")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.equal(folder, wanted)
        self.assertEqual({name: (folder / name).stat().st_mtime_ns for name in first}, first)

    def test_other_settings_are_refused(self):
        wanted = self.serial(SMALLER_TIMETABLES)
        done = run(["timetables.py", "--places", "60", "--months", "2"], self.folder / "serial", "--serial")
        self.assertEqual(done.returncode, 1)
        self.assertIn("other settings", done.stderr)
        self.equal(self.folder / "serial", wanted)

    def test_bad_lists(self):
        bad = self.folder / "bad.csv"
        for text in (
            "",
            "name,latitude,longitude,zone\n",
            "name,latitude\nA,1\n",
            "name,latitude,longitude,zone\nA,1\n",
            "name,latitude,longitude,zone\nA,x,2,UTC\n",
            "name,latitude,longitude,zone\nA,91,2,UTC\n",
            "name,latitude,longitude,zone\nA,1,2,Nowhere/None\n",
        ):
            with self.subTest(text):
                bad.write_text(text)
                done = run(["timetables.py", "--list", bad, *SMALLER_TIMETABLES[1:]], self.folder / "none", "--serial")
                self.assertEqual(done.returncode, 1)
                self.assertNotIn("Traceback", done.stderr)
                self.assertEqual(parts_in(self.folder / "none"), 0)

    def test_bad_options(self):
        for work in (
            ["timetables.py", "--places", "0"],
            ["timetables.py", "--months", "13"],
            ["timetables.py", "--authority", "nobody"],
            ["timetables.py", "--list", "nowhere.csv"],
            ["timetables.py", "--year", "20000"],
            ["timetables.py", "--workers", "0"],
            ["atlas.py", "--criterion", "nobody"],
            ["atlas.py", "--criterion", OF_ONE_PLACE, "--years", "1"],
            ["atlas.py", "--step", "0"],
            ["atlas.py", "--first", "20000", "--years", "1"],
        ):
            with self.subTest(work):
                done = run(work, self.folder / "none", *(() if "--workers" in work else ("--serial",)))
                self.assertIn(done.returncode, (1, 2))
                self.assertNotIn("Traceback", done.stderr)
                self.assertEqual(parts_in(self.folder / "none"), 0)


if __name__ == "__main__":
    if importlib.util.find_spec("dask") is None or importlib.util.find_spec("distributed") is None:
        print("skipped: Dask is not installed (python3-dask, python3-distributed)")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1])
