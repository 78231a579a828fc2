// SPDX-License-Identifier: MIT
#include "base/failure.h"
#include "calendar/modsummer.h"
#include "events/riseset.h"
#include "prayer/prayerrun.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "tests/prayer/days.h"
#include "tests/support/places.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace halvane {
namespace {

using PrayerDayTest = DayTest;

TEST_F(PrayerDayTest, CityComesEarlierInTheMorningOnly) {
    Location city = place_at(36, 31, 2);
    const PrayerTexts without = texts_of_day(seconds(), city, 2026, 5, 1);
    city.city_offset = 10;
    const PrayerTexts with = texts_of_day(seconds(), city, 2026, 5, 1);
    // 10 km of a degree of 95.50 km, at 4 minutes a degree.
    const double degree = 111.413 * 0.857167 - 0.094 * -0.052336;
    const double seconds_earlier = 10 / degree * 240;
    EXPECT_NEAR(seconds_of(without.fajer) - seconds_of(with.fajer), seconds_earlier, 1);
    EXPECT_NEAR(seconds_of(without.shuroq) - seconds_of(with.shuroq), seconds_earlier, 1);
    EXPECT_EQ(with.dhohur, without.dhohur);
    EXPECT_EQ(with.aser, without.aser);
    EXPECT_EQ(with.maghreb, without.maghreb);
    EXPECT_EQ(with.isha, without.isha);
}

TEST_F(PrayerDayTest, OfASunThatNeverRisesIsDown) {
    const PrayerTexts times = texts_of_day({}, place_at(19, 70, 1), 2026, 12, 21);
    EXPECT_EQ(times.shuroq, "Down");
    EXPECT_EQ(times.dhohur, "Down");
    EXPECT_EQ(times.aser, "Down");
    EXPECT_EQ(times.maghreb, "Down");
    EXPECT_EQ(times.fajer.size(), 5U);
    EXPECT_EQ(times.isha.size(), 5U);
}

TEST_F(PrayerDayTest, OfASunThatNeverSetsHasItsTransitStill) {
    const PrayerTexts times = texts_of_day({}, place_at(19, 70, 1), 2026, 6, 21);
    EXPECT_EQ(times.fajer, "Bright");
    EXPECT_EQ(times.shuroq, "Up");
    EXPECT_EQ(times.maghreb, "Up");
    EXPECT_EQ(times.isha, "Bright");
    EXPECT_EQ(times.dhohur, "11:46"); // 12 h - 4 h 16 min + 3 h (19 deg east of the zone's 15) + 1 min 45 s
    EXPECT_EQ(times.aser.size(), 5U);
}

TEST_F(PrayerDayTest, OfASunThatNeverSinksToTheShadowHasNoAser) {
    // At the pole the Sun keeps its height all day, so that no shadow ever grows by the gnomon's length.
    const PrayerTexts times = texts_of_day({}, place_at(0, 90, 0), 2026, 6, 21);
    EXPECT_EQ(times.maghreb, "Up");
    EXPECT_EQ(times.aser, "----");
}

TEST_F(PrayerDayTest, KeepsTheWordsOfADarkSky) {
    const PrayerTexts times = texts_of_day({}, place_at(40, 87, 3), 2026, 12, 21);
    EXPECT_EQ(times.fajer, "Dark");
    EXPECT_EQ(times.isha, "Dark");
}

TEST_F(PrayerDayTest, OfADarkSkyDoesNotCallForTheAlternativeMethod) {
    Preferences preferences;
    preferences.high_latitude = 1;
    const PrayerDay day = day_of(preferences, place_at(40, 87, 3), 2026, 12, 21);
    EXPECT_FALSE(day.refused);
    EXPECT_FALSE(day.by_night_fraction);
    EXPECT_TRUE(is(day.times.fajer, NoEvent::dark));
}

TEST_F(PrayerDayTest, HeightOffStillTestsTheTransitAgainstTheDip) {
    Location mountain = place_at(36, 31, 2);
    mountain.elevation = 2500;
    Preferences preferences = seconds();
    const PrayerTexts off = texts_of_day(preferences, mountain, 2026, 5, 1);
    const auto horizon_in_force = [&mountain] {
        const PrayerSettings settings = read_prayer_settings(DayMode::report);
        const Instant midnight = Instant::of_ut1(jd_of(2026, 5, 1) - mountain.zone / 24);
        return find_rise_set(named_ephemeris(), Target::sun, midnight, settings.observer, settings.horizon)
            .horizon_altitude;
    };
    const double horizon_off = horizon_in_force();
    preferences.elevation_setting = "1";
    const PrayerTexts on = texts_of_day(preferences, mountain, 2026, 5, 1);
    EXPECT_EQ(horizon_in_force(), horizon_off);
    EXPECT_NEAR(horizon_off, -(0.02917 + 0.0061667) * 50 - 0.5692857 - 0.2665639 / 1.0077 + 0.0024, 1e-4);
    EXPECT_EQ(on.dhohur, off.dhohur);
    // The dip of 1.767 deg takes 1.767 x 4 min / (cos 31 deg x cos 15 deg x sin H) or so.
    EXPECT_NEAR(seconds_of(off.shuroq) - seconds_of(on.shuroq), 1.767 * 240 / 0.828, 25);
    EXPECT_NEAR(seconds_of(on.maghreb) - seconds_of(off.maghreb), 1.767 * 240 / 0.828, 25);
    EXPECT_EQ(on.fajer, off.fajer);
    EXPECT_EQ(on.isha, off.isha);
}

TEST_F(PrayerDayTest, StoredBoxOfTheFajerElevationDoesNothing) {
    Location mountain = place_at(36, 31, 2);
    mountain.elevation = 2500;
    Preferences preferences = seconds();
    const PrayerTexts unchecked = texts_of_day(preferences, mountain, 2026, 5, 1);
    preferences.elevation_fajer = "1";
    EXPECT_EQ(texts_of_day(preferences, mountain, 2026, 5, 1).fajer, unchecked.fajer);
}

TEST_F(PrayerDayTest, MarginsMoveTheirOwnTimes) {
    const Location here = place_at(36, 31, 2);
    const PrayerTexts plain = texts_of_day(seconds(), here, 2026, 5, 1);
    Preferences preferences = seconds();
    preferences.subtract_fajer = 3;
    preferences.add_dhohur = 5;
    preferences.add_maghreb = 7;
    preferences.add_asr = -11;
    const PrayerTexts moved = texts_of_day(preferences, here, 2026, 5, 1);
    EXPECT_NEAR(seconds_of(moved.fajer) - seconds_of(plain.fajer), -180, 1);
    EXPECT_EQ(moved.shuroq, plain.shuroq);
    EXPECT_NEAR(seconds_of(moved.dhohur) - seconds_of(plain.dhohur), 300, 1);
    EXPECT_NEAR(seconds_of(moved.aser) - seconds_of(plain.aser), -660, 1);
    EXPECT_NEAR(seconds_of(moved.maghreb) - seconds_of(plain.maghreb), 420, 1);
    EXPECT_EQ(moved.isha, plain.isha);
}

TEST_F(PrayerDayTest, NegativeMarginsMoveTheOtherWay) {
    const Location here = place_at(36, 31, 2);
    const PrayerTexts plain = texts_of_day(seconds(), here, 2026, 5, 1);
    Preferences preferences = seconds();
    preferences.subtract_fajer = -3;
    preferences.add_dhohur = -5;
    preferences.add_maghreb = -7;
    const PrayerTexts moved = texts_of_day(preferences, here, 2026, 5, 1);
    EXPECT_NEAR(seconds_of(moved.fajer) - seconds_of(plain.fajer), 180, 1);
    EXPECT_NEAR(seconds_of(moved.dhohur) - seconds_of(plain.dhohur), -300, 1);
    EXPECT_NEAR(seconds_of(moved.maghreb) - seconds_of(plain.maghreb), -420, 1);
}

TEST_F(PrayerDayTest, TimeMovedOutOfTheDayIsNone) {
    Preferences preferences;
    preferences.subtract_fajer = 600;
    preferences.add_maghreb = 600;
    preferences.add_asr = 900;
    const PrayerTexts times = texts_of_day(preferences, place_at(36, 31, 2), 2026, 5, 1);
    EXPECT_EQ(times.fajer, "----");
    EXPECT_EQ(times.maghreb, "----");
    EXPECT_EQ(times.aser, "----");
}

TEST_F(PrayerDayTest, EachTwilightHasItsOwnAngle) {
    const Location here = place_at(36, 31, 2);
    const PrayerTexts equal = texts_of_day(seconds(), here, 2026, 5, 1);
    Preferences preferences = seconds();
    preferences.isha_angle = 17;
    const PrayerTexts other_isha = texts_of_day(preferences, here, 2026, 5, 1);
    EXPECT_EQ(other_isha.fajer, equal.fajer);
    EXPECT_LT(other_isha.isha, equal.isha);
    preferences.isha_angle = 18;
    preferences.fajer_angle = 19.5;
    const PrayerTexts other_fajer = texts_of_day(preferences, here, 2026, 5, 1);
    EXPECT_LT(other_fajer.fajer, equal.fajer);
    EXPECT_EQ(other_fajer.isha, equal.isha);
}

TEST_F(PrayerDayTest, ShadowIsTwiceAsLongByTheHanafiRule) {
    Preferences preferences = seconds();
    const std::string standard = texts_of_day(preferences, place_at(36, 31, 2), 2026, 5, 1).aser;
    preferences.asr_rule = "0";
    const std::string hanafi = texts_of_day(preferences, place_at(36, 31, 2), 2026, 5, 1).aser;
    EXPECT_GT(seconds_of(hanafi) - seconds_of(standard), 3000);
}

TEST_F(PrayerDayTest, PanelShowsWordsInPlaceOfTimesThatAreNot) {
    write_loc(place_at(19, 70, 1));
    write_pref({});
    const PrayerTexts times = today_prayer_times(loaded_theory(), jd_of(2026, 6, 21));
    EXPECT_EQ(times.fajer, "Bright");
    EXPECT_EQ(times.shuroq, "Up");
}

TEST_F(PrayerDayTest, PanelNeverUsesTheAlternativeMethod) {
    Preferences preferences;
    preferences.high_latitude = 1;
    write_pref(preferences);
    write_loc(place_at(15, 52, 1));
    EXPECT_EQ(today_prayer_times(loaded_theory(), jd_of(2026, 6, 21)).fajer, "Bright");
    write_loc(place_at(15, 67, 1));
    EXPECT_EQ(today_prayer_times(loaded_theory(), jd_of(2026, 6, 1)).fajer, "Bright");
}

TEST_F(PrayerDayTest, PanelNeedsTheStoredDateAllTheSame) {
    folder.erase("date.vsk");
    EXPECT_THROW(today_prayer_times(loaded_theory(), jd_of(2026, 6, 21)), RunTimeFailure);
}

TEST_F(PrayerDayTest, AlternativeMethodFailsOnADayWithoutSunrise) {
    Preferences preferences;
    preferences.high_latitude = 1;
    // A zone five hours off puts sunrise into the day before or after for some days of June.
    write_pref(preferences);
    write_loc(place_at(15, 64.9, 1));
    Location far_zone = place_at(15, 64, 1);
    far_zone.latitude_minutes = 59;
    far_zone.elevation = 5000;
    preferences.elevation_setting = "1";
    const auto day = [&] { day_of(preferences, far_zone, 2026, 6, 21); };
    EXPECT_THROW(day(), RunTimeFailure) << "the Sun does not set from so high";
}

// The Sun's centre stays below the horizon all day and only its upper limb comes up for half an hour, so that
// no shadow falls; the user's guide tells of this day.
TEST_F(PrayerDayTest, AserCanStandBeforeDhohurBeyond75Degrees) {
    const PrayerTexts times = texts_of_day({}, place_at(35, 77, 2), 2025, 2, 13);
    EXPECT_EQ(times.shuroq, "10:42");
    EXPECT_EQ(times.dhohur, "11:54");
    EXPECT_EQ(times.aser, "10:56");
    EXPECT_EQ(times.maghreb, "13:08");
}

TEST_F(PrayerDayTest, TimesStandInTheOrderOfTheDay) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int> latitude(-60, 60);
    std::uniform_int_distribution<int> longitude(-179, 180);
    std::uniform_int_distribution<int> day(0, 73000);
    int checked = 0;
    for (int i = 0; i < 300; ++i) {
        const int east = longitude(random);
        const Location here = place_at(east, latitude(random), std::nearbyint(east / 15.0));
        // Not through the disk: a place for each day.
        folder.write("loc.vsk", "\"Here\"," + std::to_string(std::abs(east)) + ",0,0," +
                                    std::to_string(static_cast<int>(here.latitude_degrees)) + ",0,0,0," +
                                    std::to_string(static_cast<int>(here.zone)) + "," +
                                    (here.east ? "#TRUE#" : "#FALSE#") + "," +
                                    (here.north ? "#TRUE#" : "#FALSE#") + ",#FALSE#,#FALSE#,0,1010,10\r\n");
        const PrayerTexts t = texts_of(
            prayer_day(named_ephemeris(), read_prayer_settings(DayMode::report), 2415020.5 + day(random), 0)
                .times,
            1);
        std::vector<std::string> clocks;
        for (const std::string& text : {t.fajer, t.shuroq, t.dhohur, t.aser, t.maghreb, t.isha})
            if (text.size() == 5)
                clocks.push_back(text);
        const bool isha_after_midnight = t.isha < "12:00";
        const bool fajer_before_midnight = t.fajer.size() == 5 && t.fajer > "12:00";
        if (isha_after_midnight || fajer_before_midnight)
            continue;
        for (std::size_t k = 1; k < clocks.size(); ++k)
            EXPECT_LT(clocks[k - 1], clocks[k]) << t.fajer << " " << t.isha;
        checked += clocks.size() == 6 ? 1 : 0;
    }
    EXPECT_GT(checked, 200);
}

TEST_F(PrayerDayTest, SummerHourMovesTheClockAndNothingElse) {
    const Location here = place_at(36, 31, 2);
    const PrayerTexts winter = texts_of_day(seconds(), here, 2026, 5, 1);
    const PrayerTexts summer = texts_of(
        prayer_day(named_ephemeris(), read_prayer_settings(DayMode::report), jd_of(2026, 5, 1), 1).times, 0);
    EXPECT_NEAR(seconds_of(summer.shuroq) - seconds_of(winter.shuroq), 3600, 1);
    EXPECT_NEAR(seconds_of(summer.dhohur) - seconds_of(winter.dhohur), 3600, 1);
    EXPECT_NEAR(seconds_of(summer.aser) - seconds_of(winter.aser), 3600, 2);
}

TEST_F(PrayerDayTest, SummerHoursFollowTheCivilDate) {
    Preferences preferences;
    preferences.summer_time = "1";
    EXPECT_EQ(summer_hours_of(preferences, jd_of(2026, 4, 1)), 1);
    EXPECT_EQ(summer_hours_of(preferences, jd_of(2026, 3, 31)), 0);
    EXPECT_EQ(summer_hours_of(preferences, jd_of(2026, 10, 1)), 1);
    EXPECT_EQ(summer_hours_of(preferences, jd_of(2026, 10, 2)), 0);
}

TEST_F(PrayerDayTest, EndsWithinTheDayAtThePoles) {
    for (const double latitude : {90.0, -90.0})
        for (int day = 0; day < 365; ++day) {
            folder.write("loc.vsk", "\"Pole\",0,0,0,90,0,0,2800,0,#TRUE#," +
                                        std::string(latitude > 0 ? "#TRUE#" : "#FALSE#") +
                                        ",#FALSE#,#FALSE#,0,1010,10\r\n");
            const PrayerTimes times = prayer_day(named_ephemeris(), read_prayer_settings(DayMode::report),
                                                 jd_of(2026, 1, 1) + day, 0)
                                          .times;
            EXPECT_TRUE(hours_of(times.shuroq) == nullptr || within_day(*hours_of(times.shuroq)));
        }
}

} // namespace
} // namespace halvane
