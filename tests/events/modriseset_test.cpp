// SPDX-License-Identifier: MIT
#include "events/riseset.h"

#include "base/failure.h"
#include "base/switchguard.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "routines/modriseset.h"
#include "routines/namedengine.h"
#include "routines/tdtinput.h"
#include "stored/pref.h"
#include "tests/ephemeris/observed.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace halvane {
namespace {

class RiseSet : public EphemerisTest {
protected:
    struct Events {
        TaggedTime rise, set;
    };
    static Events events(const char* body, double jd0) {
        Events found;
        modriseset(body, jd0, found.rise, found.set);
        return found;
    }
    static double altitude_at(const char* body, double jd) {
        double altitude = 0;
        double azimuth = 0;
        const Observer observer = stored_observer();
        if (std::string(body) == "Moon") {
            const MoonPlace moon = moon_medium(named_ephemeris(), named_instant(jd), observer);
            altazm_of(named_ephemeris(), named_instant(jd), observer, moon.right_ascension, moon.declination,
                      altitude, azimuth);
        } else {
            const SunPlace sun = sun_medium(named_ephemeris(), named_instant(jd), observer);
            altazm_of(named_ephemeris(), named_instant(jd), observer, sun.right_ascension, sun.declination,
                      altitude, azimuth);
        }
        return altitude;
    }
    static double jd_of(double year, double month, double day) {
        double jd = 0;
        modjul(year, month, day, 0, jd);
        return jd;
    }
    void use(const Preferences& preferences) const { write_pref(preferences); }
};

TEST_F(RiseSet, StandsAtItsThresholdAtTheFoundTime) {
    std::mt19937 random(10);
    std::uniform_real_distribution<double> latitude(-60, 60);
    std::uniform_real_distribution<double> longitude(-180, 180);
    int checked = 0;
    for (const double jd : some_instants(25, 51)) {
        const double lon = longitude(random);
        stand_at(lon, latitude(random), 0);
        const double jd0 = std::floor(jd) + 0.5 - std::nearbyint(lon / 15) / 24;
        for (const char* body : {"Sun", "Fajer", "Isha"}) {
            const Events found = events(body, jd0);
            const double h0 =
                std::string(body) == "Sun"
                    ? -(0.5692857 +
                        0.2665639 / sun_medium(named_ephemeris(), named_instant(jd0 + 0.5), stored_observer())
                                        .radius -
                        0.0024)
                    : -18;
            for (const TaggedTime& event : {found.rise, found.set})
                if (const double* hours = hours_of(event)) {
                    // Half a second of time is 0.0021 deg at most.
                    EXPECT_NEAR(altitude_at(body, jd0 + *hours / 24), h0, 0.0022) << body;
                    ++checked;
                }
            const double* rise = hours_of(found.rise);
            if (rise != nullptr) {
                EXPECT_GT(altitude_at(body, jd0 + *rise / 24 + 0.002), h0) << "it rises";
            }
            const double* set = hours_of(found.set);
            if (set != nullptr) {
                EXPECT_LT(altitude_at(body, jd0 + *set / 24 + 0.002), h0) << "it sets";
            }
        }
    }
    EXPECT_GT(checked, 120);
}

TEST_F(RiseSet, OfTheMoonStandsAtRefractionAndSemidiameterLessParallax) {
    int checked = 0;
    stand_at(36, 32, 0);
    for (const double jd : some_instants(60, 52)) {
        const double jd0 = std::floor(jd) + 0.5 - 2.0 / 24;
        const Events found = events("Moon", jd0);
        for (const TaggedTime& event : {found.rise, found.set})
            if (const double* hours = hours_of(event)) {
                const double at = jd0 + *hours / 24;
                const MoonPlace moon = moon_low(named_ephemeris(), named_instant(at), stored_observer());
                // The threshold follows the parallax in steps of two hours, up to the scan's end: 0.02 deg in
                // a day.
                EXPECT_NEAR(altitude_at("Moon", at),
                            -(0.5692857 + moon.topocentric_semidiameter - moon.parallax), 0.025);
                ++checked;
            }
    }
    EXPECT_GT(checked, 110);
}

TEST_F(RiseSet, KeepsTheMoonsHorizonOfTheDaysFirstHour) {
    stand_at(36, 32, 0);
    for (const double jd : some_instants(10, 53)) {
        const double jd0 = std::floor(jd) + 0.5 - 2.0 / 24;
        events("Moon", jd0);
        const MoonPlace moon = moon_low(named_ephemeris(), named_instant(jd0 + 1.0 / 24), stored_observer());
        EXPECT_NEAR(moonhorizonalt, -(0.5692857 + moon.topocentric_semidiameter - moon.parallax), 1e-12);
    }
}

TEST_F(RiseSet, FollowsHeightAirAndSetting) {
    const double jd0 = jd_of(2026, 5, 1) - 2.0 / 24;
    Location mountain;
    mountain.longitude_degrees = 36;
    mountain.latitude_degrees = 31;
    Preferences preferences;
    use(preferences);
    const auto altitudes = [&](double height, double pressure, double temperature) {
        mountain.elevation = height;
        mountain.pressure = pressure;
        mountain.temperature = temperature;
        write_loc(mountain);
        return altitude_at("Sun", jd0 + *hours_of(events("Sun", jd0).rise) / 24);
    };
    const double disc = 0.2665639 / 1.00766 - 0.0024;
    EXPECT_NEAR(altitudes(0, 1010, 10), -(0.5692857 + disc), 0.0022);
    EXPECT_NEAR(altitudes(900, 1010, 10), -(0.5692857 + disc), 0.0022) << "the setting is off";
    EXPECT_NEAR(sunhorizonalt, -(0.0353367 * 30 + 0.5692857 + disc), 1e-4);
    EXPECT_NEAR(altitudes(0, 800, 30), -(0.5692857 * 0.28 * 800 / 303 + disc), 0.0022);
    preferences.elevation_setting = "1";
    use(preferences);
    EXPECT_NEAR(altitudes(900, 1010, 10), -(0.0353367 * 30 + 0.5692857 + disc), 0.0022);
    EXPECT_NEAR(altitudes(-400, 1010, 10), -(-0.0353367 * 20 + 0.5692857 + disc), 0.0022)
        << "from below the sea";
}

TEST(Horizon, DipAndRefraction) {
    EXPECT_NEAR(horizon_dip(100), 0.353367, 1e-12);
    EXPECT_NEAR(horizon_dip(-100), -0.353367, 1e-12);
    EXPECT_EQ(horizon_dip(0), 0);
    EXPECT_EQ(horizon_refraction(1010, 10), 0.5692857);
    EXPECT_NEAR(horizon_refraction(1010, 11), 0.5692857 * 0.28 * 1010 / 284, 1e-12);
    EXPECT_NEAR(horizon_refraction(1000, 10), 0.5692857 * 280 / 283, 1e-12);
}

TEST_F(RiseSet, OfABodyThatStaysUpOrDownSaysSo) {
    stand_at(19, 70, 0);
    use({});
    EXPECT_TRUE(is(events("Sun", jd_of(2026, 6, 21)).rise, NoEvent::up));
    EXPECT_TRUE(is(events("Sun", jd_of(2026, 6, 21)).set, NoEvent::up));
    EXPECT_TRUE(is(events("Sun", jd_of(2026, 12, 21)).rise, NoEvent::down));
    EXPECT_TRUE(is(events("Sun", jd_of(2026, 12, 21)).set, NoEvent::down));
    stand_at(25, 60, 0);
    for (const char* twilight : {"Fajer", "Isha"}) {
        EXPECT_TRUE(is(events(twilight, jd_of(2026, 6, 21)).rise, NoEvent::bright));
        EXPECT_TRUE(is(events(twilight, jd_of(2026, 6, 21)).set, NoEvent::bright));
    }
    stand_at(25, 88, 0);
    EXPECT_TRUE(is(events("Isha", jd_of(2026, 12, 21)).rise, NoEvent::dark));
    EXPECT_TRUE(is(events("Fajer", jd_of(2026, 12, 21)).set, NoEvent::dark));
}

TEST_F(RiseSet, OfOneCrossingLeavesTheOtherNone) {
    stand_at(36, 32, 0);
    use({});
    int single = 0;
    for (int day = 0; day < 60; ++day) {
        const Events found = events("Moon", jd_of(2026, 1, 1) + day - 2.0 / 24);
        const bool rises = hours_of(found.rise) != nullptr;
        const bool sets = hours_of(found.set) != nullptr;
        EXPECT_TRUE(rises || sets);
        if (rises != sets) {
            EXPECT_TRUE(is(rises ? found.set : found.rise, NoEvent::none)) << "never \"Up\"";
            ++single;
        }
    }
    EXPECT_GE(single, 3);
}

TEST_F(RiseSet, AnEventRefinedOutOfTheDayIsNone) {
    // Found by the scan, refined past the day's end or before its start. By a second program, without the
    // bound: 24.0000379, 24.0000477 and -0.00028 h; the last one, an instant earlier in its day, stays.
    stand_at(35, 32, 0);
    use({});
    EXPECT_TRUE(is(events("Moon", 2461163.673873014).set, NoEvent::none));
    EXPECT_TRUE(is(events("Moon", 2461164.3010279764).rise, NoEvent::none));
    EXPECT_TRUE(is(events("Sun", 2461162.1808054107).set, NoEvent::none));
    const Events last = events("Moon", 2461163.673875);
    ASSERT_NE(hours_of(last.set), nullptr);
    EXPECT_NEAR(*hours_of(last.set), 23.9999902, 1e-7);
}

TEST_F(RiseSet, TakesBothEventsOfTheLastInterval) {
    // A night of less than two hours, put into the day's last two hours by where the day begins.
    stand_at(19, 67.4, 0);
    use({});
    int nights = 0;
    for (int day = 0; day < 60; ++day) {
        const double noon = jd_of(2026, 6, 20) + day - 0.75;
        const Events found = events("Sun", noon);
        const double* rise = hours_of(found.rise);
        const double* set = hours_of(found.set);
        if (rise == nullptr || set == nullptr || std::fabs(*rise - *set) > 1.5)
            continue;
        const double begin = noon + (*rise + *set) / 48 - 23.0 / 24;
        const Events last = events("Sun", begin);
        ASSERT_TRUE(hours_of(last.rise) != nullptr && hours_of(last.set) != nullptr) << day;
        EXPECT_GE(*hours_of(last.set), 22);
        EXPECT_LT(*hours_of(last.rise), 24);
        EXPECT_NEAR(*hours_of(last.rise) - *hours_of(last.set), *rise - *set, 1e-3);
        ++nights;
    }
    EXPECT_GE(nights, 1);
}

TEST_F(RiseSet, TakesBothEventsOfOneInterval) {
    // Near the end of the polar day the Sun dips for less than two hours: both events stand in one interval.
    stand_at(19, 67.4, 0);
    use({});
    int short_nights = 0;
    for (int day = 0; day < 60; ++day) {
        const Events found = events("Sun", jd_of(2026, 6, 20) + day - 0.75);
        const double* rise = hours_of(found.rise);
        const double* set = hours_of(found.set);
        if (rise != nullptr && set != nullptr && std::fabs(*rise - *set) < 2) {
            EXPECT_LT(*set, *rise) << "it sets first";
            ++short_nights;
        }
    }
    EXPECT_GE(short_nights, 1);
}

TEST_F(RiseSet, ShadowAltitudeMatchesTheLengthOfAShadow) {
    stand_at(36, 31, 0);
    for (const bool hanafi : {false, true}) {
        Preferences preferences;
        preferences.asr_rule = hanafi ? "0" : "1";
        use(preferences);
        for (int day = 0; day < 365; day += 23) {
            const double jd0 = jd_of(2026, 1, 1) + day - 2.0 / 24;
            const Events shadow = events("Asr", jd0);
            const double* hours = hours_of(shadow.set);
            ASSERT_NE(hours, nullptr);
            // True altitudes raised by the book's refraction; the shadow grows by once or twice the gnomon.
            const auto apparent = [](double h) {
                return h + 1.02 / std::tan((h + 10.3 / (h + 5.11)) * radians_per_degree) / 60;
            };
            const double noon = apparent(
                90 - std::fabs(31 - sun_medium(named_ephemeris(), named_instant(jd0 + 0.5), stored_observer())
                                        .declination));
            const double aser = apparent(altitude_at("Asr", jd0 + *hours / 24));
            EXPECT_NEAR(1 / std::tan(aser * radians_per_degree) - 1 / std::tan(noon * radians_per_degree),
                        hanafi ? 2 : 1, 4e-4);
        }
    }
}

TEST_F(RiseSet, ForcedTwilightTakesThePlaceOfBothAngles) {
    stand_at(36, 31, 0);
    Preferences preferences;
    preferences.fajer_angle = 12;
    preferences.isha_angle = 14;
    use(preferences);
    const double jd0 = jd_of(2026, 5, 1) - 2.0 / 24;
    EXPECT_NEAR(altitude_at("Sun", jd0 + *hours_of(events("Fajer", jd0).rise) / 24), -12, 0.0022);
    EXPECT_NEAR(altitude_at("Sun", jd0 + *hours_of(events("Isha", jd0).set) / 24), -14, 0.0022);
    const SwitchGuard forced(forcedtwilight, 18.0);
    EXPECT_NEAR(altitude_at("Sun", jd0 + *hours_of(events("Fajer", jd0).rise) / 24), -18, 0.0022);
    EXPECT_NEAR(altitude_at("Sun", jd0 + *hours_of(events("Isha", jd0).set) / 24), -18, 0.0022);
}

TEST_F(RiseSet, OneCorrectionBringsAnEstimateToTheAltitude) {
    stand_at(36, 31, 0);
    const double jd0 = jd_of(2026, 5, 1) - 2.0 / 24;
    for (const char* body : {"Sun", "Moon"}) {
        const Events found = events(body, jd0);
        const double exact = *hours_of(found.rise);
        const double h0 = altitude_at(body, jd0 + exact / 24);
        double t = exact + 0.05;
        modcrc(t, jd0, h0, 31, 36, body);
        EXPECT_NEAR(t, exact, 0.004) << body;
        modcrc(t, jd0, h0, 31, 36, body);
        EXPECT_NEAR(t, exact, 1e-4) << body;
    }
}

TEST_F(RiseSet, DoesNotDependOnTheSearchesBefore) {
    stand_at(36, 31, 0);
    use({});
    const double jd0 = jd_of(2026, 5, 1) - 2.0 / 24;
    const Events first = events("Sun", jd0);
    events("Isha", jd0);
    events("Moon", jd0 + 1);
    stand_at(-70, 50, 0);
    events("Sun", jd0);
    stand_at(36, 31, 0);
    {
        const TdtSpan dynamical_time(1);
        events("Sun", jd0);
    }
    const Events again = events("Sun", jd0);
    EXPECT_EQ(first.rise, again.rise);
    EXPECT_EQ(first.set, again.set);
}

TEST_F(RiseSet, WithoutAFiniteThresholdIsAFailure) {
    Location impossible;
    impossible.temperature = -273;
    write_loc(impossible);
    for (const char* body : {"Sun", "Moon", "Asr"})
        EXPECT_THROW(events(body, jd_of(2026, 5, 1)), RunTimeFailure) << body;
}

TEST_F(RiseSet, AtThePolesTheDeclinationDecides) {
    use({});
    for (const double latitude : {90.0, -90.0, 89.9999}) {
        stand_at(0, latitude, 0);
        for (int day = 0; day < 40; ++day) {
            const double jd0 = jd_of(2026, 3, 1) + day;
            for (const char* body : {"Sun", "Moon"}) {
                const bool sun = std::string(body) == "Sun";
                const double declination =
                    sun ? sun_medium(named_ephemeris(), named_instant(jd0 + 0.5), stored_observer())
                              .declination
                        : moon_medium(named_ephemeris(), named_instant(jd0 + 0.5), stored_observer())
                              .declination;
                // Nearer to the equator the body crosses the horizon in the day.
                if (std::fabs(declination) < (sun ? 2 : 5))
                    continue;
                const NoEvent word = (declination > 0) == (latitude > 0) ? NoEvent::up : NoEvent::down;
                const Events found = events(body, jd0);
                EXPECT_TRUE(is(found.rise, word) && is(found.set, word)) << body << latitude << " " << day;
            }
            const Events twilight = events("Fajer", jd0);
            EXPECT_TRUE(is(twilight.rise, NoEvent::bright)) << "the Sun is within 18 degrees of the equator";
        }
    }
}

TEST(NoEventText, IsTheWordOfTheReports) {
    EXPECT_STREQ(text_of(NoEvent::none), "----");
    EXPECT_STREQ(text_of(NoEvent::up), "Up");
    EXPECT_STREQ(text_of(NoEvent::down), "Down");
    EXPECT_STREQ(text_of(NoEvent::bright), "Bright");
    EXPECT_STREQ(text_of(NoEvent::dark), "Dark");
}

} // namespace
} // namespace halvane
