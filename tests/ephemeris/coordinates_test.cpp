// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"

#include "ephemeris/modgeneral.h"
#include "ephemeris/orientation.h"
#include "routines/modcoordinates.h"
#include "routines/modearthorientation.h"
#include "routines/namedengine.h"
#include "tests/ephemeris/observed.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvane {
namespace {

using Coordinates = EphemerisTest;

struct Pair {
    double first = 0, second = 0;
};

// Meeus, example 11.a: the Palomar Observatory.
TEST(EarthGlobe, IsThatOfTheBook) {
    Pair rho;
    modearthglobe(dms(33, 21, 22), 1706, rho.first, rho.second);
    EXPECT_NEAR(rho.first, 0.546861, 5e-7);
    EXPECT_NEAR(rho.second, 0.836339, 5e-7);
}

TEST(EarthGlobe, HasItsRadiiAtEquatorAndPole) {
    Pair rho;
    modearthglobe(0, 0, rho.first, rho.second);
    EXPECT_EQ(rho.first, 0);
    EXPECT_EQ(rho.second, 1);
    modearthglobe(90, 0, rho.first, rho.second);
    EXPECT_NEAR(rho.first, 0.99664719, 1e-14);
    EXPECT_NEAR(rho.second, 0, 1e-14);
    modearthglobe(-90, 6378.14, rho.first, rho.second);
    EXPECT_NEAR(rho.first, -0.99664719 - 0.001, 1e-12);
    modearthglobe(0, 6378.14, rho.first, rho.second);
    EXPECT_NEAR(rho.second, 1.001, 1e-12);
}

TEST(EarthGlobe, AtSeaLevelHasTheCosineOfTheReducedLatitude) {
    for (double latitude = -80; latitude <= 80; latitude += 7) {
        Pair rho;
        modearthglobe(latitude, 0, rho.first, rho.second);
        EXPECT_EQ(rho.second, std::cos(std::atan(0.99664719 * std::tan(latitude * radians_per_degree))));
    }
}

// Meeus, example 13.a: Pollux.
TEST(EclipticToEquatorial, IsThatOfTheBook) {
    Pair place;
    modeclequa(pi, 0, 23.4392911, 113.215630, 6.684170, place.first, place.second);
    EXPECT_NEAR(place.first, 116.328942, 1e-6);
    EXPECT_NEAR(place.second, 28.026183, 1e-6);
}

TEST(EclipticToEquatorial, TurnsTheSkyAboutTheEquinox) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> longitude(0, 360);
    std::uniform_real_distribution<double> latitude(-89, 89);
    std::uniform_real_distribution<double> tilt(22, 25);
    for (int i = 0; i < 1000; ++i) {
        const double l = longitude(random) * radians_per_degree;
        const double b = latitude(random) * radians_per_degree;
        const double e = tilt(random) * radians_per_degree;
        Pair place;
        modeclequa(pi, 0, e * degrees_per_radian, l * degrees_per_radian, b * degrees_per_radian, place.first,
                   place.second);
        const double a = place.first * radians_per_degree;
        const double d = place.second * radians_per_degree;
        EXPECT_GE(place.first, 0);
        EXPECT_LT(place.first, 360);
        // The unit vector turned by the obliquity about the x axis.
        EXPECT_NEAR(std::cos(d) * std::cos(a), std::cos(b) * std::cos(l), 1e-13);
        EXPECT_NEAR(std::cos(d) * std::sin(a),
                    std::cos(b) * std::sin(l) * std::cos(e) - std::sin(b) * std::sin(e), 1e-13);
        EXPECT_NEAR(std::sin(d), std::cos(b) * std::sin(l) * std::sin(e) + std::sin(b) * std::cos(e), 1e-13);
    }
}

// Meeus, example 13.b: Venus from the U.S. Naval Observatory; azimuths from south in the book,
// whose hour angle is 64.352133 deg: 1.4e-4 deg from the sum of its parts.
TEST_F(Coordinates, HorizontalPlaceIsThatOfTheBook) {
    stand_at(-dms(77, 3, 56), dms(38, 55, 17), 0);
    Pair place;
    modaltazm(2446896.30625, 347.3193375, -6.719892, place.first, place.second);
    EXPECT_NEAR(place.first, 15.1249, 0.00015);
    EXPECT_NEAR(place.second, 68.0337 + 180, 0.00015);
}

TEST_F(Coordinates, BodyOnTheMeridianStandsInTheSouthOrNorth) {
    stand_at(36, 31, 0);
    double sidereal_time = 0;
    modsiderial(2460000.5, sidereal_time);
    Pair place;
    modaltazm(2460000.5, sidereal_time + 36, 10, place.first, place.second);
    EXPECT_NEAR(place.first, 90 - 31 + 10, 1e-9);
    EXPECT_NEAR(place.second, 180, 1e-6);
    modaltazm(2460000.5, sidereal_time + 36, 60, place.first, place.second);
    EXPECT_NEAR(place.first, 90 - 60 + 31, 1e-9);
    EXPECT_NEAR(std::remainder(place.second, 360), 0, 1e-6);
}

TEST_F(Coordinates, RisingBodyStandsInTheEast) {
    stand_at(36, 31, 0);
    double sidereal_time = 0;
    modsiderial(2460000.5, sidereal_time);
    Pair place;
    modaltazm(2460000.5, sidereal_time + 36 + 90, 0, place.first, place.second);
    EXPECT_NEAR(place.first, 0, 1e-9);
    EXPECT_NEAR(place.second, 90, 1e-6);
}

TEST_F(Coordinates, HorizontalPlacesComeBack) {
    std::mt19937 random(4);
    std::uniform_real_distribution<double> azimuth(0, 360);
    std::uniform_real_distribution<double> altitude(-85, 85);
    std::uniform_real_distribution<double> date(2415020.5, 2488069.5);
    for (const double latitude : {-72.5, -33.0, 0.25, 21.42, 52.0, 66.5}) {
        stand_at(39.8, latitude, 300);
        for (int i = 0; i < 100; ++i) {
            const double h = altitude(random);
            const double a = azimuth(random);
            const double jd = date(random);
            Pair equatorial;
            Pair back;
            modaltazmequa(jd, h, a, equatorial.first, equatorial.second);
            EXPECT_GE(equatorial.first, 0);
            EXPECT_LT(equatorial.first, 360);
            modaltazm(jd, equatorial.first, equatorial.second, back.first, back.second);
            EXPECT_NEAR(back.first, h, 1e-8);
            EXPECT_LT(separation(back.second, a) * std::cos(h * radians_per_degree), 1e-8);
        }
    }
}

TEST_F(Coordinates, ObserverFollowsTheStoredLocation) {
    Pair here;
    Pair there;
    stand_at(36, 31, 0);
    modaltazm(2460000.5, 100, 10, here.first, here.second);
    stand_at(-36, -31, 0);
    modaltazm(2460000.5, 100, 10, there.first, there.second);
    EXPECT_GT(std::fabs(here.first - there.first), 1);
    Pair given;
    altazm_of(named_ephemeris(), named_instant(2460000.5), observer_at(36, 31, 0), 100, 10, given.first,
              given.second);
    EXPECT_EQ(given.first, here.first);
    EXPECT_EQ(given.second, here.second);
}

// Meeus, chapter 40, exercise: a body at 181 deg 46' 22.5", +2 deg 17' 26.2" with a parallax of 59' 27.7" and
// a semidiameter of 16' 15.5", at latitude 50 deg 5' 7.8", sea level, obliquity 23 deg 28' 0.8", local
// sidereal time 209 deg 46' 7.9": 181 deg 48' 5.0", +1 deg 29' 7.1", 16' 25.5".
TEST_F(Coordinates, TopocentricPlaceIsThatOfTheBook) {
    const double jd = 2448000.5;
    double at_greenwich = 0;
    modlasttdt(jd, 0, 0, 0, at_greenwich);
    const double parallax = dms(0, 59, 27.7);
    const double distance = 6378.137 / std::sin(parallax * radians_per_degree);
    const double longitude = dms(209, 46, 7.9) - at_greenwich;
    TopocentricPlace place;
    modecltopolow(longitude, dms(50, 5, 7.8), pi, jd, dms(23, 28, 0.8), 0, dms(181, 46, 22.5),
                  dms(2, 17, 26.2), distance, place.longitude, place.latitude, place.semidiameter,
                  place.topocentric_semidiameter, place.parallax, 'M');
    EXPECT_NEAR(place.longitude, dms(181, 48, 5.0), 0.06 * arc_second);
    EXPECT_NEAR(place.latitude, dms(1, 29, 7.1), 0.06 * arc_second);
    EXPECT_NEAR(place.parallax, parallax, 1e-9);
    // The book's semidiameter is another body's; the ratio of both is the geometry's.
    EXPECT_NEAR(place.topocentric_semidiameter / place.semidiameter, dms(0, 16, 25.5) / dms(0, 16, 15.5),
                1e-4);
    EXPECT_NEAR(std::sin(place.semidiameter * radians_per_degree) / std::sin(parallax * radians_per_degree),
                0.2725076, 1e-12);
}

// Meeus, example 40.a: Mars at 0.37276 AU from Palomar, 2003 August 28, 3h 17m UT.
TEST_F(Coordinates, ParallaxOfABodyInAstronomicalUnitsIsThatOfTheBook) {
    stand_at(-hms(7, 47, 27), dms(33, 21, 22), 1706);
    const double jd = 2452879.63681;
    Pair nutation;
    double obliquity = 0;
    modobliquity(jd, nutation.first, nutation.second, obliquity);
    const double e = obliquity * radians_per_degree;
    const double a = 339.530208 * radians_per_degree;
    const double d = -15.771083 * radians_per_degree;
    const double longitude =
        std::atan2(std::sin(a) * std::cos(e) + std::tan(d) * std::sin(e), std::cos(a)) * degrees_per_radian;
    const double latitude =
        std::asin(std::sin(d) * std::cos(e) - std::cos(d) * std::sin(e) * std::sin(a)) * degrees_per_radian;
    TopocentricPlace place;
    modecltopo(pi, jd, obliquity, nutation.first, longitude, latitude, 0.37276, place.longitude,
               place.latitude, place.semidiameter, place.topocentric_semidiameter, place.parallax, 'S');
    EXPECT_NEAR(place.parallax * 3600, 23.592, 0.0005);
    EXPECT_NEAR(place.semidiameter * 0.37276 * 3600, 959.63, 0.0001);
    Pair equatorial;
    modeclequa(pi, jd, obliquity, place.longitude, place.latitude, equatorial.first, equatorial.second);
    EXPECT_NEAR(equatorial.first, hms(22, 38, 8.54), 0.006 * 15 * arc_second);
    EXPECT_NEAR(equatorial.second, -dms(15, 46, 30.0), 0.06 * arc_second);
}

TEST_F(Coordinates, TopocentricPlaceIsTheDifferenceOfTwoVectors) {
    std::mt19937 random(6);
    std::uniform_real_distribution<double> turn(0, 360);
    std::uniform_real_distribution<double> latitude(-80, 80);
    std::uniform_real_distribution<double> near_ecliptic(-6, 6);
    std::uniform_real_distribution<double> distance(356000, 407000);
    for (int i = 0; i < 500; ++i) {
        const Observer observer = observer_at(turn(random) - 180, latitude(random), 1500);
        const double jd = 2451545 + turn(random) * 30;
        const double l = turn(random);
        const double b = near_ecliptic(random);
        const double r = distance(random);
        const double e = 23.44 * radians_per_degree;
        const TopocentricPlace place =
            topocentric_place(observer, sky_frame(Instant::of_ut1(jd), 23.44, 0.003), l, b, r, 'M');
        double theta = 0;
        modlasttdt(jd, observer.longitude, e, 0.003, theta);
        theta *= radians_per_degree;
        const double x = observer.rho_cosine * std::cos(theta);
        const double y = observer.rho_cosine * std::sin(theta);
        const double z = observer.rho_sine;
        const double cb = std::cos(b * radians_per_degree);
        const double scale = r / 6378.137;
        const std::array<double, 3> seen{
            scale * cb * std::cos(l * radians_per_degree) - x,
            scale * cb * std::sin(l * radians_per_degree) - (y * std::cos(e) + z * std::sin(e)),
            scale * std::sin(b * radians_per_degree) - (z * std::cos(e) - y * std::sin(e))};
        const double far = std::hypot(seen[0], seen[1], seen[2]);
        EXPECT_LT(separation(place.longitude, std::atan2(seen[1], seen[0]) * degrees_per_radian), 1e-9);
        EXPECT_NEAR(place.latitude, std::asin(seen[2] / far) * degrees_per_radian, 1e-9);
        EXPECT_NEAR(place.topocentric_semidiameter, std::asin(0.2725076 / far) * degrees_per_radian, 1e-9);
    }
}

TEST_F(Coordinates, FastFormStandsAtSeaLevel) {
    stand_at(10, 45, 0);
    TopocentricPlace stored;
    TopocentricPlace given;
    for (const char body : {'S', 'M'}) {
        const double distance = body == 'S' ? 1.01 : 380000;
        modecltopo(pi, 2460000.5, 23.44, 0.001, 100, 2, distance, stored.longitude, stored.latitude,
                   stored.semidiameter, stored.topocentric_semidiameter, stored.parallax, body);
        modecltopolow(10, 45, pi, 2460000.5, 23.44, 0.001, 100, 2, distance, given.longitude, given.latitude,
                      given.semidiameter, given.topocentric_semidiameter, given.parallax, body);
        EXPECT_EQ(stored.longitude, given.longitude);
        EXPECT_EQ(stored.latitude, given.latitude);
        EXPECT_EQ(stored.semidiameter, given.semidiameter);
        EXPECT_EQ(stored.topocentric_semidiameter, given.topocentric_semidiameter);
        EXPECT_EQ(stored.parallax, given.parallax);
    }
    stand_at(10, 45, 4000);
    modecltopo(pi, 2460000.5, 23.44, 0.001, 100, 2, 380000, stored.longitude, stored.latitude,
               stored.semidiameter, stored.topocentric_semidiameter, stored.parallax, 'M');
    EXPECT_NE(stored.latitude, given.latitude);
}

// Meeus, chapter 16: at an apparent altitude of 0 the refraction is 34.5', at 0.5 deg 28.754' (example 16.a),
// at 10 deg 5.3', in the zenith near nothing.
TEST(Refraction, IsThatOfTheBook) {
    const auto minutes_at = [](double altitude) {
        double corrected = 0;
        modrefraction(altitude, corrected);
        return (corrected - altitude) * 60;
    };
    EXPECT_NEAR(minutes_at(0.5), 28.754, 0.0006);
    EXPECT_NEAR(minutes_at(0), 34.48, 0.02);
    EXPECT_NEAR(minutes_at(10), 5.3, 0.1);
    EXPECT_NEAR(minutes_at(45), 1.0, 0.02);
    EXPECT_NEAR(minutes_at(90), 0, 0.002);
}

// Meeus, example 21.b: theta Persei with its proper motion, 2028 November 13.19 TD and J2000.
TEST(Precession, ToJ2000IsThatOfTheBook) {
    Pair place;
    modequinox2000(2462088.69, 41.547214, 49.348483, place.first, place.second);
    EXPECT_NEAR(place.first, 41.054063, 2e-6);
    EXPECT_NEAR(place.second, 49.227750, 2e-6);
}

TEST(Precession, LeavesAPlaceOfJ2000AsItIs) {
    for (const double right_ascension : {0.0, 100.0, 359.5}) {
        Pair place;
        modequinox2000(2451545, right_ascension, -20, place.first, place.second);
        EXPECT_NEAR(place.first, right_ascension, 1e-11);
        EXPECT_NEAR(place.second, -20, 1e-11);
    }
    Pair turned;
    modequinox2000(2451545, -10, -20, turned.first, turned.second);
    EXPECT_NEAR(turned.first, 350, 1e-11);
}

/// The place of an equinox and equator of date from that of J2000.
/// Source  Lieske, Lederle, Fricke and Morando (1977), as Meeus, Astronomical Algorithms, (21.3) and (21.4).
Pair from_j2000(double jd, const Pair& place) {
    const double t = (jd - 2451545) / 36525;
    const double zeta = (2306.2181 * t + 0.30188 * t * t + 0.017998 * t * t * t) / 3600;
    const double z = (2306.2181 * t + 1.09468 * t * t + 0.018203 * t * t * t) / 3600;
    const double theta = (2004.3109 * t - 0.42665 * t * t - 0.041833 * t * t * t) / 3600 * radians_per_degree;
    const double a = (place.first + zeta) * radians_per_degree;
    const double delta = place.second * radians_per_degree;
    const double east = std::cos(delta) * std::sin(a);
    const double equinox =
        std::cos(theta) * std::cos(delta) * std::cos(a) - std::sin(theta) * std::sin(delta);
    const double pole = std::sin(theta) * std::cos(delta) * std::cos(a) + std::cos(theta) * std::sin(delta);
    return {std::atan2(east, equinox) * degrees_per_radian + z, std::asin(pole) * degrees_per_radian};
}

TEST(Precession, UndoesThatFromJ2000OverThreeThousandYears) {
    for (const double year : {-1000.0, 0.0, 1000.0, 1500.0, 2500.0, 3000.0}) {
        const double jd = 2451545 + (year - 2000) * 365.25;
        for (double right_ascension = 5; right_ascension < 360; right_ascension += 50)
            for (const double declination : {-60.0, -20.0, 0.0, 30.0, 60.0}) {
                const Pair of_date = from_j2000(jd, {right_ascension, declination});
                Pair place;
                modequinox2000(jd, of_date.first, of_date.second, place.first, place.second);
                EXPECT_NEAR(place.first, right_ascension, 0.01 * arc_second) << year;
                EXPECT_NEAR(place.second, declination, 0.01 * arc_second) << year;
            }
    }
}

// Meeus, exercise of chapter 21: Polaris precessed from J2000 to 2050 (13 apparent changes of the pole) and
// to 1900: 1h 22m 33.90s, +88 deg 46' 26.18"; 3h 48m 16.43s, +89 deg 27' 15.38", its proper motion included.
TEST(Precession, OfPolarisNearThePole) {
    Pair place;
    // 1900 January 0.3135: the mean place without the proper motion of 100 years (+0.19877s and -0.0152" a
    // year).
    modequinox2000(2415020.3135, hms(1, 22, 33.90), dms(88, 46, 26.18), place.first, place.second);
    EXPECT_NEAR(place.first, hms(2, 31, 48.704) - 0.19877 * 100 * 15 * arc_second, 2 * 15 * arc_second);
    EXPECT_NEAR(place.second, dms(89, 15, 50.72) + 0.0152 * 100 * arc_second, 0.5 * arc_second);
}

} // namespace
} // namespace halvane
