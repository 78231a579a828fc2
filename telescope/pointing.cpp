#include "telescope/pointing.h"

#include "base/failure.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "calendar/modsummer.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "stored/loc.h"

#include <cmath>

namespace halvane {
namespace {

using std::cos;
using std::sin;
using std::tan;

double instant_of(const TelescopeSettings& settings) {
    int summer = 0;
    modsummer(settings.day, settings.month, settings.year, summer);
    const double zone = read_loc().zone + summer;
    double jd = 0;
    modjul(settings.year, settings.month, settings.day, settings.hour + settings.minute / 60 - zone, jd);
    return require_finite(jd, {"the telescope's date", "تاريخ التلسكوب"});
}

SkyPlace topocentric_sky_place(const Observer& observer, double jd, double right_ascension,
                               double declination) {
    SkyPlace place;
    place.right_ascension = right_ascension;
    place.declination = declination;
    altazm_of(observer, jd, right_ascension, declination, place.altitude, place.azimuth);
    return place;
}

/// Angle at the Moon between the zenith and the north pole                               [deg]
double parallactic_angle(const Observer& observer, double jd, const MoonPlace& moon) {
    double sidereal_time = 0;
    modsiderial(jd, sidereal_time);
    const double h =
        rev180(sidereal_time + observer.longitude - moon.topocentric_right_ascension) * radians_per_degree;
    const double d = moon.topocentric_declination * radians_per_degree;
    return atan2(tan(observer.latitude * radians_per_degree) * cos(d) - sin(d) * cos(h), sin(h)) *
           degrees_per_radian;
}

/// Position angle of the lit limb, from the north of the Moon's disc to the east        [deg]
double bright_limb_angle(const SunPlace& sun, const MoonPlace& moon) {
    const double difference = (sun.right_ascension - moon.right_ascension) * radians_per_degree;
    const double d0 = sun.declination * radians_per_degree;
    const double d = moon.declination * radians_per_degree;
    return atan2(sin(d0) * cos(d) - cos(d0) * sin(d) * cos(difference), cos(d0) * sin(difference)) *
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

void refract(SkyPlace& place) {
    double raised = 0;
    modrefraction(place.altitude, raised);
    place.altitude = raised;
}

void precess_to_j2000(double jd, SkyPlace& place) {
    double right_ascension = 0;
    double declination = 0;
    modequinox2000(jd, place.right_ascension, place.declination, right_ascension, declination);
    place.right_ascension = right_ascension;
    place.declination = declination;
}

std::optional<TelescopePointing> pointing_of(const TelescopeSettings& settings) {
    const TdtSpan universal_time(0);
    const double jd = instant_of(settings);
    const Observer observer = stored_observer();
    const SunPlace sun = sun_medium(observer, jd);
    const MoonPlace moon = moon_medium(observer, jd);

    TelescopePointing pointing;
    pointing.sun =
        topocentric_sky_place(observer, jd, sun.topocentric_right_ascension, sun.topocentric_declination);
    pointing.moon =
        topocentric_sky_place(observer, jd, moon.topocentric_right_ascension, moon.topocentric_declination);
    if (require_finite(pointing.moon.altitude, {"the Moon's altitude", "ارتفاع القمر"}) <
        lowest_moon_altitude)
        return std::nullopt;
    pointing.zenith_angle = rev360(bright_limb_angle(sun, moon) - parallactic_angle(observer, jd, moon));
    pointing.crescent = limb_place(pointing.moon, moon.topocentric_semidiameter, pointing.zenith_angle);

    for (SkyPlace* place : {&pointing.sun, &pointing.moon, &pointing.crescent}) {
        if (!settings.airless)
            refract(*place);
        modaltazmequa(jd, place->altitude, place->azimuth, place->right_ascension, place->declination);
        if (settings.j2000)
            precess_to_j2000(jd, *place);
    }
    return pointing;
}

} // namespace

std::optional<TelescopePointing> telescope_pointing(const TelescopeSettings& settings) {
    return about_place(read_loc().name, [&] {
        return about_day(DateNumbers{settings.year, settings.month, settings.day},
                         [&] { return pointing_of(settings); });
    });
}

} // namespace halvane
