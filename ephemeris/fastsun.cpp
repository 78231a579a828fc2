// SPDX-License-Identifier: MIT
#include "ephemeris/sun.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/orientationterms.h"
#include "ephemeris/sunplace.h"

namespace halvane {

namespace {

/// The fast geocentric ecliptic place, its latitude 0, with the orientation that it stands in.
struct FastSun {
    double longitude; ///< [deg]
    double radius;    ///< [AU]
    double obliquity; ///< [deg]
    double nutation;  ///< in longitude [deg]
};

FastSun fast_sun(Ephemeris& ephemeris, const Instant& instant) {
    const double days = instant.dynamical_as_of_ut1() - epoch_j2000;
    if (ephemeris.interpolated() == nullptr) {
        const auto [longitude, radius, obliquity, nutation] = fast_sun_values(ephemeris.theory(), days);
        return {longitude, radius, obliquity, nutation};
    }
    const auto [longitude, radius, obliquity, nutation] = ephemeris.interpolated()->sun.at(days);
    return {rev360(longitude), radius, obliquity, nutation};
}

SunPlace topocentric_sun(const FastSun& fast, const SkyFrame& frame, const Observer& observer) {
    SunPlace sun;
    sun.longitude = fast.longitude;
    sun.radius = fast.radius;
    add_topocentric(observer, frame, sun);
    return sun;
}

} // namespace

InterpolatedSeries::Values fast_sun_values(const Theory& /*theory*/, double days) {
    const double t = days / 36525;
    const LowSun low = low_sun(t);
    const double node = rev360(125.04452 - 1934.136261 * t);
    const double moon = rev360(218.3165 + 481267.8813 * t);
    const LowNutation nutation = low_nutation(
        node * radians_per_degree, low.mean_longitude * radians_per_degree, moon * radians_per_degree);
    return {low_apparent_longitude(low.true_longitude, node), low.radius,
            mean_obliquity(t / 100) + nutation.obliquity, nutation.longitude};
}

SunPlace sun_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    const FastSun fast = fast_sun(ephemeris, instant);
    const SkyFrame frame = sky_frame(instant, fast.obliquity, fast.nutation);
    SunPlace sun = topocentric_sun(fast, frame, observer);
    equatorial_of(frame, sun.longitude, sun.latitude, sun.right_ascension, sun.declination);
    return sun;
}

SunPlace topocentric_sun_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    const FastSun fast = fast_sun(ephemeris, instant);
    return topocentric_sun(fast, sky_frame(instant, fast.obliquity, fast.nutation), observer);
}

FastPlace sun_fast_place(Ephemeris& ephemeris, const Instant& instant) {
    const FastSun sun = fast_sun(ephemeris, instant);
    FastPlace place;
    equatorial_of(sun.obliquity, sun.longitude, 0, place.right_ascension, place.declination);
    place.distance = sun.radius;
    return place;
}

GeocentricPlace sun_fast_ecliptic(Ephemeris& ephemeris, const Instant& instant) {
    const FastSun sun = fast_sun(ephemeris, instant);
    return {sun.longitude, 0, sun.radius, sky_frame(instant, sun.obliquity, sun.nutation)};
}

} // namespace halvane
