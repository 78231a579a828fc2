#include "events/modriseset.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/correction.h"

#include <cmath>

namespace halvane {

double hours_to_altitude(double altitude, double h0, double cosine_latitude, double declination,
                         double hour_angle) {
    const double days = (altitude - h0) / (360 * std::cos(declination * radians_per_degree) *
                                           cosine_latitude * std::sin(hour_angle * radians_per_degree));
    return 24 * days;
}

bool has_left_the_theories(double hours) {
    constexpr double a_thousand_years = 8766e3;
    return !(std::fabs(hours) < a_thousand_years);
}

void modcrc(double& t, double jd0, double h0, double lat, double lon, std::string_view body) {
    const Observer& observer = stored_observer();
    const double jd = jd0 + t / 24;
    double right_ascension = 0;
    double declination = 0;
    if (body == "Moon") {
        const MoonPlace moon = geocentric_moon_medium(jd);
        right_ascension = moon.right_ascension;
        declination = moon.declination;
    } else {
        const SunPlace sun = geocentric_sun_medium(jd);
        right_ascension = sun.right_ascension;
        declination = sun.declination;
    }
    const double altitude = altitude_of(observer, jd, right_ascension, declination);
    double sidereal_time = 0;
    modsiderial(jd, sidereal_time);
    const double hour_angle = turn_into_360(sidereal_time + lon - right_ascension);
    t += hours_to_altitude(altitude, h0, std::cos(lat * radians_per_degree), declination, hour_angle);
}

} // namespace halvane
