// SPDX-License-Identifier: MIT
#include "hijri/hijriyears.h"
#include "hijri/monthsheet.h"
#include "tests/hijri/monthsofrule.h"
#include "timetable/timetableplaces.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace halvane {
namespace {

class MonthSheets : public MonthsOfRule {
protected:
    static TimetablePlace place_ahead(double hours) {
        return given_place({"Somewhere", 10, 20, 0, "", hours});
    }

    static MonthSheet sheet_of(const char* rule, int year, int month, const TimetablePlace& place) {
        NoProgress progress;
        return month_sheet(loaded_theory(), settings_of(rule), HijriMonthNumber::of(year, month), place,
                           progress)
            .value();
    }

    /// The dates of the phases of a month.
    static std::map<Phase, std::string> phases_of(const MonthSheet& sheet) {
        std::map<Phase, std::string> phases;
        for (const MonthDay& day : sheet.days)
            if (day.phase)
                phases[*day.phase] = iso_date(day.day_number);
        return phases;
    }
};

// Meeus, Astronomical Algorithms, 2nd ed., example 49.b: last quarter on 2044 January 21 at 23 h 48 min
// dynamical time, a minute and a half before midnight less in Universal Time.
TEST_F(MonthSheets, GivePhasesTheDateOfThePlace) {
    const HijriDate date = hijri_of_civil(2044, 1, 21);
    const int year = static_cast<int>(date.year);
    const int month = static_cast<int>(date.month);
    const MonthSheet greenwich = sheet_of("tabular", year, month, place_ahead(0));
    EXPECT_EQ(phases_of(greenwich).at(Phase::last_quarter), "2044-01-21");
    const MonthSheet amman = sheet_of("tabular", year, month, place_ahead(3));
    EXPECT_EQ(phases_of(amman).at(Phase::last_quarter), "2044-01-22");
}

// 1 Ramadan 1447 by Umm al-Qura is Wednesday 18 February 2026 (the published calendar).
TEST_F(MonthSheets, HaveEveryDayOfTheMonth) {
    const MonthSheet sheet = sheet_of("umm-al-qura", 1447, 9, place_ahead(3));
    ASSERT_EQ(sheet.days.size(), 30U);
    EXPECT_EQ(iso_date(sheet.days.front().day_number), "2026-02-18");
    EXPECT_EQ(sheet.days.front().weekday, 3);
    for (std::size_t i = 0; i < sheet.days.size(); ++i) {
        const MonthDay& day = sheet.days[i];
        EXPECT_EQ(day.hijri.day, static_cast<double>(i + 1));
        EXPECT_EQ(day.day_number, sheet.days.front().day_number + static_cast<double>(i));
        EXPECT_EQ(day.weekday, static_cast<int>((3 + i) % 7));
        EXPECT_EQ(day.is_white_day(), i >= 12 && i <= 14) << i;
    }
}

TEST_F(MonthSheets, OfAYearFollowOneAnother) {
    NoProgress progress;
    const std::vector<MonthSheet> sheets =
        month_sheets(loaded_theory(), settings_of("umm-al-qura"), HijriMonthNumber::of(1446, 1),
                     HijriMonthNumber::of(1446, 12), place_ahead(3), progress)
            .value();
    ASSERT_EQ(sheets.size(), 12U);
    int phases = 0;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        EXPECT_EQ(sheets[i].month.number.month(), static_cast<int>(i + 1));
        const double next = sheets[i].days.back().day_number + 1;
        EXPECT_TRUE(i + 1 == sheets.size() || sheets[i + 1].days.front().day_number == next) << i;
        phases += static_cast<int>(phases_of(sheets[i]).size());
    }
    EXPECT_NEAR(phases, 48, 1) << "four a lunation";
}

TEST_F(MonthSheets, EndWithACancel) {
    struct Cancel final : Progress {
        void percent(double /*value*/) override {}
        bool yield() override { return false; }
    } cancel;
    EXPECT_FALSE(month_sheets(loaded_theory(), settings_of("seen-anywhere"), HijriMonthNumber::of(1440, 1),
                              HijriMonthNumber::of(1449, 12), place_ahead(0), cancel));
    EXPECT_FALSE(hijri_years(loaded_theory(), {settings_of("tabular"), settings_of("seen-anywhere")}, 1440,
                             1449, cancel));
}

TEST_F(MonthSheets, OfTwoRulesDifferByTheirFirstDays) {
    NoProgress progress;
    const HijriYears years =
        hijri_years(loaded_theory(), {settings_of("tabular"), settings_of("tabular-astronomical")}, 1447,
                    1448, progress)
            .value();
    ASSERT_EQ(years.months(), 24U);
    for (std::size_t month = 0; month < years.months(); ++month) {
        EXPECT_EQ(years.difference(0, month), 0);
        EXPECT_EQ(years.difference(1, month), -1) << "its epoch is a day before";
    }
}

} // namespace
} // namespace halvane
