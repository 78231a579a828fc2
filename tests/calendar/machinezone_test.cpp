// SPDX-License-Identifier: MIT
#include "tests/support/machinezone.h"

#include "calendar/locationclock.h"
#include "calendar/platformdate.h"
#include "routines/machineclock.h"

#include <ctime>
#include <gtest/gtest.h>

namespace halvane {
namespace {

TEST(MachineClock, TheInstantDoesNotDependOnTheMachinesZone) {
    for (const char* zone : {"UTC0", "AMM-3", "NST3:30"}) {
        const MachineZone machine(zone);
        const double instant =
            seconds_of(universal_time()) - platform_day_count(1970, 1, 1) * seconds_per_day;
        EXPECT_NEAR(instant, static_cast<double>(std::time(nullptr)), 2) << zone;
        const double ahead = zone[0] == 'U' ? 0 : zone[0] == 'A' ? 3 : -3.5;
        EXPECT_NEAR(seconds_of(machine_time()) - seconds_of(universal_time()), ahead * seconds_per_hour, 2)
            << zone;
    }
}

} // namespace
} // namespace halvane
