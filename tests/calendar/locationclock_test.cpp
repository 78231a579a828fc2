// SPDX-License-Identifier: MIT
#include "calendar/locationclock.h"

#include "calendar/platformdate.h"
#include "calendar/zonetext.h"
#include "routines/machineclock.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace halvane {
namespace {

Location zone_of(double hours) {
    Location location;
    location.zone = hours;
    return location;
}

Preferences summer_from_april_to_october() {
    Preferences preferences;
    preferences.summer_time = "1";
    return preferences;
}

std::string text(const MachineTime& time) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                  time.hour, time.minute, time.second);
    return buffer;
}

std::string clock_of(const Preferences& preferences, double zone, const MachineTime& universal) {
    return text(location_clock(preferences, zone_of(zone), universal).time);
}

TEST(LocationClock, IsTheZonesHourAwayFromUniversalTime) {
    EXPECT_EQ(clock_of({}, 3, {2026, 11, 22, 13, 17, 5}), "2026-11-22 16:17:05");
    EXPECT_EQ(clock_of({}, -9.5, {2026, 11, 22, 3, 17, 5}), "2026-11-21 17:47:05");
    EXPECT_EQ(clock_of({}, 14, {2024, 2, 28, 20, 0, 0}), "2024-02-29 10:00:00");
    EXPECT_EQ(clock_of({}, -12, {2026, 1, 1, 3, 0, 0}), "2025-12-31 15:00:00");
}

TEST(LocationClock, IsAnHourFurtherInSummer) {
    const Preferences summer = summer_from_april_to_october();
    EXPECT_EQ(clock_of(summer, 2, {2026, 3, 31, 12, 0, 0}), "2026-03-31 14:00:00");
    EXPECT_EQ(clock_of(summer, 2, {2026, 4, 1, 12, 0, 0}), "2026-04-01 15:00:00");
    EXPECT_EQ(clock_of(summer, 2, {2026, 10, 1, 12, 0, 0}), "2026-10-01 15:00:00");
    EXPECT_EQ(clock_of(summer, 2, {2026, 10, 2, 12, 0, 0}), "2026-10-02 14:00:00");
}

TEST(LocationClock, GoesAheadAndBackOnceInASpan) {
    const Preferences summer = summer_from_april_to_october();
    // The last second of March by the zone, then an hour is left out.
    EXPECT_EQ(clock_of(summer, 2, {2026, 3, 31, 21, 59, 59}), "2026-03-31 23:59:59");
    EXPECT_EQ(clock_of(summer, 2, {2026, 3, 31, 22, 0, 0}), "2026-04-01 01:00:00");
    // The hour from 23 to 24 of 1 October comes twice.
    EXPECT_EQ(clock_of(summer, 2, {2026, 10, 1, 20, 59, 59}), "2026-10-01 23:59:59");
    EXPECT_EQ(clock_of(summer, 2, {2026, 10, 1, 21, 0, 0}), "2026-10-01 23:00:00");
    EXPECT_EQ(clock_of(summer, 2, {2026, 10, 1, 22, 0, 0}), "2026-10-02 00:00:00");
}

TEST(LocationClock, AgreesWithAClockThatIsReadAMomentLater) {
    const LocationClock here{{2026, 12, 31, 23, 59, 59}, 3};
    EXPECT_TRUE(agree(here, {2026, 12, 31, 23, 59, 59}));
    EXPECT_TRUE(agree(here, {2027, 1, 1, 0, 0, 0}));
    EXPECT_FALSE(agree(here, {2026, 12, 31, 22, 59, 59}));
    EXPECT_FALSE(agree(here, {2026, 12, 30, 23, 59, 59}));
    EXPECT_FALSE(agree(here, {2027, 1, 1, 0, 0, 59}));
}

TEST(LocationClock, SecondsAndClocksAreInverse) {
    for (const MachineTime& time : {MachineTime{1970, 1, 1, 0, 0, 0}, MachineTime{1969, 12, 31, 23, 59, 59},
                                    MachineTime{2000, 2, 29, 12, 0, 1}, MachineTime{2100, 3, 1, 0, 0, 0},
                                    MachineTime{2026, 12, 31, 23, 59, 59}})
        EXPECT_EQ(text(clock_at(seconds_of(time))), text(time));
    EXPECT_EQ(day_count_of({2026, 11, 22, 23, 59, 59}), platform_day_count(2026, 11, 22));
}

TEST(MachineClock, AFixedTimeHasTheZoneThatIsGiven) {
    set_machine_time({2026, 11, 22, 1, 30, 0});
    EXPECT_EQ(text(universal_time()), "2026-11-22 01:30:00");
    set_machine_zone(3);
    EXPECT_EQ(text(machine_time()), "2026-11-22 01:30:00");
    EXPECT_EQ(text(universal_time()), "2026-11-21 22:30:00");
    use_machine_clock();
    set_machine_time({2026, 11, 22, 1, 30, 0});
    EXPECT_EQ(text(universal_time()), "2026-11-22 01:30:00");
    use_machine_clock();
}

TEST(ZoneText, IsHoursAndMinutes) {
    EXPECT_EQ(zone_text(3), "UTC+3");
    EXPECT_EQ(zone_text(5.75), "UTC+5:45");
    EXPECT_EQ(zone_text(-9.5), "UTC-9:30");
    EXPECT_EQ(zone_text(0), "UTC+0");
    EXPECT_EQ(zone_text(-0.05), "UTC-0:03");
    EXPECT_EQ(zone_text(-0.001), "UTC+0");
}

} // namespace
} // namespace halvane
