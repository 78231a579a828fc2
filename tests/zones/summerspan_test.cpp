// SPDX-License-Identifier: MIT
// The dates are those of the rules in the files of tzdata 2025b (africa, asia, australasia, europe,
// northamerica, southamerica), counted on a calendar.
#include "zones/summertime.h"

#include "calendar/modsummer.h"

#include <gtest/gtest.h>
#include <optional>

namespace halvane {
namespace {

SummerTime summer_time(const char* zone, double standard_hours, int year) {
    return summer_time_of(TimeZone(zone), standard_hours, year);
}

std::optional<SummerSpan> span_in(const char* zone, double standard_hours, int year) {
    const SummerTime found = summer_time(zone, standard_hours, year);
    const SummerSpan* there = std::get_if<SummerSpan>(&found);
    return there ? std::optional(*there) : std::nullopt;
}

SummerSpan span(double year, double month, double day, double last_month, double last_day) {
    return {{year, month, day}, {year, last_month, last_day}};
}

void expect_refused(const SummerTime& found, const std::string& english, const std::string& arabic) {
    const Refusal* refusal = std::get_if<Refusal>(&found);
    ASSERT_NE(refusal, nullptr);
    EXPECT_STREQ(refusal->title.english, "Summer Time");
    EXPECT_STREQ(refusal->title.arabic, "التوقيت الصيفي");
    EXPECT_EQ(refusal->text.english, english);
    EXPECT_EQ(refusal->text.arabic, arabic);
}

TEST(SummerTime, RunsFromTheFirstNoonAheadToTheLast) {
    // Rule EU: last Sunday of March and of October, 1:00u
    EXPECT_EQ(span_in("Europe/London", 0, 2025), span(2025, 3, 30, 10, 25));
    EXPECT_EQ(span_in("Europe/Berlin", 1, 2024), span(2024, 3, 31, 10, 26));
    // Rule US: second Sunday of March to the first one of November, 2:00
    EXPECT_EQ(span_in("America/New_York", -5, 2025), span(2025, 3, 9, 11, 1));
    EXPECT_EQ(span_in("America/St_Johns", -3.5, 2025), span(2025, 3, 9, 11, 1));
}

TEST(SummerTime, KeepsTheDayAtWhoseEndTheClockGoesBack) {
    // Rule Egypt: last Friday of April 0:00 to the last Thursday of October 24:00
    EXPECT_EQ(span_in("Africa/Cairo", 2, 2025), span(2025, 4, 25, 10, 30));
    // Rule Lebanon: last Sunday of March 0:00 to the last one of October 0:00
    EXPECT_EQ(span_in("Asia/Beirut", 2, 2025), span(2025, 3, 30, 10, 25));
}

TEST(SummerTime, OfTheSouthRunsOverTheNewYear) {
    // Rule AN: first Sunday of October to the first one of April, 2:00s
    EXPECT_EQ(span_in("Australia/Sydney", 10, 2025), span(2025, 10, 5, 4, 5));
    // Rule Chile: Sunday on or after September 2, 4:00u, to that on or after April 2, 3:00u
    EXPECT_EQ(span_in("America/Santiago", -4, 2025), span(2025, 9, 7, 4, 5));
}

TEST(SummerTime, LooksAtTheClockNotAtItsName) {
    // Zone Europe/Dublin 1:00 Eire IST/GMT: the change of law is the winter.
    EXPECT_EQ(span_in("Europe/Dublin", 0, 2025), span(2025, 3, 30, 10, 25));
    // Rule Morocco 2025 Feb 23 3:00 -1:00 and Apr 6 2:00 0, on a standard time of UTC+1
    EXPECT_EQ(span_in("Africa/Casablanca", 0, 2025), span(2025, 4, 6, 2, 22));
    // Zone Asia/Almaty 6:00 +06 2024 Mar 1 0:00, then 5:00
    EXPECT_EQ(span_in("Asia/Almaty", 5, 2024), span(2024, 1, 1, 2, 29));
}

TEST(SummerTime, EndsOrBeginsWithAYearOfItsOwn) {
    // Zone America/Asuncion: -4:00 Para until 2024 Oct 15, then -3:00; summer time had begun on October 6.
    EXPECT_EQ(span_in("America/Asuncion", -4, 2024), span(2024, 10, 6, 3, 23));
    // Rule Iran 2021-2022: Mar 21 24:00 to Sep 21 24:00; none after it
    EXPECT_EQ(span_in("Asia/Tehran", 3.5, 2022), span(2022, 3, 22, 9, 21));
}

TEST(SummerTime, IsNoneWhereTheClockNeverChanges) {
    EXPECT_TRUE(std::holds_alternative<NoSummerTime>(summer_time("Asia/Riyadh", 3, 2026)));
    EXPECT_TRUE(std::holds_alternative<NoSummerTime>(summer_time("Asia/Tehran", 3.5, 2025)));
    EXPECT_TRUE(std::holds_alternative<NoSummerTime>(summer_time("Asia/Kathmandu", 5.75, 2050)));
}

TEST(SummerTime, IsRefusedForAClockThatIsNotAnHourAhead) {
    // Zone Australia/Lord_Howe 10:30 LH: half an hour
    expect_refused(
        summer_time("Australia/Lord_Howe", 10.5, 2025),
        "In 2025 the clock of Australia/Lord_Howe shows UTC+11 on some days. The preferences can only tell "
        "of "
        "UTC+10:30, the location's time zone, and of one hour ahead of it.",
        "في سنة 2025 تكون ساعة Australia/Lord_Howe في بعض الأيام UTC+11. لا تتسع الخيارات إلا للمنطقة "
        "الزمنية للموقع UTC+10:30 و لساعة واحدة قبلها.");
    expect_refused(
        summer_time("Africa/Casablanca", 1, 2025),
        "In 2025 the clock of Africa/Casablanca shows UTC+0 on some days. The preferences can only tell of "
        "UTC+1, the location's time zone, and of one hour ahead of it.",
        "في سنة 2025 تكون ساعة Africa/Casablanca في بعض الأيام UTC+0. لا تتسع الخيارات إلا للمنطقة الزمنية "
        "للموقع UTC+1 و لساعة واحدة قبلها.");
}

TEST(SummerTime, IsRefusedForMoreThanOneSpan) {
    // Rule Egypt 2014: May 15 24:00, Jun 26 24:00, Jul 31 24:00, Sep lastThu 24:00
    expect_refused(
        summer_time("Africa/Cairo", 2, 2014),
        "In 2014 the clock of Africa/Cairo has summer time more than once. The preferences can keep one span "
        "only.",
        "في سنة 2014 يتكرر التوقيت الصيفي في Africa/Cairo. لا تتسع الخيارات إلا لفترة واحدة.");
}

TEST(SummerTime, IsRefusedForAClockThatIsAheadAllYear) {
    // Zone Asia/Amman: 3:00 since 2022 Oct 28
    expect_refused(
        summer_time("Asia/Amman", 2, 2024),
        "In 2024 the clock of Asia/Amman is one hour ahead of UTC+2, the location's time zone, on every day. "
        "Please look at the time zone in the Location menu.",
        "في سنة 2024 تتقدم ساعة Asia/Amman ساعة واحدة على المنطقة الزمنية للموقع UTC+2 في كل الأيام. يرجى "
        "مراجعة المنطقة الزمنية في قائمة الموقع.");
}

TEST(SummerTime, AsPreferencesGivesTheClockOfTheZoneOnEveryDay) {
    for (const auto& [name, hours] : {std::pair("Europe/London", 0.0),
                                      {"Australia/Sydney", 10.0},
                                      {"Africa/Cairo", 2.0},
                                      {"America/Santiago", -4.0},
                                      {"Asia/Beirut", 2.0},
                                      {"Pacific/Auckland", 12.0}}) {
        const TimeZone zone(name);
        for (int year = 2024; year <= 2060; ++year) {
            const SummerTime found = summer_time_of(zone, hours, year);
            const SummerSpan* span = std::get_if<SummerSpan>(&found);
            ASSERT_NE(span, nullptr) << name << ' ' << year;
            Preferences preferences;
            preferences.summer_time = "1";
            preferences.summer_from_month = span->first.month;
            preferences.summer_from_day = span->first.day;
            preferences.summer_to_month = span->last.month;
            preferences.summer_to_day = span->last.day;
            const int leap_days = (year - 2021) / 4;
            constexpr double jd_2024 = 2460310.5;
            const double start = jd_2024 + 365 * (year - 2024) + leap_days;
            for (double jd = start; jd < start + 365; ++jd)
                EXPECT_EQ(3600 * (hours + summer_hours_of(preferences, jd)), zone.offset_on(jd))
                    << name << ' ' << jd;
        }
    }
}

} // namespace
} // namespace halvane
