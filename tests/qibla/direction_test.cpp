// SPDX-License-Identifier: MIT
#include "qibla/direction.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "base/record.h"
#include "tests/qibla/independentsun.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvane {
namespace {

using Vector = std::array<double, 3>;

constexpr double degree = 3.141592653589793 / 180;

Vector on_sphere(double longitude, double latitude) {
    return {std::cos(latitude * degree) * std::cos(longitude * degree),
            std::cos(latitude * degree) * std::sin(longitude * degree), std::sin(latitude * degree)};
}

Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The bearing as the angle between two planes: that of the meridian and that of the great circle.
double bearing_by_vectors(double longitude, double latitude) {
    const Vector place = on_sphere(longitude, latitude);
    const Vector meridian = cross(place, {0, 0, 1});
    const Vector circle = cross(place, on_sphere(39.8261167, 21.42263));
    const double bearing = std::atan2(dot(cross(circle, meridian), place), dot(circle, meridian)) / degree;
    return bearing < 0 ? bearing + 360 : bearing;
}

struct SeededPlaces {
    std::mt19937 generator{20240621};
    std::uniform_real_distribution<double> longitude{-180, 180};
    std::uniform_real_distribution<double> height{-1, 1};

    std::array<double, 2> next() { return {longitude(generator), std::asin(height(generator)) / degree}; }
};

TEST(QiblahDirection, IsTheGreatCircleBearingAtFiveHundredPlaces) {
    SeededPlaces places;
    for (int i = 0; i < 500; ++i) {
        const auto [longitude, latitude] = places.next();
        const double found = qiblah_bearing(longitude, latitude);
        EXPECT_LT(std::fabs(azimuth_difference(found, bearing_by_vectors(longitude, latitude))), 1e-9)
            << longitude << " " << latitude;
        EXPECT_GE(found, 0);
        EXPECT_LE(found, 360);
    }
}

TEST(QiblahDirection, IsRoundedToOneDecimalAtFiveHundredPlaces) {
    SeededPlaces places;
    for (int i = 0; i < 500; ++i) {
        const auto [longitude, latitude] = places.next();
        const double bearing = bearing_by_vectors(longitude, latitude);
        const float direction = qiblah_direction(longitude, latitude);
        EXPECT_NEAR(static_cast<double>(direction), bearing, 0.05001);
        EXPECT_EQ(direction, static_cast<float>(std::nearbyint(bearing * 10) / 10));
    }
}

TEST(QiblahDirection, OfEveryQuadrant) {
    EXPECT_GT(qiblah_bearing(0, 0), 0); // south-west of the Kaaba
    EXPECT_LT(qiblah_bearing(0, 0), 90);
    EXPECT_GT(qiblah_bearing(0, 60), 90);
    EXPECT_LT(qiblah_bearing(0, 60), 180);
    EXPECT_GT(qiblah_bearing(80, 60), 180);
    EXPECT_LT(qiblah_bearing(80, 60), 270);
    EXPECT_GT(qiblah_bearing(80, 0), 270);
    EXPECT_LT(qiblah_bearing(80, 0), 360);
}

TEST(QiblahDirection, StaysNorthOnTheMeridianOfTheKaabaEvenNorthOfIt) {
    EXPECT_EQ(qiblah_bearing(kaaba_longitude, 0), 0);
    EXPECT_EQ(qiblah_bearing(kaaba_longitude, 50), 0);
    EXPECT_EQ(plain_number(qiblah_direction(kaaba_longitude, 50)), "0");
}

TEST(QiblahDirection, JustWestOfNorthRoundsToAWholeTurn) {
    EXPECT_EQ(plain_number(qiblah_direction(kaaba_longitude + 0.001, 0)), "360");
}

TEST(QiblahDirection, WithoutDecimalsHasTheShortestText) {
    EXPECT_EQ(plain_number(qiblah_direction(-0.125, 51.5)), "119");
}

TEST(QiblahDirection, AtTheKaabaIsARunTimeFailure) {
    EXPECT_THROW(qiblah_direction(kaaba_longitude, kaaba_latitude), RunTimeFailure);
}

TEST(QiblahDirection, OfAPlaceThatIsNoNumberIsARunTimeFailure) {
    EXPECT_THROW(qiblah_direction(std::nan(""), 10), RunTimeFailure);
    EXPECT_THROW(qiblah_direction(10, HUGE_VAL), RunTimeFailure);
}

} // namespace
} // namespace halvane
