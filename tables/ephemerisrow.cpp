// SPDX-License-Identifier: MIT
#include "tables/ephemerisrow.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"

#include <cmath>

namespace halvane {
namespace {

constexpr double sun_semidiameter_at_1_au = 0.266563888; // [deg], the table has its own last digit
constexpr double sun_parallax_at_1_au = 0.0024427777778; // [deg]

template <class Place>
EphemerisRow directions(const Place& place, bool geocentric) {
    EphemerisRow row;
    row.right_ascension = geocentric ? place.right_ascension : place.topocentric_right_ascension;
    row.declination = geocentric ? place.declination : place.topocentric_declination;
    row.longitude = geocentric ? place.longitude : place.topocentric_longitude;
    row.latitude = geocentric ? place.latitude : place.topocentric_latitude;
    return row;
}

EphemerisRow sun_row(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                     bool geocentric) {
    const SunPlace sun = sun_high(ephemeris, instant, observer);
    EphemerisRow row = directions(sun, geocentric);
    row.distance = sun.radius * astronomical_unit_km;
    row.semidiameter = sun_semidiameter_at_1_au / sun.radius;
    row.parallax =
        asin(std::sin(sun_parallax_at_1_au * radians_per_degree) / sun.radius) * degrees_per_radian;
    return row;
}

EphemerisRow moon_row(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                      bool geocentric) {
    const MoonPlace moon = moon_medium(ephemeris, instant, observer);
    EphemerisRow row = directions(moon, geocentric);
    row.distance = moon.distance;
    row.semidiameter = geocentric ? moon.semidiameter : moon.topocentric_semidiameter;
    row.parallax = moon.parallax;
    return row;
}

} // namespace

EphemerisRow ephemeris_row(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                           TableBody body, bool geocentric) {
    EphemerisRow row = body == TableBody::sun ? sun_row(ephemeris, instant, observer, geocentric)
                                              : moon_row(ephemeris, instant, observer, geocentric);
    altazm_of(ephemeris, instant, observer, row.right_ascension, row.declination, row.altitude, row.azimuth);
    row.delta_t = instant.delta_t() * 86400;
    return row;
}

} // namespace halvane
