# SPDX-License-Identifier: MIT
# first.py [YYYY-MM-DD]: the six prayer times of a day, or of today, at Cairo.
import datetime
import sys
import zoneinfo

import halvane

zone = zoneinfo.ZoneInfo("Africa/Cairo")
day = datetime.date.fromisoformat(sys.argv[1]) if len(sys.argv) > 1 else datetime.datetime.now(zone).date()
rules = halvane.rules_of_authority("egypt")
for name, time in halvane.timetable(day, day, (30.05, 31.25), zone, rules)[0].items():
    print(f"{name:8} {time}")
