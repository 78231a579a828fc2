// SPDX-License-Identifier: MIT
#include "tests/timetable/timetables.h"

#include <cmath>

namespace halvane {
namespace {

/// The expected times of these tests were computed apart from this program by the short solar series of Meeus
/// (0.01 degree), with sunrise and sunset at 50' below the horizon and height 0; they hold to about 3 s. The
/// searches here end within 0.5 s of the medium series' event; a Sun near 60 degrees in June sinks 0.1 degree
/// in a minute, so that their 0.01 degree and our difference are some seconds more.
constexpr int allowed_seconds = 8;

class HighLatitudeRules : public TimetableTest {
protected:
    static Profile profile_of(HighLatitudeRule rule, RuleUse use = RuleUse::missing, double fajer = 18,
                              double isha = 17) {
        Profile profile;
        profile.fajer_angle = fajer;
        profile.isha_angle = isha;
        profile.high_latitude = rule;
        profile.rule_use = use;
        profile.seconds = true;
        return profile;
    }

    static TimetablePlace oslo() { return fixed_place(place_at({10, 45}, {59, 54.6}, 2, "Oslo")); }
    static TimetablePlace london() { return fixed_place(place_at({-0.12}, {51, 30}, 1, "London")); }
    static TimetablePlace tromsoe() { return fixed_place(place_at({18, 57.6}, {69, 39}, 2, "Tromso")); }

    static void expect_twilights(const TimetableRow& row, const char* fajer, const char* isha,
                                 TimeSource source) {
        EXPECT_NEAR(seconds_of(row.times[DayTime::fajer]), seconds_of(fajer), allowed_seconds);
        EXPECT_NEAR(seconds_of(row.times[DayTime::isha]), seconds_of(isha), allowed_seconds);
        EXPECT_EQ(row.times[DayTime::fajer].source, source);
        EXPECT_EQ(row.times[DayTime::isha].source, source);
    }
};

constexpr DateNumbers solstice{2025, 6, 21};

TEST_F(HighLatitudeRules, NoneLeavesABrightNightWithoutTwilights) {
    const TimetableRow row = row_of(oslo(), profile_of(HighLatitudeRule::none), solstice);
    for (const DayTime time : {DayTime::fajer, DayTime::isha}) {
        EXPECT_FALSE(row.times[time].clock);
        EXPECT_EQ(row.times[time].missing, NoEvent::bright);
    }
    EXPECT_NEAR(seconds_of(row.times[DayTime::shuroq]), seconds_of("03:53:49"), allowed_seconds);
    EXPECT_NEAR(seconds_of(row.times[DayTime::maghreb]), seconds_of("22:43:54"), allowed_seconds);
}

TEST_F(HighLatitudeRules, TheMiddleOfTheNightInOslo) {
    expect_twilights(row_of(oslo(), profile_of(HighLatitudeRule::middle), solstice), "01:18:46", "25:18:59",
                     TimeSource::middle);
}

TEST_F(HighLatitudeRules, OneSeventhOfTheNightInOslo) {
    expect_twilights(row_of(oslo(), profile_of(HighLatitudeRule::seventh), solstice), "03:09:31", "23:28:13",
                     TimeSource::seventh);
}

TEST_F(HighLatitudeRules, ThePartByTheAngleInOslo) {
    expect_twilights(row_of(oslo(), profile_of(HighLatitudeRule::angle), solstice), "02:20:47", "24:11:47",
                     TimeSource::angle);
    const Profile twelve = profile_of(HighLatitudeRule::angle, RuleUse::missing, 12, 12);
    expect_twilights(row_of(oslo(), twelve, solstice), "02:51:48", "23:45:56", TimeSource::angle);
}

TEST_F(HighLatitudeRules, TheClockOfALowerLatitudeInOslo) {
    expect_twilights(row_of(oslo(), profile_of(HighLatitudeRule::nearest_latitude), solstice), "01:32:03",
                     "24:23:32", TimeSource::nearest_latitude);
}

TEST_F(HighLatitudeRules, TheShareOfALowerLatitudesNightInOslo) {
    expect_twilights(row_of(oslo(), profile_of(HighLatitudeRule::share), solstice), "02:19:13", "24:10:17",
                     TimeSource::share);
}

TEST_F(HighLatitudeRules, InLondonWhereTheAngleGivesNoTime) {
    expect_twilights(row_of(london(), profile_of(HighLatitudeRule::middle), solstice), "01:02:15", "25:02:28",
                     TimeSource::middle);
    expect_twilights(row_of(london(), profile_of(HighLatitudeRule::seventh), solstice), "03:40:02",
                     "22:24:41", TimeSource::seventh);
    expect_twilights(row_of(london(), profile_of(HighLatitudeRule::angle), solstice), "02:30:36", "23:26:45",
                     TimeSource::angle);
}

TEST_F(HighLatitudeRules, WhereTheAngleGivesATimeItStandsUnlessItIsBeyond) {
    constexpr DateNumbers may{2025, 5, 10};
    for (const HighLatitudeRule rule :
         {HighLatitudeRule::middle, HighLatitudeRule::seventh, HighLatitudeRule::angle})
        expect_twilights(row_of(london(), profile_of(rule), may), "02:28:39", "23:12:56", TimeSource::sky);
    const auto beyond = [&](HighLatitudeRule rule) {
        return row_of(london(), profile_of(rule, RuleUse::beyond), may);
    };
    expect_twilights(beyond(HighLatitudeRule::middle), "02:28:39", "23:12:56", TimeSource::sky);
    expect_twilights(beyond(HighLatitudeRule::angle), "02:40:28", "23:04:47", TimeSource::angle);
    expect_twilights(beyond(HighLatitudeRule::seventh), "04:02:03", "21:52:17", TimeSource::seventh);
    expect_twilights(row_of(london(), profile_of(HighLatitudeRule::middle, RuleUse::always), may), "00:56:37",
                     "24:56:35", TimeSource::middle);
}

TEST_F(HighLatitudeRules, WithoutASunriseTheClockOfALowerLatitudeGivesAllSix) {
    Profile profile = profile_of(HighLatitudeRule::nearest_latitude);
    profile.reference_latitude = 45;
    const TimetableRow row = row_of(tromsoe(), profile, solstice);
    expect_twilights(row, "02:23:59", "22:54:42", TimeSource::nearest_latitude);
    EXPECT_NEAR(seconds_of(row.times[DayTime::shuroq]), seconds_of("04:57:27"), allowed_seconds);
    EXPECT_NEAR(seconds_of(row.times[DayTime::maghreb]), seconds_of("20:34:36"), allowed_seconds);
    for (const DayTime time : day_times)
        EXPECT_EQ(row.times[time].source, TimeSource::nearest_latitude);
}

TEST_F(HighLatitudeRules, WithoutASunriseThePartsOfTheNightGiveNothing) {
    for (const HighLatitudeRule rule :
         {HighLatitudeRule::middle, HighLatitudeRule::seventh, HighLatitudeRule::angle}) {
        const TimetableRow row = row_of(tromsoe(), profile_of(rule), solstice);
        EXPECT_FALSE(row.times[DayTime::fajer].clock);
        EXPECT_EQ(row.times[DayTime::shuroq].missing, NoEvent::up);
        EXPECT_TRUE(row.times[DayTime::dhohur].clock);
        EXPECT_TRUE(row.times[DayTime::aser].clock);
    }
}

TEST_F(HighLatitudeRules, AnIshaByIntervalIsNotBoundByTheNight) {
    Profile profile = profile_of(HighLatitudeRule::seventh, RuleUse::always);
    profile.isha_minutes = 90;
    const TimetableRow row = row_of(london(), profile, solstice);
    EXPECT_EQ(row.times[DayTime::fajer].source, TimeSource::seventh);
    EXPECT_EQ(row.times[DayTime::isha].source, TimeSource::interval);
    EXPECT_EQ(seconds_of(row.times[DayTime::isha]), seconds_of(row.times[DayTime::maghreb]) + 90 * 60);
}

/// Counts the times of a timetable whose six stand in order on each of its dates.
int times_in_order(const Timetable& timetable, const std::string& what) {
    int checked = 0;
    for (const TimetableRow& row : timetable.rows) {
        std::optional<int> last;
        for (const DayTime time : day_times)
            if (const std::optional<LocalClock>& clock = row.times[time].clock) {
                const int now = clock->day * 86400 + clock->seconds;
                if (last && now < *last) {
                    ADD_FAILURE() << what << ", " << row.date.day << "/" << row.date.month << ", time "
                                  << static_cast<int>(time);
                    return checked;
                }
                last = now;
                ++checked;
            }
    }
    return checked;
}

TEST_F(HighLatitudeRules, TheOrderOfTheSixHoldsFromPoleToPole) {
    int checked = 0;
    for (const HighLatitudeRule rule :
         {HighLatitudeRule::none, HighLatitudeRule::middle, HighLatitudeRule::seventh,
          HighLatitudeRule::angle, HighLatitudeRule::nearest_latitude, HighLatitudeRule::share})
        for (const RuleUse use : {RuleUse::missing, RuleUse::beyond, RuleUse::always}) {
            if (rule == HighLatitudeRule::none && use != RuleUse::missing)
                continue;
            for (double latitude = -90; latitude <= 90; latitude += 5)
                checked += times_in_order(timetable_of(fixed_place(place_at({10}, {latitude}, 1)),
                                                       profile_of(rule, use), year_span(2025).span),
                                          "latitude " + std::to_string(latitude) + ", rule " +
                                              std::to_string(static_cast<int>(rule)) + ", use " +
                                              std::to_string(static_cast<int>(use)));
        }
    EXPECT_GT(checked, 700000);
}

TEST_F(HighLatitudeRules, TheOrderOfTheSixHoldsByTheYearMethod) {
    for (double latitude = -90; latitude <= 90; latitude += 2.5) {
        const TimetablePlace place = fixed_place(place_at({10}, {latitude}, 1));
        const Timetable timetable =
            timetable_of(place, profile_of(HighLatitudeRule::year), year_span(2025).span);
        EXPECT_GT(times_in_order(timetable, "latitude " + std::to_string(latitude)), 0);
        const bool works = latitude > 48.5 && latitude <= 65;
        EXPECT_EQ(!timetable.rules.empty(), works) << latitude;
    }
}

} // namespace
} // namespace halvane
