#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""load_test.py: threads, memory and references under many calls."""

import gc
import os
import sys
import threading
import time
import unittest

import numpy as np

import halvane

CAIRO = (30.05, 31.25)


def resident():
    """Bytes of this process in memory."""
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def one_of_each(number):
    """A result of each kind that a thread could disturb."""
    day = halvane.civil_date(2451544.5 + 17 * number)
    return (
        halvane.sun(2451545.0 + number),
        halvane.moon_seen(np.arange(5) + 2451545.0 + number, CAIRO),
        halvane.prayer_times(day, CAIRO, "Africa/Cairo"),
        halvane.moon_day(day, CAIRO, "Africa/Cairo"),
        halvane.crescent("new", day, CAIRO, 2),
        halvane.timetable(day, day, CAIRO, "Africa/Cairo"),
        halvane.crescent_map(day, step=20, progress=lambda percent: True),
    )


class Threads(unittest.TestCase):
    def test_eight_threads_give_what_one_gives(self):
        wanted = [one_of_each(number) for number in range(40)]
        made = [None] * 8
        start = threading.Barrier(8)

        def work(thread):
            start.wait()
            made[thread] = [one_of_each(number) for number in range(40)]

        threads = [threading.Thread(target=work, args=(thread,)) for thread in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        for results in made:
            self.assertEqual(results, wanted)

    def test_one_engine_is_made_at_first_use(self):
        engines = set()
        threads = [threading.Thread(target=lambda: engines.add(halvane.shared_engine())) for _ in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(len(engines), 1)

    def test_other_threads_go_on_while_it_calculates(self):
        """Python's code runs in the middle of one long call: with a locked interpreter it could not."""
        seen = []
        over = threading.Event()

        def look():
            while not over.is_set():
                seen.append(time.monotonic())
                time.sleep(0.002)

        looker = threading.Thread(target=look)
        # One part of an array is one stretch without the lock.
        days = np.linspace(2415020.5, 2488070.5, 32768)
        halvane.sun(days[:10])
        looker.start()
        begin = time.monotonic()
        halvane.sun(days)
        end = time.monotonic()
        over.set()
        looker.join()
        middle = [moment for moment in seen if begin + (end - begin) / 4 < moment < end - (end - begin) / 4]
        self.assertGreater(len(middle), 2)


class Memory(unittest.TestCase):
    """After 100,000 calls, no more memory and no more references than after the first ones."""

    def steady(self, call, calls=100_000):
        for _ in range(calls // 10):
            call()
        gc.collect()
        before = resident()
        for _ in range(calls):
            call()
        gc.collect()
        grown = resident() - before
        self.assertLess(grown, 10 * calls, f"{grown} bytes after {calls} calls")  # a leak of one object is 16 and more

    def test_places(self):
        self.steady(lambda: halvane.sun(2451545.0, accuracy="low"))

    def test_refusals(self):
        def call():
            try:
                halvane.sun(1e9)
            except halvane.BadArgument:
                pass

        self.steady(call)

    def test_arrays(self):
        days = np.array([2451545.0, 2451546.0])
        references = sys.getrefcount(days)
        self.steady(lambda: halvane.refracted(days - 2451500))
        self.steady(lambda: halvane.sun(days, accuracy="low"), 20_000)
        self.assertEqual(sys.getrefcount(days), references)

    def test_days(self):
        self.steady(lambda: halvane.prayer_times((2025, 3, 20), CAIRO, "Africa/Cairo"))

    def test_rows_and_maps(self):
        def told(percent):
            return True

        references = sys.getrefcount(told)
        self.steady(lambda: halvane.timetables((2025, 3, 20), (2025, 3, 20), [(CAIRO, 2)], progress=told), 20_000)
        self.steady(lambda: halvane.crescent_map((2025, 3, 20), step=30, progress=told), 3_000)
        self.assertEqual(sys.getrefcount(told), references)
        self.assertLess(sys.getrefcount(None), 10**6)


if __name__ == "__main__":
    unittest.main()
