// SPDX-License-Identifier: MIT
#include "calendar/modday.h"
#include "hijri/hijriconverter.h"
#include "routines/seriesloader.h"
#include "tests/support/programfolder.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

HijriSettings rule_of(const char* key) {
    HijriSettings settings;
    settings.rule = hijri_rule(key);
    return settings;
}

TheoryPointer delivered_theory() {
    const TemporaryProgramFolder folder;
    load_series();
    return loaded_theory();
}

void expect_day(const HijriDayAnswer& answer, const DateNumbers& civil, const HijriDate& hijri) {
    ASSERT_TRUE(answer.day) << answer.refused.english;
    EXPECT_EQ(answer.day->civil, civil);
    EXPECT_EQ(answer.day->hijri.year, hijri.year);
    EXPECT_EQ(answer.day->hijri.month, hijri.month);
    EXPECT_EQ(answer.day->hijri.day, hijri.day);
    const char* const names[]{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    EXPECT_EQ(weekday_name(answer.day->day_number, Language::english), names[answer.day->weekday]);
}

// Civil epoch: 1 Muharram 1 is 16 July 622 (Julian calendar), a Friday. 29 Thul Hejjah ends a common year;
// the years 2, 5, 7, 10, 13, 16, 18, 21, 24, 26, 29 of 30 are leap years, so 1447 (year 7) has a 30th and
// 1448 has none. 1 Muharram 1448 is 17 June 2026.
TEST(HijriConverter, OfTabularDatesBothWays) {
    const HijriSettings tabular = rule_of("tabular");
    for (const auto& [civil, hijri] : {std::pair{DateNumbers{622, 7, 16}, HijriDate{1, 1, 1}},
                                       {{2026, 6, 17}, {1448, 1, 1}},
                                       {{2026, 6, 16}, {1447, 12, 30}},
                                       {{2026, 2, 18}, {1447, 9, 1}}}) {
        expect_day(day_of_civil(nullptr, tabular, civil), civil, hijri);
        expect_day(day_of_hijri(nullptr, tabular, hijri), civil, hijri);
    }
}

TEST(HijriConverter, RefusesADayThatTheMonthHasNot) {
    const HijriSettings tabular = rule_of("tabular");
    EXPECT_EQ(day_of_hijri(nullptr, tabular, {1448, 12, 30}).refused.english,
              "Thul Hejjah 1448 has 29 days.");
    EXPECT_EQ(day_of_hijri(nullptr, tabular, {1448, 1, 31}).refused.english, "Muharram 1448 has 30 days.");
    EXPECT_EQ(day_of_hijri(nullptr, tabular, {1448, 1, 0}).refused.english, "Muharram 1448 has 30 days.");
    EXPECT_EQ(day_of_hijri(nullptr, tabular, {1448, 13, 1}).refused.english,
              "A year has the months 1 to 12.");
    EXPECT_FALSE(day_of_hijri(nullptr, tabular, {1448, 1.5, 1}).day);
}

TEST(HijriConverter, RefusesWhatLiesBeyondTheYears) {
    const HijriSettings tabular = rule_of("tabular");
    const char* const words = "Months are told of the Hijri years 1 to 9600.";
    for (const double year : {0.0, -1.0, 9601.0, 1e9})
        EXPECT_EQ(day_of_hijri(nullptr, tabular, {year, 1, 1}).refused.english, words) << year;
    EXPECT_EQ(day_of_civil(nullptr, tabular, {622, 7, 15}).refused.english, words);
    EXPECT_EQ(day_of_civil(nullptr, tabular, {-500, 1, 1}).refused.english, words);
    EXPECT_EQ(day_of_civil(nullptr, tabular, {9999, 1, 1}).refused.english, words);
    EXPECT_EQ(day_of_civil(nullptr, tabular, {1582, 10, 10}).refused.english,
              "The calendar has no such date.");
    EXPECT_FALSE(day_of_civil(nullptr, tabular, {20000, 1, 1}).refused.english.empty());
    const HijriDayAnswer last = day_of_hijri(nullptr, tabular, {9600, 12, 29});
    ASSERT_TRUE(last.day);
    EXPECT_EQ(day_of_civil(nullptr, tabular, last.day->civil).day.value().hijri.day, 29);
}

// Announced a day after the tabular 1 Ramadan 1447: 18 February is then 30 Sha'ban.
TEST(HijriConverter, TakesAnnouncedMonths) {
    HijriSettings settings = rule_of("tabular");
    const double first_day = day_of_civil(nullptr, settings, {2026, 2, 19}).day.value().day_number;
    settings.announced.push_back({HijriMonthNumber::of(1447, 9), first_day, "a"});
    expect_day(day_of_civil(nullptr, settings, {2026, 2, 18}), {2026, 2, 18}, {1447, 8, 30});
    expect_day(day_of_hijri(nullptr, settings, {1447, 9, 1}), {2026, 2, 19}, {1447, 9, 1});
    EXPECT_TRUE(day_of_hijri(nullptr, settings, {1447, 9, 1}).day.value().month.has(MonthNote::announced));
}

// The published Umm al-Qura calendar: 1 Muharram 1445 on 19 July 2023, 1 Ramadan 1445 on 11 March 2024
// (R. H. van Gent, The Umm al-Qura calendar of Saudi Arabia).
TEST(HijriConverter, OfUmmAlQuraDatesBothWays) {
    const TheoryPointer theory = delivered_theory();
    const HijriSettings rule = rule_of("umm-al-qura");
    expect_day(day_of_civil(theory, rule, {2023, 7, 19}), {2023, 7, 19}, {1445, 1, 1});
    expect_day(day_of_hijri(theory, rule, {1445, 9, 1}), {2024, 3, 11}, {1445, 9, 1});
}

TEST(HijriConverter, LosesNoDayOfAYear) {
    const TheoryPointer theory = delivered_theory();
    const HijriSettings rule = rule_of("umm-al-qura");
    double expected = day_of_hijri(theory, rule, {1446, 1, 1}).day.value().day_number;
    for (int month = 1; month <= 12; ++month)
        for (int day = 1; day <= 30; ++day) {
            const HijriDate date{1446, static_cast<double>(month), static_cast<double>(day)};
            const HijriDayAnswer answer = day_of_hijri(theory, rule, date);
            if (!answer.day) {
                EXPECT_EQ(day, 30);
                continue;
            }
            EXPECT_EQ(answer.day->day_number, expected++);
        }
    EXPECT_EQ(day_of_hijri(theory, rule, {1447, 1, 1}).day.value().day_number, expected);
}

} // namespace
} // namespace halvane
