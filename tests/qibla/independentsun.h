#pragma once

#ifdef HALVANE_SWISS_EPHEMERIS
#include <swephexp.h>
#endif

#include <cmath>
#include <stdexcept>

namespace halvane {

/// Where the Sun stands, airless                                                                [deg]
struct Horizontal {
    double altitude = 0;
    double azimuth = 0; ///< from north through east, 0 to 360
};

#ifdef HALVANE_SWISS_EPHEMERIS
inline constexpr bool has_independent_sun = true;

/// The Sun by the Swiss Ephemeris library: its own theory, nutation, sidereal time and Delta T. The step to
/// the horizon goes by vectors.
/// In     jd  Universal Time [d]; longitude, latitude [deg]
inline Horizontal independent_sun(double jd, double longitude, double latitude) {
    constexpr double degree = 3.141592653589793 / 180;
    static const bool path_is_set = [] {
        swe_set_ephe_path(nullptr);
        return true;
    }();
    double place[6] = {};
    char error[AS_MAXCH] = {};
    if (!path_is_set || swe_calc_ut(jd, SE_SUN, SEFLG_SWIEPH | SEFLG_EQUATORIAL, place, error) < 0)
        throw std::runtime_error(error);
    const double hour_angle = (swe_sidtime(jd) * 15 + longitude - place[0]) * degree;
    const double declination = place[1] * degree;
    const double phi = latitude * degree;
    const double south = std::cos(declination) * std::cos(hour_angle);
    const double west = std::cos(declination) * std::sin(hour_angle);
    const double pole = std::sin(declination);
    const double north = pole * std::cos(phi) - south * std::sin(phi);
    const double up = pole * std::sin(phi) + south * std::cos(phi);
    Horizontal sun;
    sun.altitude = std::asin(up) / degree;
    sun.azimuth = std::atan2(-west, north) / degree;
    if (sun.azimuth < 0)
        sun.azimuth += 360;
    return sun;
}
#else
inline constexpr bool has_independent_sun = false;

inline Horizontal independent_sun(double, double, double) {
    throw std::logic_error("built without the Swiss Ephemeris library");
}
#endif

/// Difference of two azimuths, -180 to 180                                                      [deg]
inline double azimuth_difference(double a, double b) {
    return std::remainder(a - b, 360);
}

} // namespace halvane
