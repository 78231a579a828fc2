// SPDX-License-Identifier: MIT
#include "ephemeris/ephemeris.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/orientationterms.h"
#include "ephemeris/sun.h"
#include "ephemeris/sunplace.h"

#include <cmath>
#include <limits>
#include <utility>

namespace halvane {

namespace {

constexpr std::size_t days_of_map = 8;
constexpr std::size_t days_of_year = 512;

std::size_t days_of_sun_and_earth(SeriesUse use) {
    return use == SeriesUse::interpolated_year ? days_of_year : days_of_map;
}

} // namespace

Ephemeris::Interpolated::Interpolated(const Theory& theory, SeriesUse use)
    : sun(theory, fast_sun_values, days_of_map), moon(theory, periodic_moon_values, days_of_map),
      orientation(theory, orientation_values, days_of_sun_and_earth(use)),
      low_orientation(theory, low_orientation_values, days_of_map) {
    if (use == SeriesUse::interpolated_year)
        earth.emplace(theory, earth_medium_values, days_of_year);
}

Ephemeris::Ephemeris(TheoryPointer theory, SeriesUse use) : theory_(std::move(theory)) {
    if (use != SeriesUse::each_instant)
        interpolated_ = std::make_unique<Interpolated>(*theory_, use);
}

const Orientation& Ephemeris::orientation(const Instant& instant) {
    if (orientation_of_ == instant)
        return orientation_;
    orientation_of_.reset();
    const double days = instant.dynamical() - epoch_j2000;
    const auto [nutation_longitude, nutation_obliquity, true_obliquity, none] =
        interpolated_ ? interpolated_->orientation.at(days) : orientation_values(*theory_, days);
    orientation_ = {nutation_longitude, nutation_obliquity, true_obliquity, days,
                    sky_frame(instant, true_obliquity, nutation_longitude)};
    orientation_of_ = instant;
    return orientation_;
}

const LowOrientation& Ephemeris::low_orientation(double days) {
    if (low_orientation_of_ == days)
        return low_orientation_;
    const auto [nutation_longitude, nutation_obliquity, true_obliquity, none] =
        interpolated_ ? interpolated_->low_orientation.at(days) : low_orientation_values(*theory_, days);
    const double epsilon = true_obliquity * radians_per_degree;
    low_orientation_ = {nutation_longitude, nutation_obliquity, true_obliquity, std::sin(epsilon),
                        std::cos(epsilon)};
    low_orientation_of_ = days;
    return low_orientation_;
}

double Ephemeris::sine_of_low_sun(const Observer& observer, const Instant& start, int hour) {
    if (low_sun_start_ != start || !(low_sun_observer_ == observer)) {
        low_sun_sines_.fill(std::numeric_limits<double>::quiet_NaN());
        low_sun_start_ = start;
        low_sun_observer_ = observer;
    }
    double& sine = low_sun_sines_[static_cast<std::size_t>(hour)];
    if (std::isnan(sine)) {
        const Instant instant = start.after_hours(hour);
        const SunPlace sun = geocentric_sun_low(*this, instant);
        sine = std::sin(altitude_of(*this, instant, observer, sun.right_ascension, sun.declination) *
                        radians_per_degree);
    }
    return sine;
}

namespace {

FastNoon noon_of(Ephemeris& ephemeris, Body body, const Instant& midnight) {
    FastNoon noon;
    noon.place = fast_place(ephemeris, body, midnight.after(0.5));
    const double delta = noon.place.declination * radians_per_degree;
    noon.sine_declination = std::sin(delta);
    noon.cosine_declination = std::cos(delta);
    noon.standard_altitude =
        body == Body::moon ? 0.7275 * moon_parallax(noon.place.distance) - 0.5667 : -0.833333;
    noon.sine_standard_altitude = std::sin(noon.standard_altitude * radians_per_degree);
    noon.sidereal_time = low_sidereal_time(ephemeris, midnight);
    return noon;
}

} // namespace

const FastNoon& Ephemeris::fast_noon(Body body, const Instant& midnight) {
    const std::size_t which = body == Body::moon ? 1 : 0;
    if (noon_of_[which] != midnight) {
        noons_[which] = noon_of(*this, body, midnight);
        noon_of_[which] = midnight;
    }
    return noons_[which];
}

} // namespace halvane
