// SPDX-License-Identifier: MIT
#include "telescope/pointing.h"

#include "base/failure.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/illumination.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "settings/enginesettings.h"

#include <cmath>

namespace halvane {
namespace {

using std::cos;
using std::sin;
using std::tan;

constexpr double half_turn = 180; // [deg]

Instant instant_of(const TelescopeSettings& settings, const Preferences& preferences,
                   const Location& location) {
    const bool summer = in_summer_time(preferences, settings.year, settings.month, settings.day);
    const double zone = location.zone + (summer ? 1 : 0);
    double jd = 0;
    modjul(settings.year, settings.month, settings.day, settings.hour + settings.minute / 60 - zone, jd);
    return Instant::of_ut1(require_finite(jd, {"the telescope's date", "تاريخ التلسكوب"}));
}

SkyPlace topocentric_sky_place(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                               double right_ascension, double declination) {
    SkyPlace place;
    place.right_ascension = right_ascension;
    place.declination = declination;
    altazm_of(ephemeris, instant, observer, right_ascension, declination, place.altitude, place.azimuth);
    return place;
}

/// Angle at the Moon between the zenith and the north pole                               [deg]
double parallactic_angle(Ephemeris& ephemeris, const Instant& instant, const Observer& observer,
                         const MoonPlace& moon) {
    const double h =
        rev180(sidereal_time(ephemeris, instant) + observer.longitude - moon.topocentric_right_ascension) *
        radians_per_degree;
    const double d = moon.topocentric_declination * radians_per_degree;
    return atan2(tan(observer.latitude * radians_per_degree) * cos(d) - sin(d) * cos(h), sin(h)) *
           degrees_per_radian;
}

/// The point of the Moon's limb in the direction of `zenith_angle`.
SkyPlace limb_place(const SkyPlace& moon, double semidiameter, double zenith_angle) {
    const double z = zenith_angle * radians_per_degree;
    SkyPlace place;
    place.altitude = moon.altitude + semidiameter * cos(z);
    place.azimuth = moon.azimuth - semidiameter * sin(z) / cos(moon.altitude * radians_per_degree);
    return place;
}

void take_to_j2000(const Instant& instant, SkyPlace& place) {
    double right_ascension = 0;
    double declination = 0;
    precess_to_j2000(instant, place.right_ascension, place.declination, right_ascension, declination);
    place.right_ascension = right_ascension;
    place.declination = declination;
}

std::optional<TelescopePointing> pointing_of(Ephemeris& ephemeris, const TelescopeSettings& settings,
                                             const Preferences& preferences, const Location& location) {
    const Instant instant = instant_of(settings, preferences, location);
    const Observer observer = observer_of(location);
    const SunPlace sun = sun_medium(ephemeris, instant, observer);
    const MoonPlace moon = moon_medium(ephemeris, instant, observer);

    TelescopePointing pointing;
    pointing.sun = topocentric_sky_place(ephemeris, instant, observer, sun.topocentric_right_ascension,
                                         sun.topocentric_declination);
    pointing.moon = topocentric_sky_place(ephemeris, instant, observer, moon.topocentric_right_ascension,
                                          moon.topocentric_declination);
    if (require_finite(pointing.moon.altitude, {"the Moon's altitude", "ارتفاع القمر"}) <
        lowest_moon_altitude)
        return std::nullopt;
    const EquatorialPlace moon_centre{moon.right_ascension, moon.declination};
    const EquatorialPlace sun_centre{sun.right_ascension, sun.declination};
    const double limb_angle = bright_limb_angle(moon_centre, sun_centre);
    pointing.zenith_angle = rev360(limb_angle - parallactic_angle(ephemeris, instant, observer, moon));
    pointing.phase = {moon_illumination(moon_centre, sun_centre, sun.radius, moon.distance).fraction,
                      rev360(moon.longitude - sun.longitude) < half_turn, rev360(limb_angle)};
    pointing.crescent = limb_place(pointing.moon, moon.topocentric_semidiameter, pointing.zenith_angle);

    for (SkyPlace* place : {&pointing.sun, &pointing.moon, &pointing.crescent}) {
        if (!settings.airless)
            place->altitude = refracted(place->altitude);
        equatorial_of_altazm(ephemeris, instant, observer, place->altitude, place->azimuth,
                             place->right_ascension, place->declination);
        if (settings.j2000)
            take_to_j2000(instant, *place);
    }
    return pointing;
}

} // namespace

std::optional<TelescopePointing> telescope_pointing(const TheoryPointer& theory,
                                                    const TelescopeSettings& settings,
                                                    const Preferences& preferences,
                                                    const Location& location) {
    Ephemeris ephemeris(theory);
    return about_place(location.name, [&] {
        return about_day(DateNumbers{settings.year, settings.month, settings.day},
                         [&] { return pointing_of(ephemeris, settings, preferences, location); });
    });
}

} // namespace halvane
