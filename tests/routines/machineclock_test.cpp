// SPDX-License-Identifier: MIT
#include "report/reportrun.h"
#include "routines/machineclock.h"

#include <ctime>
#include <gtest/gtest.h>

namespace halvane {
namespace {

TEST(MachineClock, CanBeSetAndGivenBack) {
    set_machine_time({2031, 7, 8, 9, 10, 11});
    EXPECT_EQ(machine_time().year, 2031);
    EXPECT_EQ(machine_time().second, 11);
    use_machine_clock();
    const std::time_t before = std::time(nullptr);
    MachineTime now = machine_time();
    std::tm fields{};
    fields.tm_year = now.year - 1900;
    fields.tm_mon = now.month - 1;
    fields.tm_mday = now.day;
    fields.tm_hour = now.hour;
    fields.tm_min = now.minute;
    fields.tm_sec = now.second;
    fields.tm_isdst = -1;
    EXPECT_NEAR(std::difftime(std::mktime(&fields), before), 0, 2);
}

TEST(CalculationPeriod, IsTodayForBothEndsWithTheSystemsDate) {
    set_machine_time({2024, 6, 21, 12, 0, 0});
    CalculationDate date;
    date.system_date = true;
    date.start = {2000, 1, 1};
    date.end = {2001, 1, 1};
    const CalculationPeriod period = calculation_period(date, machine_time());
    use_machine_clock();
    EXPECT_EQ(period.start, (DateNumbers{2024, 6, 21}));
    EXPECT_EQ(period.end, (DateNumbers{2024, 6, 21}));
}

TEST(CalculationPeriod, IsTheStoredOneOtherwise) {
    CalculationDate date;
    date.system_date = false;
    date.one_day = true;
    date.start = {2026, 2, 31};
    date.end = {2026, 3, 4};
    const CalculationPeriod period = calculation_period(date, machine_time());
    EXPECT_EQ(period.start, date.start);
    EXPECT_EQ(period.end, date.end);
}

} // namespace
} // namespace halvane
