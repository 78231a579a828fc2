// SPDX-License-Identifier: MIT
#include "crescent/localsky.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "events/riseset.h"

#include <algorithm>
#include <cmath>

namespace halvane {
namespace {

double dot(const SkyVector& a, const SkyVector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double length(const SkyVector& a) {
    return std::sqrt(dot(a, a));
}

SkyVector less(const SkyVector& a, const SkyVector& b, double scale) {
    return {a[0] - scale * b[0], a[1] - scale * b[1], a[2] - scale * b[2]};
}

double degrees(double radians) {
    return radians * degrees_per_radian;
}

/// Of a Moon so far away: the arc sine by its series, to 2e-11 deg                 [km -> deg]
double moon_semidiameter(double distance) {
    const double sine = moon_over_earth_radius * earth_radius_km / distance;
    return degrees(sine * (1 + sine * sine / 6));
}

} // namespace

LocalSky::LocalSky(const SkyPlaces& places, const Observer& observer) : places_(places) {
    const double theta = (places.sidereal_time + observer.longitude) * radians_per_degree;
    const double sine = std::sin(theta);
    const double cosine = std::cos(theta);
    east_ = {-sine, cosine, 0};
    north_ = {-observer.sine_latitude * cosine, -observer.sine_latitude * sine, observer.cosine_latitude};
    up_ = {observer.cosine_latitude * cosine, observer.cosine_latitude * sine, observer.sine_latitude};
    place_ = {observer.rho_cosine * cosine, observer.rho_cosine * sine, observer.rho_sine};
}

SkyVector LocalSky::from_place(Body body) const {
    constexpr double earth_radius_au = sun_parallax_at_1_au * radians_per_degree;
    return less(centre(body), place_, body == Body::sun ? earth_radius_au : earth_radius_km);
}

double LocalSky::height_over_event(Body body) const {
    const SkyVector place = from_place(body);
    const double distance = length(place);
    const double semidiameter =
        body == Body::sun ? sun_semidiameter_at_1_au / distance : moon_semidiameter(distance);
    const double altitude = degrees(std::asin(dot(place, up_) / distance));
    return altitude + semidiameter + standard_horizon_refraction;
}

double LocalSky::hour_angle(Body body) const {
    const SkyVector& place = centre(body);
    // Towards the meridian is what up and north share.
    const double meridian = place[0] * east_[1] - place[1] * east_[0];
    return degrees(std::atan2(-dot(place, east_), meridian));
}

double LocalSky::sine_hour_angle(Body body) const {
    const SkyVector& place = centre(body);
    return -dot(place, east_) / std::hypot(place[0], place[1]);
}

double LocalSky::sine_declination(Body body) const {
    return centre(body)[2] / length(centre(body));
}

double LocalSky::cosine_declination(Body body) const {
    return std::hypot(centre(body)[0], centre(body)[1]) / length(centre(body));
}

HorizonPlace LocalSky::horizon_place(const SkyVector& place) const {
    const double azimuth = degrees(std::atan2(dot(place, east_), dot(place, north_)));
    return {degrees(std::asin(dot(place, up_) / length(place))), azimuth < 0 ? azimuth + 360 : azimuth};
}

CrescentQuantities LocalSky::quantities(const SkyVector& moon, const SkyVector& sun,
                                        double semidiameter) const {
    CrescentQuantities q;
    const HorizonPlace moon_place = horizon_place(moon);
    const HorizonPlace sun_place = horizon_place(sun);
    q.moon_altitude = moon_place.altitude;
    q.moon_azimuth = moon_place.azimuth;
    q.sun_altitude = sun_place.altitude;
    q.sun_azimuth = sun_place.azimuth;
    const double cosine = std::clamp(dot(moon, sun) / (length(moon) * length(sun)), -1.0, 1.0);
    const double sine = std::sqrt((1 - cosine) * (1 + cosine));
    const double sun_distance = length(places_.sun) * astronomical_unit_km;
    const double x = length(places_.moon) - sun_distance * cosine;
    const double y = sun_distance * sine;
    q.elongation = degrees(std::acos(cosine));
    q.phase_angle = degrees(std::atan2(y, x));
    q.illuminated_fraction = (1 + x / std::hypot(x, y)) / 2;
    q.semidiameter = semidiameter;
    q.width = 2 * q.illuminated_fraction * semidiameter;
    return q;
}

CrescentQuantities LocalSky::geocentric() const {
    return quantities(places_.moon, places_.sun, moon_semidiameter(length(places_.moon)));
}

CrescentQuantities LocalSky::topocentric() const {
    const SkyVector moon = from_place(Body::moon);
    return quantities(moon, from_place(Body::sun), moon_semidiameter(length(moon)));
}

double LocalSky::parallax() const {
    return moon_parallax(length(places_.moon));
}

} // namespace halvane
