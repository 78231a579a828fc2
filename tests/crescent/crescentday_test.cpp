// SPDX-License-Identifier: MIT
#include "base/switchguard.h"
#include "prayer/moonday.h"
#include "prayer/prayerday.h"
#include "routines/crescentday.h"
#include "routines/namedengine.h"
#include "tests/prayer/days.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>

namespace halvane {
namespace {

/// The day calculators as they serve a crescent.
class CrescentMode : public DayTest {
protected:
    void run(double jd, int summer) {
        const SwitchGuard mode(crescentmode, 1);
        const SwitchGuard day(crescentjd, jd);
        const SwitchGuard hours(summeractive, summer);
        cmdcom_for_crescent();
        cmdmoon_for_crescent();
    }
    SwitchGuard<DayEvents> results_{crescentevents, {}};
};

TEST_F(CrescentMode, LeavesTheEventsOfItsDay) {
    write_loc(place_at(36, 31, 2));
    write_pref({});
    run(jd_of(2026, 5, 1), 0);
    const PrayerDay day =
        prayer_day(named_ephemeris(), read_prayer_settings(DayMode::report), jd_of(2026, 5, 1), 0);
    EXPECT_EQ(sunriseout, day.times.shuroq);
    EXPECT_EQ(sunsetout, day.times.maghreb);
    const RiseSet moon = moon_rise_set(named_ephemeris(), read_pref(), read_loc(), jd_of(2026, 5, 1), 2);
    EXPECT_EQ(moonriseout, moon.rise);
    EXPECT_EQ(moonsetout, moon.set);
    ASSERT_NE(hours_of(sunriseout), nullptr);
    EXPECT_FALSE(folder.has("results.out"));
    EXPECT_FALSE(folder.has("mresults.out"));
}

TEST_F(CrescentMode, KnowsNoCityAndNoMinutes) {
    Location here = place_at(36, 31, 2);
    write_loc(here);
    write_pref({});
    run(jd_of(2026, 5, 1), 0);
    const TaggedTime sunrise = sunriseout;
    const TaggedTime sunset = sunsetout;
    here.city_offset = 50;
    Preferences preferences;
    preferences.add_maghreb = 9;
    write_loc(here);
    write_pref(preferences);
    run(jd_of(2026, 5, 1), 0);
    EXPECT_EQ(sunriseout, sunrise);
    EXPECT_EQ(sunsetout, sunset);
}

TEST_F(CrescentMode, TakesItsOwnSummerHours) {
    write_loc(place_at(36, 31, 2));
    write_pref({});
    run(jd_of(2026, 5, 1), 0);
    const double winter = *hours_of(sunsetout);
    run(jd_of(2026, 5, 1), 1);
    EXPECT_NEAR(*hours_of(sunsetout), winter + 1, 0.001);
}

TEST_F(CrescentMode, KeepsTheEarlierRiseWhenTheBodyStaysUpOrDown) {
    write_loc(place_at(36, 31, 2));
    write_pref({});
    run(jd_of(2026, 5, 1), 0);
    const TaggedTime sunrise = sunriseout;
    write_loc(place_at(40, 87, 3));
    run(jd_of(2026, 6, 21), 0);
    EXPECT_EQ(sunriseout, sunrise);
    EXPECT_TRUE(is(sunsetout, NoEvent::up));
    const TaggedTime moonrise = moonriseout;
    run(jd_of(2026, 7, 20), 0);
    EXPECT_EQ(moonriseout, moonrise);
    EXPECT_TRUE(is(moonsetout, NoEvent::down));
}

} // namespace
} // namespace halvane
