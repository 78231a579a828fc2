// SPDX-License-Identifier: MIT
#include "telescope/pointing.h"

#include "base/failure.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "ephemeris/sun.h"
#include "routines/modcoordinates.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "routines/tdtinput.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tests/golden/goldenreport.h"
#include "tests/support/places.h"

#include <cmath>
#include <numbers>

namespace halvane {
namespace {

/// The pointing at the stored place.
std::optional<TelescopePointing> pointing_of(const TelescopeSettings& settings) {
    return telescope_pointing(loaded_theory(), settings, read_pref(), read_loc());
}

constexpr double degree = std::numbers::pi / 180;

struct Direction {
    double x, y, z;
};

Direction direction(double angle, double height) {
    return {std::cos(height * degree) * std::cos(angle * degree),
            std::cos(height * degree) * std::sin(angle * degree), std::sin(height * degree)};
}

double dot(const Direction& a, const Direction& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Direction cross(const Direction& a, const Direction& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double separation(const Direction& a, const Direction& b) {
    const Direction c = cross(a, b);
    return std::atan2(std::sqrt(dot(c, c)), dot(a, b)) / degree;
}

class Telescope : public ::testing::Test {
protected:
    Telescope() { load_series(); }

    static TelescopeSettings at(double year, double month, double day, double hour, double minute) {
        TelescopeSettings settings;
        settings.year = year;
        settings.month = month;
        settings.day = day;
        settings.hour = hour;
        settings.minute = minute;
        return settings;
    }
    static TelescopeSettings evening() { return at(2024, 3, 11, 18, 30); }

    static double instant_of(const TelescopeSettings& settings) {
        double jd = 0;
        modjul(settings.year, settings.month, settings.day,
               settings.hour + settings.minute / 60 - read_loc().zone, jd);
        return jd;
    }
    /// Airless altitude of the Moon's centre.
    static double moon_altitude(const TelescopeSettings& settings) {
        const double jd = instant_of(settings);
        const MoonPlace moon = moon_medium(named_ephemeris(), named_instant(jd), stored_observer());
        double altitude = 0;
        double azimuth = 0;
        modaltazm(jd, moon.topocentric_right_ascension, moon.topocentric_declination, altitude, azimuth);
        return altitude;
    }
    /// The minute of the evening at which the setting Moon comes nearest to an altitude.
    static TelescopeSettings when_setting_through(double altitude) {
        TelescopeSettings settings = at(2024, 3, 11, 18, 0);
        while (moon_altitude(settings) > altitude)
            settings.minute += 0.1;
        return settings;
    }

    TemporaryProgramFolder folder_{golden_folder("telescope")};
};

TEST_F(Telescope, AnswersWithTheMoonHalfADegreeBelowTheHorizon) {
    const TelescopeSettings settings = when_setting_through(-0.5);
    const auto pointing = pointing_of(settings);
    ASSERT_TRUE(pointing);
    EXPECT_NEAR(pointing->moon.altitude, -0.5, 0.03);
}

TEST_F(Telescope, RefusesWithTheMoonOneAndAHalfDegreesBelowTheHorizon) {
    EXPECT_FALSE(pointing_of(when_setting_through(-1.5)));
}

TEST_F(Telescope, TheLimitIsOneDegreeWhateverTheRefraction) {
    TelescopeSettings settings = when_setting_through(-0.97);
    settings.airless = false;
    EXPECT_TRUE(pointing_of(settings));
    settings = when_setting_through(-1.03);
    settings.airless = false;
    EXPECT_FALSE(pointing_of(settings));
}

TEST_F(Telescope, RefractionChangesTheRightAscensionOnlyThroughTheAltitude) {
    TelescopeSettings settings = evening();
    const TelescopePointing airless = *pointing_of(settings);
    settings.airless = false;
    const TelescopePointing refracted = *pointing_of(settings);
    const double jd = instant_of(settings);
    for (const auto& [before, after] :
         {std::pair(airless.moon, refracted.moon), std::pair(airless.crescent, refracted.crescent)}) {
        double raised = 0;
        modrefraction(before.altitude, raised);
        EXPECT_EQ(after.altitude, raised);
        EXPECT_EQ(after.azimuth, before.azimuth);
        EXPECT_GT(std::fabs(after.right_ascension - before.right_ascension), 0.01);
        double right_ascension = 0;
        double declination = 0;
        modaltazmequa(jd, after.altitude, after.azimuth, right_ascension, declination);
        EXPECT_EQ(after.right_ascension, right_ascension);
        EXPECT_EQ(after.declination, declination);
    }
    EXPECT_EQ(refracted.zenith_angle, airless.zenith_angle);
}

TEST_F(Telescope, RefractionAtSixDegreesIsAboutEightMinutesOfArc) {
    TelescopeSettings settings = evening();
    const TelescopePointing airless = *pointing_of(settings);
    settings.airless = false;
    const TelescopePointing refracted = *pointing_of(settings);
    // Standard refraction for a true altitude of 6.27 deg, Meeus, chapter "Atmospheric Refraction": 8.0'.
    EXPECT_NEAR((refracted.moon.altitude - airless.moon.altitude) * 60, 8.0, 0.2);
}

TEST_F(Telescope, TheFlipsChangeNoNumber) {
    TelescopeSettings settings = evening();
    const TelescopePointing plain = *pointing_of(settings);
    settings.flip_horizontal = 1;
    settings.flip_vertical = 1;
    const TelescopePointing flipped = *pointing_of(settings);
    EXPECT_EQ(flipped.zenith_angle, plain.zenith_angle);
    EXPECT_EQ(flipped.crescent.altitude, plain.crescent.altitude);
    EXPECT_EQ(flipped.crescent.right_ascension, plain.crescent.right_ascension);
}

TEST_F(Telescope, J2000IsReachedByThePrecession) {
    TelescopeSettings settings = evening();
    const TelescopePointing of_date = *pointing_of(settings);
    settings.of_date = false;
    settings.j2000 = true;
    const TelescopePointing j2000 = *pointing_of(settings);
    for (const auto& [now, then] : {std::pair(of_date.sun, j2000.sun), std::pair(of_date.moon, j2000.moon),
                                    std::pair(of_date.crescent, j2000.crescent)}) {
        // General precession over 24.19 years: 46.1" a year in right ascension at the equator, 20.04" cos a
        // in declination.
        const double years = 24.19;
        const double moved = std::remainder(now.right_ascension - then.right_ascension, 360) * 3600;
        EXPECT_NEAR(moved, 46.12 * years, 20);
        EXPECT_NEAR((now.declination - then.declination) * 3600,
                    20.04 * years * std::cos(now.right_ascension * degree), 3);
        EXPECT_EQ(now.altitude, then.altitude);
        EXPECT_EQ(now.azimuth, then.azimuth);
    }
}

TEST_F(Telescope, WithoutRefractionThePlacesAreTheObserversOwn) {
    const TelescopeSettings settings = evening();
    const double jd = instant_of(settings);
    const TelescopePointing pointing = *pointing_of(settings);
    const SunPlace sun = sun_medium(named_ephemeris(), named_instant(jd), stored_observer());
    const MoonPlace moon = moon_medium(named_ephemeris(), named_instant(jd), stored_observer());
    EXPECT_NEAR(pointing.sun.right_ascension, sun.topocentric_right_ascension, 1e-9);
    EXPECT_NEAR(pointing.sun.declination, sun.topocentric_declination, 1e-9);
    EXPECT_NEAR(pointing.moon.right_ascension, moon.topocentric_right_ascension, 1e-9);
    EXPECT_NEAR(pointing.moon.declination, moon.topocentric_declination, 1e-9);
}

TEST_F(Telescope, SummerTimeOfThePreferencesMovesTheInstantByAnHour) {
    const TelescopePointing winter = *pointing_of(evening());
    Preferences preferences;
    preferences.summer_time = "1";
    preferences.summer_from_month = 3;
    preferences.summer_from_day = 11;
    write_pref(preferences);
    const TelescopePointing summer = *pointing_of(at(2024, 3, 11, 19, 30));
    EXPECT_NEAR(summer.moon.altitude, winter.moon.altitude, 1e-6);
    EXPECT_NEAR(summer.sun.azimuth, winter.sun.azimuth, 1e-6);
}

TEST_F(Telescope, TheOpenReferenceOfAnotherPanelDoesNotReachTheNumbers) {
    const TelescopePointing alone = *pointing_of(evening());
    const TdtSpan other(1);
    EXPECT_EQ(pointing_of(evening())->moon.altitude, alone.moon.altitude);
    EXPECT_EQ(tdtinput, 1);
}

TEST_F(Telescope, TheCrescentOfTheMarchEveningLooksDownToTheSetSun) {
    // The Sun is 17 deg below the Moon and 3 deg to the right of it (greater azimuth).
    const TelescopePointing pointing = *pointing_of(evening());
    EXPECT_LT(pointing.crescent.altitude, pointing.moon.altitude);
    EXPECT_GT(pointing.crescent.azimuth, pointing.moon.azimuth);
    EXPECT_NEAR(pointing.zenith_angle, 191, 2);
}

/// The crescent against the Sun and the Moon of the same instant.
struct Orientation {
    double elongation = 0;     ///< [deg]
    double from_moon = 0;      ///< of the crescent from the Moon's centre                    [deg]
    double from_sun = 0;       ///< of the crescent from the Sun                              [deg]
    double off_the_circle = 0; ///< of the crescent from the great circle of Sun and Moon     [deg]
};

Orientation orientation_of(const TelescopePointing& pointing) {
    const Direction sun = direction(-pointing.sun.azimuth, pointing.sun.altitude);
    const Direction moon = direction(-pointing.moon.azimuth, pointing.moon.altitude);
    const Direction crescent = direction(-pointing.crescent.azimuth, pointing.crescent.altitude);
    const Direction pole = cross(moon, sun);
    return {separation(sun, moon), separation(moon, crescent), separation(sun, crescent),
            std::fabs(std::asin(dot(pole, crescent) / std::sqrt(dot(pole, pole))) / degree)};
}

TEST_F(Telescope, TheCrescentLiesOnTheDiscTowardsTheSunForTwoHundredInstants) {
    // The limb's position angle is that of the geocentric places; the parallax turns the great circle at the
    // Moon by HP / sin E at most, which is less than 0.02 deg at the limb for elongations E from 15 to 165
    // deg.
    constexpr double nearest_elongation = 15;
    int seen = 0;
    for (int day = 0; seen < 200 && day < 800; ++day) {
        const TelescopeSettings settings = at(2023, 1, 1 + day, 17 + day % 5, 13 * (day % 4));
        const auto pointing = pointing_of(settings);
        if (!pointing || pointing->moon.altitude > 75)
            continue;
        const MoonPlace moon =
            moon_medium(named_ephemeris(), named_instant(instant_of(settings)), stored_observer());
        const Orientation seen_so = orientation_of(*pointing);
        const double turned = moon.topocentric_semidiameter * std::sin(moon.parallax * degree) /
                              std::sin(seen_so.elongation * degree);
        EXPECT_LT(seen_so.off_the_circle, turned + 0.002) << day;
        if (seen_so.elongation < nearest_elongation || seen_so.elongation > 180 - nearest_elongation)
            continue;
        ++seen;
        EXPECT_LT(seen_so.off_the_circle, 0.02) << day;
        EXPECT_NEAR(seen_so.from_moon, moon.topocentric_semidiameter, 0.005) << day;
        EXPECT_LT(seen_so.from_sun, seen_so.elongation) << day;
    }
    EXPECT_EQ(seen, 200);
}

TEST_F(Telescope, ADateWithoutAFiniteDayIsARunTimeFailure) {
    EXPECT_THROW(pointing_of(at(1.7e308, 1, 1, 0, 0)), RunTimeFailure);
    EXPECT_THROW(pointing_of(at(1e200, 1, 1, 0, 0)), RunTimeFailure);
}

// Meeus, Astronomical Algorithms, example 48.a: 1992 April 12, 0 h dynamical time, 59 s ahead of UT.
TEST_F(Telescope, ThePhaseIsThatOfTheExampleOfMeeus) {
    const auto pointing = telescope_pointing(loaded_theory(), at(1992, 4, 11, 23, 59), Preferences{},
                                             place_at({0, 0}, {0, 0}, 0, "Null"));
    ASSERT_TRUE(pointing);
    EXPECT_NEAR(pointing->phase.fraction, 0.6786, 0.00005);
    EXPECT_NEAR(pointing->phase.limb_angle, 285.0, 0.05);
    EXPECT_TRUE(pointing->phase.waxing);
}

// Last quarter on 1992 April 24, 21:40 UT (Astronomical Almanac).
TEST_F(Telescope, TheMoonOfTheMorningWanes) {
    const auto pointing = telescope_pointing(loaded_theory(), at(1992, 4, 25, 6, 0), Preferences{},
                                             place_at({0, 0}, {0, 0}, 0, "Null"));
    ASSERT_TRUE(pointing);
    EXPECT_FALSE(pointing->phase.waxing);
    EXPECT_NEAR(pointing->phase.fraction, 0.5, 0.05);
}

} // namespace
} // namespace halvane
