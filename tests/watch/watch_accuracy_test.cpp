// SPDX-License-Identifier: MIT
// Every row of some watches, and where their telescopes point, beside the Swiss Ephemeris.
#include "settings/enginesettings.h"
#include "tests/watch/watches.h"
#include "tools/measuring/swissephemeris.h"

#include <array>
#include <cmath>
#include <numbers>
#include <ostream>
#include <string>

namespace halvane {
namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double bound = 5.0 / 3600; // [deg]

struct TriedWatch {
    const char* place;
    DateNumbers date;
    CrescentKind kind;
};

void PrintTo(const TriedWatch& tried, std::ostream* stream) {
    *stream << tried.place;
}

constexpr std::array<TriedWatch, 6> tried_watches{{
    {"Amman", {2026, 2, 18}, CrescentKind::new_crescent},
    {"Makkah", {2026, 2, 18}, CrescentKind::new_crescent},
    {"Cape Town", {2026, 2, 18}, CrescentKind::new_crescent},
    {"Tromso", {2026, 2, 18}, CrescentKind::new_crescent},
    {"Jakarta", {2026, 2, 16}, CrescentKind::old_crescent},
    {"London", {2026, 2, 21}, CrescentKind::new_crescent},
}};

/// A body as its observer sees it.
struct View {
    swiss::Place place;
    swiss::Horizontal horizontal;
};

View view_of(swiss::Body body, double universal, const Observer& observer) {
    const swiss::Place place = swiss::topocentric(body, swiss::dynamical_time(universal), observer.longitude,
                                                  observer.latitude, observer.height);
    return {place, swiss::horizontal(place, universal, observer.longitude, observer.latitude)};
}

/// A unit vector of a direction.
std::array<double, 3> vector_of(double longitude, double latitude) {
    return {std::cos(latitude * degree) * std::cos(longitude * degree),
            std::cos(latitude * degree) * std::sin(longitude * degree), std::sin(latitude * degree)};
}

double product(const std::array<double, 3>& a, const std::array<double, 3>& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The angle at `from` towards `to`, from the pole to growing longitudes, by projection on the plane that
/// touches the sphere there [deg]
double bearing(double longitude, double latitude, double to_longitude, double to_latitude) {
    const std::array<double, 3> to = vector_of(to_longitude, to_latitude);
    const std::array<double, 3> right{-std::sin(longitude * degree), std::cos(longitude * degree), 0};
    const std::array<double, 3> up = vector_of(longitude, latitude + 90);
    return std::atan2(product(to, right), product(to, up)) / degree;
}

class WatchAccuracy : public WatchTest, public testing::WithParamInterface<TriedWatch> {
protected:
    void SetUp() override {
        if (const std::string why = swiss::unavailable(); !why.empty())
            GTEST_SKIP() << "THE WATCH'S ACCURACY IS NOT MEASURED: " << why;
        watch = watch_at(GetParam().place, GetParam().date, GetParam().kind);
    }
    CrescentWatch watch;
};

void expect_place(double altitude, double azimuth, const View& view, const std::string& what) {
    EXPECT_NEAR(altitude, view.horizontal.altitude, bound) << what;
    EXPECT_NEAR(std::remainder(azimuth - view.horizontal.azimuth, 360) * std::cos(altitude * degree), 0,
                bound)
        << what;
}

TEST_P(WatchAccuracy, RowsAreThoseOfTheSwissEphemeris) {
    for (const WatchRow& row : watch.rows) {
        const View moon = view_of(swiss::Body::moon, row.universal, watch.observer);
        const View sun = view_of(swiss::Body::sun, row.universal, watch.observer);
        const std::string when = std::to_string(row.universal);
        expect_place(row.places.moon_altitude, row.places.moon_azimuth, moon, "Moon, " + when);
        expect_place(row.places.sun_altitude, row.places.sun_azimuth, sun, "Sun, " + when);
        const double elongation =
            std::acos(product(vector_of(moon.place.right_ascension, moon.place.declination),
                              vector_of(sun.place.right_ascension, sun.place.declination))) /
            degree;
        EXPECT_NEAR(row.places.elongation, elongation, 2 * bound) << when;
    }
}

TEST_P(WatchAccuracy, PointingIsThatOfTheSwissEphemeris) {
    constexpr double tenth = 0.1;
    const WatchPointing& pointing = watch.pointing.value();
    const View moon = view_of(swiss::Body::moon, pointing.universal, watch.observer);
    const View sun = view_of(swiss::Body::sun, pointing.universal, watch.observer);
    EXPECT_NEAR(std::remainder(pointing.of_date.right_ascension - moon.place.right_ascension, 360), 0, bound);
    EXPECT_NEAR(pointing.of_date.declination, moon.place.declination, bound);
    EXPECT_NEAR(std::remainder(swiss::sidereal_time(pointing.universal) + watch.observer.longitude -
                                   moon.place.right_ascension - pointing.hour_angle,
                               360),
                0, bound);
    EXPECT_NEAR(std::remainder(bearing(moon.place.right_ascension, moon.place.declination,
                                       sun.place.right_ascension, sun.place.declination) -
                                   pointing.bright_limb,
                               360),
                0, tenth);
    EXPECT_NEAR(std::remainder(bearing(sun.place.right_ascension, sun.place.declination,
                                       moon.place.right_ascension, moon.place.declination) -
                                   pointing.from_sun.angle,
                               360),
                0, tenth);
    EXPECT_NEAR(std::remainder(-bearing(moon.horizontal.azimuth, moon.horizontal.altitude,
                                        sun.horizontal.azimuth, sun.horizontal.altitude) -
                                   pointing.zenith_angle,
                               360),
                0, tenth);
}

INSTANTIATE_TEST_SUITE_P(OfTheWorld, WatchAccuracy, testing::ValuesIn(tried_watches), [](const auto& tried) {
    std::string name = tried.param.place;
    std::erase(name, ' ');
    return name;
});

} // namespace
} // namespace halvane
