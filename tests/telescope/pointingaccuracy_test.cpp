// SPDX-License-Identifier: MIT
#include "calendar/modjul.h"
#include "ephemeris/series.h"
#include "routines/seriesloader.h"
#include "stored/loc.h"
#include "telescope/pointing.h"
#include "tests/golden/goldenreport.h"
#include "tools/measuring/swissephemeris.h"

#include <cmath>
#include <numbers>
#include <optional>
#include <random>

namespace halvane {
namespace {

/// The pointing at the stored place.
std::optional<TelescopePointing> pointing_of(const TelescopeSettings& settings) {
    return telescope_pointing(loaded_theory(), settings, read_pref(), read_loc());
}

constexpr double degree = std::numbers::pi / 180;

double seconds_apart(double a, double b) {
    return std::fabs(std::remainder(a - b, 360)) * 3600;
}

struct SkyView {
    swiss::Place place;
    swiss::Horizontal horizontal;
};

/// The observer's view by the Swiss Ephemeris.
SkyView swiss_view(swiss::Body body, double ut) {
    const Location& location = read_loc();
    const double longitude = longitude_of(location);
    const double latitude = latitude_of(location);
    const swiss::Place place =
        swiss::topocentric(body, swiss::dynamical_time(ut), longitude, latitude, location.elevation);
    return {place, swiss::horizontal(place, ut, longitude, latitude)};
}

void expect_near(const SkyPlace& found, const SkyView& swiss, const std::string& where) {
    constexpr double bound = 5;
    EXPECT_LE(seconds_apart(found.right_ascension, swiss.place.right_ascension) *
                  std::cos(swiss.place.declination * degree),
              bound)
        << where;
    EXPECT_LE(seconds_apart(found.declination, swiss.place.declination), bound) << where;
    EXPECT_LE(seconds_apart(found.altitude, swiss.horizontal.altitude), bound) << where;
    EXPECT_LE(seconds_apart(found.azimuth, swiss.horizontal.azimuth) *
                  std::cos(swiss.horizontal.altitude * degree),
              bound)
        << where;
}

/// Bearing of `to` seen from `from`, from the zenith towards greater azimuth             [deg]
double bearing(const swiss::Horizontal& from, const swiss::Horizontal& to) {
    const double difference = (to.azimuth - from.azimuth) * degree;
    const double h = from.altitude * degree;
    const double other = to.altitude * degree;
    return std::atan2(std::cos(other) * std::sin(difference),
                      std::cos(h) * std::sin(other) - std::sin(h) * std::cos(other) * std::cos(difference)) /
           degree;
}

double separation(const swiss::Horizontal& a, const swiss::Horizontal& b) {
    return std::acos(std::sin(a.altitude * degree) * std::sin(b.altitude * degree) +
                     std::cos(a.altitude * degree) * std::cos(b.altitude * degree) *
                         std::cos((a.azimuth - b.azimuth) * degree)) /
           degree;
}

class TelescopeAccuracy : public ::testing::Test {
protected:
    void SetUp() override {
        if (const std::string why = swiss::unavailable(); !why.empty())
            GTEST_SKIP() << "THE TELESCOPE'S ACCURACY IS NOT MEASURED: " << why;
        set_program_folder(HALVANE_DATA);
        load_series();
        folder_.emplace(golden_folder("telescope"));
    }

    /// Calls `check` with the pointing and the UT1 of 200 instants at which the Moon is up.
    template <class Accepted, class Check>
    void at_two_hundred_instants(Accepted accepted, Check check) {
        std::mt19937 generator(10); // NOLINT: the same instants at every run
        const auto below = [&generator](unsigned limit) { return static_cast<double>(generator() % limit); };
        for (int seen = 0; seen < 200;) {
            TelescopeSettings settings;
            settings.year = 1950 + below(100);
            settings.month = 1 + below(12);
            settings.day = 1 + below(28);
            settings.hour = below(24);
            settings.minute = below(60);
            double ut = 0;
            modjul(settings.year, settings.month, settings.day,
                   settings.hour + settings.minute / 60 - read_loc().zone, ut);
            const auto pointing = pointing_of(settings);
            if (!pointing || !accepted(ut))
                continue;
            ++seen;
            check(*pointing, ut);
        }
    }

    std::optional<TemporaryProgramFolder> folder_;
};

TEST_F(TelescopeAccuracy, SunAndMoonAreWithinFiveSecondsOfArc) {
    at_two_hundred_instants([](double) { return true; },
                            [](const TelescopePointing& pointing, double ut) {
                                const std::string where = "Julian day " + std::to_string(ut);
                                expect_near(pointing.sun, swiss_view(swiss::Body::sun, ut), "Sun, " + where);
                                expect_near(pointing.moon, swiss_view(swiss::Body::moon, ut),
                                            "Moon, " + where);
                            });
}

TEST_F(TelescopeAccuracy, TheCrescentIsOnTheMoonsEdgeOnTheGreatCircleToTheSun) {
    // The limb's position angle is geocentric: nearer than 15 deg to the Sun or to the point opposite, the
    // observer's great circle is turned by the parallax.
    const auto apart_enough = [](double ut) {
        const double elongation = separation(swiss_view(swiss::Body::sun, ut).horizontal,
                                             swiss_view(swiss::Body::moon, ut).horizontal);
        return elongation > 15 && elongation < 165;
    };
    at_two_hundred_instants(apart_enough, [](const TelescopePointing& pointing, double ut) {
        const swiss::Horizontal sun = swiss_view(swiss::Body::sun, ut).horizontal;
        const SkyView moon = swiss_view(swiss::Body::moon, ut);
        const swiss::Horizontal crescent{pointing.crescent.altitude, pointing.crescent.azimuth};
        const double from_moon = separation(moon.horizontal, crescent);
        const double turned =
            std::remainder(bearing(moon.horizontal, crescent) - bearing(moon.horizontal, sun), 360);
        const double radius = std::asin(0.2725076 * 6378.137 / moon.place.distance) / degree;
        EXPECT_NEAR(from_moon, radius, 0.02) << ut;
        EXPECT_LT(std::fabs(std::asin(std::sin(from_moon * degree) * std::sin(turned * degree)) / degree),
                  0.02)
            << ut;
        EXPECT_LT(std::fabs(turned), 90) << ut;
    });
}

} // namespace
} // namespace halvane
