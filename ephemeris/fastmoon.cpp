// SPDX-License-Identifier: MIT
#include "ephemeris/coordinates.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/fastplace.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moonplace.h"

namespace halvane {

namespace {

/// The fast geocentric ecliptic place with the orientation that it stands in.
struct FastMoon {
    EclipticMoon place;
    const LowOrientation& orientation;
};

FastMoon fast_moon(Ephemeris& ephemeris, const Instant& instant) {
    const double days = instant.dynamical() - epoch_j2000;
    FastMoon moon{periodic_moon(ephemeris, days), ephemeris.low_orientation(days)};
    moon.place.longitude += moon.orientation.nutation_longitude;
    return moon;
}

} // namespace

MoonPlace moon_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    const FastMoon moon = fast_moon(ephemeris, instant);
    const SkyFrame frame = sky_frame(instant, moon.orientation);
    MoonPlace place = geocentric_moon(frame, moon.place);
    add_topocentric(observer, frame, place);
    return place;
}

MoonPlace topocentric_moon_fast(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    const FastMoon moon = fast_moon(ephemeris, instant);
    MoonPlace place = ecliptic_moon(moon.place);
    add_topocentric(observer, sky_frame(instant, moon.orientation), place);
    return place;
}

FastPlace moon_fast_place(Ephemeris& ephemeris, const Instant& instant) {
    const FastMoon moon = fast_moon(ephemeris, instant);
    FastPlace place;
    equatorial_of({moon.orientation.sine_obliquity, moon.orientation.cosine_obliquity}, moon.place.longitude,
                  moon.place.latitude, place.right_ascension, place.declination);
    place.distance = moon.place.distance;
    return place;
}

GeocentricPlace moon_fast_ecliptic(Ephemeris& ephemeris, const Instant& instant) {
    const FastMoon moon = fast_moon(ephemeris, instant);
    return {moon.place.longitude, moon.place.latitude, moon.place.distance,
            sky_frame(instant, moon.orientation)};
}

LongitudePair fast_longitudes(Ephemeris& ephemeris, const Instant& instant, const Observer& observer) {
    return topocentric_longitudes(observer, sun_fast_ecliptic(ephemeris, instant),
                                  moon_fast_ecliptic(ephemeris, instant));
}

FastPlace fast_place(Ephemeris& ephemeris, Body body, const Instant& instant) {
    return body == Body::moon ? moon_fast_place(ephemeris, instant) : sun_fast_place(ephemeris, instant);
}

} // namespace halvane
