#include "ephemeris/coordinates.h"
#include "ephemeris/earthorientation.h"
#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {
namespace {

struct Disc {
    double parallax;     ///< [rad]
    double semidiameter; ///< [rad]
};

Disc sun_disc(double distance_au) {
    constexpr double parallax_at_1_au = 0.00244277777778;
    constexpr double semidiameter_at_1_au = 0.266563889;
    return {parallax_at_1_au / distance_au * radians_per_degree,
            semidiameter_at_1_au / distance_au * radians_per_degree};
}

Disc moon_disc(double distance_km) {
    constexpr double earth_radius_km = 6378.137;
    constexpr double moon_over_earth_radius = 0.2725076;
    return {asin(earth_radius_km / distance_km),
            asin(moon_over_earth_radius * earth_radius_km / distance_km)};
}

/// The geocentric place less the observer's, in units of the body's distance: ecliptic, towards the equinox,
/// a quarter further east, and north.
struct Parallactic {
    double x, y, z;
    double longitude; ///< topocentric [rad]
};

Parallactic parallactic(const Observer& observer, double jd, double obliquity, double nutation,
                        double longitude, double latitude, double parallax) {
    using std::cos;
    using std::sin;
    const double epsilon = obliquity * radians_per_degree;
    double sidereal_time = 0;
    modlasttdt(jd, observer.longitude, epsilon, nutation, sidereal_time);
    const double theta = sidereal_time * radians_per_degree;
    const double lambda = longitude * radians_per_degree;
    const double beta = latitude * radians_per_degree;
    const double sine_parallax = sin(parallax);
    const double sine_theta = sin(theta);
    const double sine_epsilon = sin(epsilon);
    const double cosine_epsilon = cos(epsilon);
    const double cosine_beta = cos(beta);
    Parallactic p{};
    p.x = cos(lambda) * cosine_beta - observer.rho_cosine * sine_parallax * cos(theta);
    p.y = sin(lambda) * cosine_beta - sine_parallax * (observer.rho_sine * sine_epsilon +
                                                       observer.rho_cosine * cosine_epsilon * sine_theta);
    p.z = sin(beta) - sine_parallax * (observer.rho_sine * cosine_epsilon -
                                       observer.rho_cosine * sine_epsilon * sine_theta);
    p.longitude = atan2(p.x, p.y);
    return p;
}

Disc disc_of(char body, double distance) {
    return body == 'S' ? sun_disc(distance) : moon_disc(distance);
}

void hand_out(const TopocentricPlace& place, double& longitude, double& latitude, double& semidiameter,
              double& topocentric_semidiameter, double& parallax) {
    longitude = place.longitude;
    latitude = place.latitude;
    semidiameter = place.semidiameter;
    topocentric_semidiameter = place.topocentric_semidiameter;
    parallax = place.parallax;
}

} // namespace

TopocentricPlace topocentric_place(const Observer& observer, double jd, double obliquity, double nutation,
                                   double longitude, double latitude, double distance, char body) {
    const Disc disc = disc_of(body, distance);
    const Parallactic p = parallactic(observer, jd, obliquity, nutation, longitude, latitude, disc.parallax);
    const double cosine_lambda = std::cos(p.longitude);
    const double beta_topocentric = std::atan(cosine_lambda * p.z / p.x);

    TopocentricPlace place;
    place.longitude = rev360(p.longitude * degrees_per_radian);
    place.latitude = beta_topocentric * degrees_per_radian;
    place.semidiameter = disc.semidiameter * degrees_per_radian;
    place.topocentric_semidiameter =
        asin(cosine_lambda * std::cos(beta_topocentric) * std::sin(disc.semidiameter) / p.x) *
        degrees_per_radian;
    place.parallax = disc.parallax * degrees_per_radian;
    return place;
}

double topocentric_longitude(const Observer& observer, double jd, double obliquity, double nutation,
                             double longitude, double latitude, double distance, char body) {
    const Parallactic p =
        parallactic(observer, jd, obliquity, nutation, longitude, latitude, disc_of(body, distance).parallax);
    return rev360(p.longitude * degrees_per_radian);
}

double moon_parallax(double distance) {
    return moon_disc(distance).parallax * degrees_per_radian;
}

void modecltopo(double /*pi_value*/, double jd, double obliquity, double nutation, double longitude,
                double latitude, double distance, double& topocentric_longitude, double& topocentric_latitude,
                double& semidiameter, double& topocentric_semidiameter, double& parallax, char body) {
    hand_out(
        topocentric_place(stored_observer(), jd, obliquity, nutation, longitude, latitude, distance, body),
        topocentric_longitude, topocentric_latitude, semidiameter, topocentric_semidiameter, parallax);
}

void modecltopolow(double observer_longitude, double observer_latitude, double /*pi_value*/, double jd,
                   double obliquity, double nutation, double longitude, double latitude, double distance,
                   double& topocentric_longitude, double& topocentric_latitude, double& semidiameter,
                   double& topocentric_semidiameter, double& parallax, char body) {
    const Observer observer = observer_at(observer_longitude, observer_latitude, 0);
    hand_out(topocentric_place(observer, jd, obliquity, nutation, longitude, latitude, distance, body),
             topocentric_longitude, topocentric_latitude, semidiameter, topocentric_semidiameter, parallax);
}

} // namespace halvane
