// SPDX-License-Identifier: MIT
#include "prayer/alertschedule.h"
#include "routines/seriesloader.h"
#include "stored/alert.h"
#include "stored/loc.h"
#include "tests/support/machinezone.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

TEST(ScheduleZone, AlertsFollowTheInstantWhateverTheMachinesZone) {
    const TemporaryProgramFolder folder;
    AlertSettings settings;
    settings.window_and_athan = 1;
    write_alert(settings);
    write_loc(place_at({35, 54}, {31, 57}, 3));
    load_term();
    load_mterm();
    // Dhohur of 20 June 2024: the Sun's transit at 12:38 on the place's clock, 9:38 UT.
    for (const char* zone : {"UTC0", "EST5EDT", "AMM-3", "NPT-5:45"}) {
        const MachineZone machine(zone);
        AlertSchedule schedule{loaded_theory()};
        EXPECT_TRUE(schedule.due({2024, 6, 20, 9, 37, 59}).empty()) << zone;
        EXPECT_EQ(schedule.due({2024, 6, 20, 9, 38, 0}).size(), 1U) << zone;
    }
}

} // namespace
} // namespace halvane
