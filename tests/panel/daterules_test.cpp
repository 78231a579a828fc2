// SPDX-License-Identifier: MIT
#include "desktop/daterules.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

CalculationDate period(DateNumbers from, DateNumbers to) {
    CalculationDate record;
    record.system_date = false;
    record.period = true;
    record.start = record.from = from;
    record.end = record.to = to;
    return record;
}

TEST(DateRules, APeriodIsShownBeforeOneDayAndOneDayBeforeTheSystemsDate) {
    CalculationDate record;
    record.system_date = true;
    EXPECT_EQ(date_panel_of(record).choice, DateChoice::system_date);
    record.one_day = true;
    EXPECT_EQ(date_panel_of(record).choice, DateChoice::one_day);
    record.period = true;
    EXPECT_EQ(date_panel_of(record).choice, DateChoice::period);
}

TEST(DateRules, ARecordWithoutAnyOptionShowsTheSystemsDate) {
    CalculationDate record;
    record.system_date = false;
    EXPECT_EQ(date_panel_of(record).choice, DateChoice::system_date);
}

TEST(DateRules, TheBoxesComeFromTheirOwnFields) {
    CalculationDate record;
    record.start = {1, 1, 1};
    record.end = {2, 2, 2};
    record.from = {2023, 3, 4};
    record.to = {2024, 5, 6};
    record.one = {2025, 7, 8};
    const DatePanel panel = date_panel_of(record);
    EXPECT_EQ(panel.from, (DateBoxes{"2023", "3", "4"}));
    EXPECT_EQ(panel.to, (DateBoxes{"2024", "5", "6"}));
    EXPECT_EQ(panel.one, (DateBoxes{"2025", "7", "8"}));
}

TEST(DateRules, OneDayIsStartAndEnd) {
    const DatePanel panel{DateChoice::one_day, {"2023", "3", "4"}, {"2024", "5", "6"}, {"2025", "7", "8"}};
    const CalculationDate record = calculation_date_of(panel);
    EXPECT_EQ(record.start, (DateNumbers{2025, 7, 8}));
    EXPECT_EQ(record.end, (DateNumbers{2025, 7, 8}));
    EXPECT_EQ(record.from, (DateNumbers{2023, 3, 4}));
    EXPECT_EQ(record.to, (DateNumbers{2024, 5, 6}));
}

TEST(DateRules, TheBoxesOfThePeriodAreStartAndEndAlsoForTheSystemsDate) {
    for (const DateChoice choice : {DateChoice::system_date, DateChoice::period}) {
        const DatePanel panel{choice, {"2023", "3", "4"}, {"2024", "5", "6"}, {"2025", "7", "8"}};
        const CalculationDate record = calculation_date_of(panel);
        EXPECT_EQ(record.start, (DateNumbers{2023, 3, 4}));
        EXPECT_EQ(record.end, (DateNumbers{2024, 5, 6}));
        EXPECT_EQ(record.one, (DateNumbers{2025, 7, 8}));
    }
}

TEST(DateRules, OnlyAnEndBeforeTheStartOfAPeriodCounts) {
    EXPECT_TRUE(ends_before_start(period({2024, 6, 2}, {2024, 6, 1})));
    EXPECT_TRUE(ends_before_start(period({2024, 1, 1}, {2023, 12, 31})));
    EXPECT_FALSE(ends_before_start(period({2024, 6, 1}, {2024, 6, 1})));
    EXPECT_FALSE(ends_before_start(period({2023, 12, 31}, {2024, 1, 1})));
    CalculationDate day = period({2024, 6, 2}, {2024, 6, 1});
    day.period = false;
    EXPECT_FALSE(ends_before_start(day));
}

TEST(DateRules, ADayPastItsMonthsEndMovesIntoTheNextMonthForTheTest) {
    EXPECT_FALSE(ends_before_start(period({2023, 2, 31}, {2023, 3, 3})));
    EXPECT_TRUE(ends_before_start(period({2023, 2, 31}, {2023, 3, 2})));
    EXPECT_FALSE(ends_before_start(period({2024, 2, 31}, {2024, 3, 2})));
    EXPECT_TRUE(ends_before_start(period({2024, 2, 31}, {2024, 3, 1})));
}

} // namespace
} // namespace halvane
