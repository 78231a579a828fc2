// SPDX-License-Identifier: MIT
#include "events/lowriseset.h"

#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "ephemeris/sun.h"
#include "events/riseset.h"
#include "routines/modearthorientation.h"
#include "routines/modriseset.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tests/golden/goldenreport.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <tuple>

namespace halvane {
namespace {

double day_of(int year, int month, int day) {
    double jd = 0;
    modjul(year, month, day, 0, jd);
    return jd;
}

/// No file is there to be read once the nutation's and the Moon's terms are loaded.
class FastEvents : public ::testing::Test {
protected:
    FastEvents() {
        set_program_folder(HALVANE_DATA);
        load_mterm();
        set_program_folder((std::filesystem::temp_directory_path() / "no such folder of halvane").string());
    }
};

struct Events {
    TaggedTime rise, set;
};

Events events(double jd, double longitude, double latitude, const char* body) {
    Events found;
    modlowriseset(jd, longitude, latitude, body, found.rise, found.set);
    return found;
}

TEST_F(FastEvents, ReadNoFile) {
    const Events sun = events(day_of(2025, 3, 20), 36, 32, "Sun");
    const Events moon = events(day_of(2025, 3, 20), 36, 32, "Moon");
    EXPECT_NE(hours_of(sun.rise), nullptr);
    EXPECT_NE(hours_of(moon.set), nullptr);
}

TEST_F(FastEvents, HaveNeitherUpNorDownInTheArctic) {
    for (const int month : {6, 12}) {
        const Events sun = events(day_of(2025, month, 21), 20, 80, "Sun");
        EXPECT_TRUE(is(sun.rise, NoEvent::none));
        EXPECT_TRUE(is(sun.set, NoEvent::none));
    }
}

TEST_F(FastEvents, SetPastMidnightIsFoldedToTheStartOfTheDay) {
    // 62 north at midsummer, east in its zone: the Sun sets at about 22:50; 7 degrees further west it sets
    // past midnight of the zone's clock.
    const double day = day_of(2025, 6, 21);
    int folded = 0;
    for (double latitude = 62; latitude < 66; latitude += 0.1) {
        const Events sun = events(day, 8, latitude, "Sun");
        const double* rise = hours_of(sun.rise);
        const double* set = hours_of(sun.set);
        if (rise == nullptr || set == nullptr || *set > *rise)
            continue;
        EXPECT_LT(*set, 3);
        ++folded;
    }
    EXPECT_GT(folded, 0);
}

TEST_F(FastEvents, MoonStandsAnEighthOfADegreeHighAtItsEvents) {
    for (int i = 0; i < 60; ++i) {
        const double day = day_of(2025, 1, 1) + i;
        const Events moon = events(day, 30, 20, "Moon");
        for (const TaggedTime& event : {moon.rise, moon.set}) {
            if (hours_of(event) == nullptr)
                continue;
            const double jd = day + (*hours_of(event) - 2) / 24;
            const FastPlace place = moon_fast_place(named_ephemeris(), named_instant(jd));
            double altitude = 0;
            double azimuth = 0;
            modlowaltazm(jd, place.right_ascension, place.declination, 30, 20, altitude, azimuth);
            // 0.7275 of a parallax of 54' to 61.5' less 0.5667.
            EXPECT_NEAR(altitude, 0.125, 0.06);
        }
    }
}

TEST_F(FastEvents, StandardAltitudeOfTheSunIsFiftyMinutesBelow) {
    const double day = day_of(2025, 5, 5);
    const Events sun = events(day, 30, 40, "Sun");
    for (const TaggedTime& event : {sun.rise, sun.set}) {
        const double jd = day + (*hours_of(event) - 2) / 24;
        const FastPlace place = sun_fast_place(named_ephemeris(), named_instant(jd));
        double altitude = 0;
        double azimuth = 0;
        modlowaltazm(jd, place.right_ascension, place.declination, 30, 40, altitude, azimuth);
        EXPECT_NEAR(altitude, -0.833333, 0.002);
    }
}

TEST_F(FastEvents, ZoneIsTheNearestHourHalfToEven) {
    EXPECT_EQ(zone_of_longitude(7.5), 0);
    EXPECT_EQ(zone_of_longitude(22.5), 2);
    EXPECT_EQ(zone_of_longitude(-7.5), 0);
    EXPECT_EQ(zone_of_longitude(-22.5), -2);
    EXPECT_EQ(zone_of_longitude(36), 2);
    EXPECT_EQ(zone_of_longitude(180), 12);
}

TEST_F(FastEvents, OneCorrectionNearsTheEvent) {
    const double day = day_of(2025, 3, 20);
    const double midnight = day - 2.0 / 24;
    const double set = *hours_of(events(day, 30, 40, "Sun").set);
    double corrected = 0;
    modvlowriseset(set - 0.5, midnight, -0.833333, 40, 30, "Sun", corrected);
    EXPECT_NEAR(corrected, set, 0.02);
    modvlowriseset(corrected, midnight, -0.833333, 40, 30, "Sun", corrected);
    EXPECT_NEAR(corrected, set, 0.0005);
}

TEST_F(FastEvents, OneEventAloneIsThatOfBoth) {
    for (int i = 0; i < 100; ++i) {
        const double day = day_of(2020, 1, 1) + 17 * i;
        const double longitude = -180 + (i * 101) % 360;
        const double latitude = -68 + (i * 37) % 129;
        for (const auto& [which, name] : {std::pair(Body::sun, "Sun"), std::pair(Body::moon, "Moon")}) {
            const Events both = events(day, longitude, latitude, name);
            const Observer observer = observer_at(longitude, latitude, 0);
            EXPECT_EQ(low_event(named_ephemeris(), which, named_instant(day), observer, LowEvent::rise),
                      both.rise);
            EXPECT_EQ(low_event(named_ephemeris(), which, named_instant(day), observer, LowEvent::set),
                      both.set);
        }
    }
}

TEST_F(FastEvents, AltitudeAndAzimuthAreThoseOfTheSphere) {
    const double jd = day_of(2025, 7, 1) + 0.3;
    double altitude = 0;
    double azimuth = 0;
    for (double latitude = -60; latitude <= 60; latitude += 40)
        for (double right_ascension = 5; right_ascension < 360; right_ascension += 50) {
            modlowaltazm(jd, right_ascension, 25, 40, latitude, altitude, azimuth);
            double sidereal = 0;
            modsiderial(jd, sidereal);
            const double h = (sidereal + 40 - right_ascension) * radians_per_degree;
            const double d = 25 * radians_per_degree;
            const double phi = latitude * radians_per_degree;
            const double up = std::sin(phi) * std::sin(d) + std::cos(phi) * std::cos(d) * std::cos(h);
            const double north = std::cos(phi) * std::sin(d) - std::sin(phi) * std::cos(d) * std::cos(h);
            const double east = -std::cos(d) * std::sin(h);
            EXPECT_NEAR(std::sin(altitude * radians_per_degree), up, 1e-12);
            const double expected = rev360(std::atan2(east, north) * degrees_per_radian);
            EXPECT_NEAR(rev180(azimuth - expected), 0, 1e-9);
        }
}

/// The complete search of the stored observer against the fast one, on 200 days from 60 south to 60 north.
TEST(FastEventsAccuracy, StaysWithin40SecondsOfTheCompleteSearch) {
    const TemporaryProgramFolder folder;
    load_series();
    write_pref({});
    double worst = 0;
    int compared = 0;
    for (int i = 0; i < 200; ++i) {
        const double day = 2433294.5 + 187 * i;
        const double longitude = -180 + (i * 101) % 360;
        const double latitude = -60 + (i * 37) % 121;
        const Location place = place_at(longitude, latitude, zone_of_longitude(longitude));
        write_loc(place);
        for (const char* body : {"Sun", "Moon"}) {
            TaggedTime rise;
            TaggedTime set;
            modriseset(body, day - place.zone / 24, rise, set);
            const Events fast = events(day, longitude, latitude, body);
            const auto compare = [&](const TaggedTime& complete, const TaggedTime& quick) {
                if (hours_of(complete) == nullptr || hours_of(quick) == nullptr)
                    return;
                worst = std::max(worst, std::fabs(*hours_of(complete) - *hours_of(quick)) * 3600);
                ++compared;
            };
            compare(rise, fast.rise);
            compare(set, fast.set);
        }
    }
    EXPECT_GT(compared, 780);
    EXPECT_LT(worst, 40);
    RecordProperty("worst_seconds", std::to_string(worst));
}

// --- Interpolated places ----------------------------------------------------------------------------------

class Interpolation : public FastEvents {
protected:
    Ephemeris by_the_series{loaded_theory()};
    Ephemeris interpolated{loaded_theory(), SeriesUse::interpolated};
};

TEST(InterpolatedYear, GivesTheMediumSunsOwnPlaces) {
    const TemporaryProgramFolder folder;
    load_term();
    load_mterm();
    Ephemeris by_the_series(loaded_theory());
    Ephemeris year(loaded_theory(), SeriesUse::interpolated_year);
    double worst = 0;
    for (const double first : {2415020.5, 2451544.5, 2461041.5, 2488069.5})
        for (int i = 0; i < 9000; ++i) {
            const Instant instant = Instant::of_ut1(first + 0.0417 * i);
            const SunPlace sun = geocentric_sun_medium(by_the_series, instant);
            const SunPlace near = geocentric_sun_medium(year, instant);
            worst = std::max({worst, std::fabs(rev180(sun.right_ascension - near.right_ascension)),
                              std::fabs(sun.declination - near.declination)});
            ASSERT_NEAR(sun.radius, near.radius, 1e-12);
        }
    EXPECT_LT(worst, 3e-10);
}

TEST_F(Interpolation, GivesTheSeriesOwnPlaces) {
    const Observer observer = observer_at(-70, -40, 0);
    double worst_moon = 0;
    double worst_sun = 0;
    double worst_distance = 0;
    double worst_sidereal = 0;
    for (int i = 0; i < 4000; ++i) {
        const int pair = i / 2;
        const double jd = 2415020.5 + 36.524631 * pair + 0.317 * (i % 2);
        const Instant instant = Instant::of_ut1(jd);
        const auto places = [&observer, &instant](Ephemeris& ephemeris) {
            return std::tuple(moon_fast(ephemeris, instant, observer), sun_fast(ephemeris, instant, observer),
                              sidereal_time(ephemeris, instant), low_sidereal_time(ephemeris, instant));
        };
        const auto [moon, sun, sidereal, low_sidereal] = places(by_the_series);
        const auto [near_moon, near_sun, near_sidereal, near_low_sidereal] = places(interpolated);
        const auto apart = [](double a, double b) { return std::fabs(rev180(a - b)); };
        worst_moon = std::max({worst_moon, apart(moon.longitude, near_moon.longitude),
                               apart(moon.latitude, near_moon.latitude),
                               apart(moon.topocentric_right_ascension, near_moon.topocentric_right_ascension),
                               apart(moon.topocentric_declination, near_moon.topocentric_declination)});
        worst_sun = std::max({worst_sun, apart(sun.longitude, near_sun.longitude),
                              apart(sun.topocentric_declination, near_sun.topocentric_declination)});
        worst_distance = std::max(worst_distance, std::fabs(moon.distance - near_moon.distance));
        worst_sidereal = std::max(
            {worst_sidereal, apart(sidereal, near_sidereal), apart(low_sidereal, near_low_sidereal)});
    }
    EXPECT_LT(worst_moon, 3e-10);
    EXPECT_LT(worst_sun, 3e-10);
    EXPECT_LT(worst_distance, 1e-6);
    EXPECT_LT(worst_sidereal, 3e-10);
    RecordProperty("worst_moon_degrees", std::to_string(worst_moon * 1e12) + "e-12");
}

TEST_F(Interpolation, HonoursTheTimeScale) {
    const Observer observer = observer_at(10, 50, 0);
    const auto longitude = [&observer](Ephemeris& ephemeris, const Instant& instant) {
        return moon_fast(ephemeris, instant, observer).topocentric_longitude;
    };
    const Instant dynamical = Instant::of_dynamical(2460000.25);
    EXPECT_NEAR(longitude(interpolated, dynamical), longitude(by_the_series, dynamical), 3e-10);
    const Instant universal = Instant::of_ut1(2460000.25);
    EXPECT_GT(std::fabs(longitude(interpolated, universal) - longitude(by_the_series, dynamical)), 1e-4);
}

TEST_F(Interpolation, IsLeftAsideForInstantsBeyondAnyEpoch) {
    const Observer observer = observer_at(10, 50, 0);
    const Instant far = Instant::of_ut1(1e12);
    EXPECT_EQ(moon_fast(interpolated, far, observer).distance,
              moon_fast(by_the_series, far, observer).distance);
}

} // namespace
} // namespace halvane
