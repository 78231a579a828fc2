#include "events/modlowriseset.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/correction.h"

#include <cmath>

namespace halvane {
namespace {

struct FastPlace {
    double right_ascension;
    double declination;
    double parallax; ///< of the Moon; 0 for the Sun
};

FastPlace place_of(std::string_view body, const Observer& observer, double jd) {
    if (body == "Moon") {
        const MoonPlace moon = moon_fast(observer, jd);
        return {moon.right_ascension, moon.declination, moon.parallax};
    }
    const SunPlace sun = sun_fast(observer, jd);
    return {sun.right_ascension, sun.declination, 0};
}

double into_day_once(double fraction) {
    if (fraction < 0)
        return fraction + 1;
    return fraction >= 1 ? fraction - 1 : fraction;
}

double corrected_by(double estimate, double midnight, double h0, const Observer& observer,
                    std::string_view body) {
    const double jd = midnight + estimate / 24;
    const FastPlace place = place_of(body, observer, jd);
    double altitude = 0;
    double azimuth = 0;
    altazm_of(observer, jd, place.right_ascension, place.declination, altitude, azimuth);
    double sidereal_time = 0;
    modsideriallow(jd, sidereal_time);
    const double hour_angle = turn_into_360(sidereal_time + observer.longitude - place.right_ascension);
    return estimate + hours_to_altitude(altitude, h0, observer.latitude, place.declination, hour_angle);
}

TaggedTime refined(double estimate, double midnight, double h0, const Observer& observer,
                   std::string_view body) {
    constexpr double tolerance = 0.008;
    constexpr int most_rounds = 6;
    double result = estimate;
    for (int round = 0; round < most_rounds; ++round) {
        result = corrected_by(estimate, midnight, h0, observer, body);
        if (std::fabs(result - estimate) <= tolerance)
            break;
        estimate = result;
    }
    if (result < 0 || result > 24)
        return NoEvent::none;
    return result;
}

} // namespace

double zone_of_longitude(double longitude) {
    return round_half_even(longitude / 15);
}

void modlowaltazm(double jd, double right_ascension, double declination, double longitude, double latitude,
                  double& altitude, double& azimuth) {
    altazm_of(observer_at(longitude, latitude, 0), jd, right_ascension, declination, altitude, azimuth);
}

void modvlowriseset(double estimate, double midnight, double h0, double latitude, double longitude,
                    std::string_view body, double& corrected) {
    corrected = corrected_by(estimate, midnight, h0, observer_at(longitude, latitude, 0), body);
}

void modlowriseset(double jd, double longitude, double latitude, std::string_view body, TaggedTime& rise,
                   TaggedTime& set) {
    const Observer observer = observer_at(longitude, latitude, 0);
    const double midnight = jd - zone_of_longitude(longitude) / 24;
    const FastPlace noon = place_of(body, observer, midnight + 0.5);
    double sidereal_time = 0;
    modsideriallow(midnight, sidereal_time);
    const double transit = into_day_once((noon.right_ascension - longitude - sidereal_time) / 360);
    const double h0 = body == "Moon" ? 0.7275 * noon.parallax - 0.5667 : -0.833333;

    const double delta = noon.declination * radians_per_degree;
    const double c = (std::sin(h0 * radians_per_degree) - observer.sine_latitude * std::sin(delta)) /
                     (observer.cosine_latitude * std::cos(delta));
    if (!(std::fabs(c) <= 1)) {
        rise = set = NoEvent::none;
        return;
    }
    const double arc = acos(c) * degrees_per_radian / 360;
    rise = refined(into_day_once(transit - arc) * 24, midnight, h0, observer, body);
    set = refined(into_day_once(transit + arc) * 24, midnight, h0, observer, body);
}

} // namespace halvane
