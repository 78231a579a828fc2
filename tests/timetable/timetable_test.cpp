// SPDX-License-Identifier: MIT
#include "prayer/prayerday.h"
#include "prayer/prayertexts.h"
#include "stored/loclist.h"
#include "tests/timetable/otherreckoning.h"
#include "tests/timetable/timetables.h"
#include "timetable/cells.h"
#include "timetable/timetablefiles.h"
#include "timetable/timetableplaces.h"

#include <array>

namespace halvane {
namespace {

class Timetables : public TimetableTest {
protected:
    static Location listed(const char* name) {
        const std::optional<Location> location = find_location(name);
        EXPECT_TRUE(location) << name;
        return location.value_or(Location());
    }
};

/// The text of the report for a time of a timetable.
std::string report_text(const RowTime& time, bool seconds) {
    return time.clock ? clock_text(*time.clock, seconds) : text_of(time.missing);
}

TEST_F(Timetables, OfThePreferencesHaveTheReportsTimes) {
    for (const char* precision : {"1", "0"})
        for (const char* name : twenty_places) {
            Preferences preferences;
            preferences.clock_precision = precision;
            preferences.summer_time = "1";
            preferences.subtract_fajer = 2;
            preferences.add_dhohur = 5;
            preferences.add_maghreb = 3;
            const Location location = listed(name);
            const Timetable timetable = timetable_of({location, std::nullopt, preferences, std::nullopt},
                                                     neutral_profile(preferences), year_span(2026).span);
            ASSERT_EQ(timetable.rows.size(), 365U);
            Ephemeris ephemeris(loaded_theory());
            const PrayerSettings settings = prayer_settings(preferences, location, DayMode::report);
            for (const TimetableRow& row : timetable.rows) {
                const PrayerTimes report =
                    prayer_day(ephemeris, settings, row.jd, summer_hours_of(preferences, row.jd)).times;
                for (const DayTime time : day_times)
                    ASSERT_EQ(report_text(row.times[time], timetable.to_second),
                              text_of(report.*six_times.at(static_cast<std::size_t>(time)),
                                      precision_of(preferences)))
                        << name << ", " << row.date.day << "/" << row.date.month;
            }
        }
}

TEST_F(Timetables, ByAZonesRulesAgreeWithTheReportWhereTheStoredClockDoes) {
    const Location amman = listed("Amman");
    Preferences preferences;
    preferences.summer_time = "0";
    const Timetable stored = timetable_of({amman, std::nullopt, preferences, std::nullopt},
                                          neutral_profile(preferences), year_span(2026).span);
    const Timetable zoned = timetable_of({amman, TimeZone("Asia/Amman"), preferences, std::nullopt},
                                         neutral_profile(preferences), year_span(2026).span);
    EXPECT_EQ(csv_of(stored, PageSettings()), csv_of(zoned, PageSettings()));
}

/// The report takes the declination of the Aser's noon shadow at 12 h of the clock, a night's search at the
/// transit. In Istanbul they are 1.3 h apart in January: the declination moves by 0.8', the noon's altitude
/// with it, and the low winter Sun stands at the longer shadow's altitude 4 s later.
TEST_F(Timetables, ByTheirOwnNightsAgreeWithTheReport) {
    for (const char* name : {"Makkah", "Jakarta", "Sydney", "Istanbul"}) {
        Preferences preferences;
        preferences.summer_time = "0";
        preferences.clock_precision = "0";
        Profile own;
        own.isha_angle = 18;
        own.seconds = true;
        const TimetablePlace place{listed(name), std::nullopt, preferences, std::nullopt};
        const Timetable report = timetable_of(place, neutral_profile(preferences), year_span(2026).span);
        const Timetable nights = timetable_of(place, own, year_span(2026).span);
        for (std::size_t i = 0; i < report.rows.size(); ++i)
            for (const DayTime time : day_times)
                ASSERT_NEAR(seconds_of(report.rows[i].times[time]), seconds_of(nights.rows[i].times[time]),
                            time == DayTime::aser ? 5 : 1)
                    << name << ", day " << i << ", time " << static_cast<int>(time);
    }
}

TEST_F(Timetables, FollowTheClockOfTheNightOnWhichItChanges) {
    // Europe/London: on 29 March 2026 the clock goes from 01:00 UT+0 to 02:00 UT+1.
    Profile profile;
    const Timetable march = timetable_of(zoned_place(listed("London"), "Europe/London"), profile,
                                         dates_span({2026, 3, 28}, {2026, 3, 30}).span);
    ASSERT_EQ(march.rows.size(), 3U);
    EXPECT_FALSE(march.rows[0].clock_changes);
    EXPECT_TRUE(march.rows[1].clock_changes);
    EXPECT_EQ(march.rows[0].times[DayTime::fajer].clock->offset, 0);
    EXPECT_EQ(march.rows[1].times[DayTime::fajer].clock->offset, 3600);
    EXPECT_EQ(march.rows[1].midnight.clock->offset, 3600);
    // A last third that begins before the change is on the old clock, Fajer behind it on the new one.
    EXPECT_EQ(march.rows[0].last_third.clock->day, 1);
    EXPECT_EQ(march.rows[0].midnight.clock->offset, 0);
    // The instants go on evenly: sunset comes 1 to 3 minutes later from day to day.
    for (std::size_t i = 1; i < march.rows.size(); ++i) {
        const auto step = utc_seconds(march.rows[i], *march.rows[i].times[DayTime::maghreb].clock) -
                          utc_seconds(march.rows[i - 1], *march.rows[i - 1].times[DayTime::maghreb].clock);
        EXPECT_GE(step, 86400 + 60);
        EXPECT_LE(step, 86400 + 180);
    }
}

TEST_F(Timetables, TellDaysOnWhichTheStoredClockDiffersFromTheZone) {
    Preferences preferences;
    preferences.summer_time = "0";
    const TimetablePlace place{listed("London"), std::nullopt, preferences, TimeZone("Europe/London")};
    const Timetable year = timetable_of(place, neutral_profile(preferences), year_span(2026).span);
    // Summer time holds at the noons of 29 March to 24 October 2026.
    EXPECT_EQ(year.zone_difference.days, 210);
    EXPECT_EQ(year.zone_difference.first, dates_span({2026, 3, 29}, {2026, 3, 29}).span.first);
    EXPECT_EQ(year.zone_difference.last, dates_span({2026, 10, 24}, {2026, 10, 24}).span.first);
}

TEST_F(Timetables, GiveIshaItsIntervalAndInRamadanTheOther) {
    Profile profile = authority_profile(*find_authority("umm-al-qura"));
    profile.seconds = true;
    const TimetablePlace makkah = fixed_place(listed("Makkah"));
    // 18 February 2026 is 1 Ramadan 1447 of the tabular calendar, 19 March its 30th.
    for (const auto& [date, minutes] :
         {std::pair{DateNumbers{2026, 2, 17}, 90}, std::pair{DateNumbers{2026, 2, 18}, 120},
          std::pair{DateNumbers{2026, 3, 19}, 120}, std::pair{DateNumbers{2026, 3, 20}, 90}}) {
        const TimetableRow row = row_of(makkah, profile, date);
        EXPECT_EQ(row.hijri.month == 9, minutes == 120);
        EXPECT_EQ(seconds_of(row.times[DayTime::isha]) - seconds_of(row.times[DayTime::maghreb]),
                  minutes * 60);
    }
}

// By the other reckoning Sha'ban 1447 begins on 19 January 2026, Ramadan on 18 February, Shawwal on 19 March.
TEST_F(Timetables, TellTheDatesOfAnotherReckoning) {
    Profile profile = authority_profile(*find_authority("umm-al-qura"));
    const TimetablePlace makkah = fixed_place(listed("Makkah"));
    const DaySpan span = dates_span(DateNumbers{2026, 1, 18}, DateNumbers{2026, 3, 20}).span;
    NoProgress progress;
    const Timetable timetable =
        make_timetable(loaded_theory(), {makkah, profile, span, other_reckoning()}, progress).value();
    const auto expect_date = [&](double day, double month, double hijri_day, int minutes) {
        const TimetableRow& row = timetable.rows.at(static_cast<std::size_t>(day));
        EXPECT_EQ(row.hijri.month, month) << day;
        EXPECT_EQ(row.hijri.day, hijri_day) << day;
        EXPECT_EQ(seconds_of(row.times[DayTime::isha]) - seconds_of(row.times[DayTime::maghreb]),
                  minutes * 60)
            << day;
    };
    expect_date(0, 7, 29, 90);
    expect_date(1, 8, 1, 90);
    expect_date(30, 8, 30, 90);
    expect_date(31, 9, 1, 120);
    expect_date(59, 9, 29, 120);
    expect_date(60, 10, 1, 90);
}

TEST_F(Timetables, BeforeTheFirstHijriYearAreOfTheTabularCalendar) {
    NoProgress progress;
    const TimetablePlace makkah = fixed_place(listed("Makkah"));
    const DaySpan span = dates_span(DateNumbers{622, 7, 15}, DateNumbers{622, 7, 17}).span;
    const Timetable timetable =
        make_timetable(loaded_theory(), {makkah, Profile(), span, other_reckoning()}, progress).value();
    EXPECT_EQ(timetable.settings.hijri, nullptr);
    EXPECT_EQ(timetable.rows[1].hijri.day, 1);
    EXPECT_EQ(timetable.rows[1].hijri.year, 1);
}

TEST_F(Timetables, RoundEachTimeAsTheProfileWants) {
    const TimetablePlace place = fixed_place(listed("Singapore"));
    Profile exact;
    exact.seconds = true;
    Profile rounded;
    for (const Rounding rounding : {Rounding::nearest, Rounding::up, Rounding::down}) {
        rounded.rounding[DayTime::fajer] = rounding;
        for (int day = 1; day <= 28; ++day) {
            const DateNumbers date{2026, 2, static_cast<double>(day)};
            const int second = seconds_of(row_of(place, exact, date).times[DayTime::fajer]);
            const int minute = seconds_of(row_of(place, rounded, date).times[DayTime::fajer]);
            EXPECT_EQ(minute % 60, 0);
            if (second % 60 == 0 || second % 60 == 30)
                continue; // the second is rounded itself
            const int below = second / 60 * 60;
            EXPECT_EQ(minute,
                      rounding == Rounding::down || (rounding == Rounding::nearest && second % 60 < 30)
                          ? below
                          : below + 60);
        }
    }
}

TEST_F(Timetables, GiveTheNightItsMiddleAndLastThird) {
    Profile profile;
    profile.seconds = true;
    const TimetablePlace place = fixed_place(listed("Makkah"));
    for (const bool until_fajer : {false, true}) {
        profile.night_until_fajer = until_fajer;
        const TimetableRow row = row_of(place, profile, {2026, 5, 5});
        const TimetableRow next = row_of(place, profile, {2026, 5, 6});
        const int begin = seconds_of(row.times[DayTime::maghreb]);
        const int end = 86400 + seconds_of(next.times[until_fajer ? DayTime::fajer : DayTime::shuroq]);
        EXPECT_NEAR(seconds_of(row.midnight), begin + (end - begin) / 2.0, 1);
        EXPECT_NEAR(seconds_of(row.last_third), begin + (end - begin) * 2 / 3.0, 1);
    }
}

TEST_F(Timetables, GiveImsakIqamahAndJumuah) {
    Profile profile;
    profile.iqamah[DayTime::fajer] = {Iqamah::Kind::after, 20, false};
    profile.iqamah[DayTime::dhohur] = {Iqamah::Kind::fixed, 13 * 60 + 30, false};
    profile.iqamah[DayTime::maghreb] = {Iqamah::Kind::after, 3, true};
    profile.jumuah = {12 * 60 + 15, 13 * 60};
    const TimetablePlace place = fixed_place(listed("Makkah"));
    const TimetableRow friday = row_of(place, profile, {2026, 2, 20});
    EXPECT_TRUE(friday.is_friday());
    EXPECT_EQ(seconds_of(friday.imsak), seconds_of(friday.times[DayTime::fajer]) - 600);
    EXPECT_EQ(seconds_of(friday.iqamah[DayTime::fajer]), seconds_of(friday.times[DayTime::fajer]) + 1200);
    EXPECT_EQ(seconds_of(friday.iqamah[DayTime::dhohur]), seconds_of("13:30:00"));
    const int maghreb = seconds_of(friday.times[DayTime::maghreb]) + 180;
    EXPECT_EQ(seconds_of(friday.iqamah[DayTime::maghreb]), (maghreb + 299) / 300 * 300);
    EXPECT_FALSE(friday.iqamah[DayTime::isha].clock);
    ASSERT_EQ(friday.jumuah.size(), 2U);
    EXPECT_EQ(seconds_of(friday.jumuah[1]), seconds_of("13:00:00"));
    EXPECT_TRUE(row_of(place, profile, {2026, 2, 21}).jumuah.empty());
}

TEST_F(Timetables, NameTheMoonOfTheDay) {
    // Principal phases of 2026, Universal Time: New Moon 17 February 12:01, First Quarter 24 February 12:27,
    // Full Moon 3 March 11:38, Last Quarter 11 March 09:38 (Astronomical Almanac).
    Profile profile;
    profile.page.columns.push_back(TimetableColumn::moon_phase);
    const TimetablePlace place = fixed_place(place_at({0}, {51}, 0));
    const auto moon = [&](double month, double day) {
        return row_of(place, profile, {2026, month, day}).moon;
    };
    EXPECT_EQ(moon(2, 16), MoonOfDay::waning_crescent);
    EXPECT_EQ(moon(2, 17), MoonOfDay::new_moon);
    EXPECT_EQ(moon(2, 18), MoonOfDay::waxing_crescent);
    EXPECT_EQ(moon(2, 24), MoonOfDay::first_quarter);
    EXPECT_EQ(moon(2, 25), MoonOfDay::waxing_gibbous);
    EXPECT_EQ(moon(3, 3), MoonOfDay::full_moon);
    EXPECT_EQ(moon(3, 11), MoonOfDay::last_quarter);
    EXPECT_EQ(moon(3, 12), MoonOfDay::waning_crescent);
}

TEST_F(Timetables, OfTheYearMethodHaveTheReportsMarks) {
    Preferences preferences;
    preferences.high_latitude = 1;
    preferences.summer_time = "0";
    const TimetablePlace oslo{place_at({10, 45}, {59, 55}, 1, "Oslo"), std::nullopt, preferences,
                              std::nullopt};
    const Timetable june =
        timetable_of(oslo, neutral_profile(preferences), dates_span({2026, 6, 20}, {2026, 6, 22}).span);
    for (const TimetableRow& row : june.rows)
        for (const DayTime time : {DayTime::fajer, DayTime::isha}) {
            EXPECT_TRUE(row.times[time].clock);
            EXPECT_EQ(row.times[time].source, TimeSource::year);
        }
    ASSERT_EQ(june.rules.size(), 1U);
    EXPECT_EQ(june.rules.front(), TimeSource::year);
}

TEST_F(Timetables, EndWhenTheyAreCancelled) {
    class Cancelled final : public Progress {
    public:
        void percent(double /*value*/) override {}
        bool yield() override { return false; }
    };
    Cancelled progress;
    EXPECT_FALSE(make_timetable(
        loaded_theory(), {fixed_place(place_at({0}, {0}, 0)), Profile(), year_span(2026).span}, progress));
}

} // namespace
} // namespace halvane
