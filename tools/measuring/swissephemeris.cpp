// SPDX-License-Identifier: MIT
#include "tools/measuring/swissephemeris.h"

#include "calendar/moddeltat.h"

#include <cmath>
#include <numbers>
#include <stdexcept>

#include <swephexp.h>

namespace halvane::swiss {
namespace {

constexpr double radian = std::numbers::pi / 180;

struct Six {
    double value[6];
};

bool open() {
    swe_set_ephe_path(SWISS_EPHEMERIS_DATA);
    // Sidereal time by the IAU 2006 expressions: the library's own choice after 2050 is a long-term model
    // that is joined on with the library's own Delta T.
    std::string models = "0,0,0,0,0,0,0," + std::to_string(SEMOD_SIDT_IAU_2006);
    swe_set_astro_models(models.data(), SEFLG_SWIEPH);
    return true;
}

Six calculate(double tt, int body, int flags) {
    static const bool opened = open();
    Six six{};
    char words[AS_MAXCH] = "";
    const int used = swe_calc(tt, body, flags | SEFLG_SWIEPH, six.value, words);
    // Without its files the library goes on with a built-in theory and says so in the flags only.
    if (!opened || used < 0 || (used & SEFLG_SWIEPH) == 0)
        throw std::runtime_error("The Swiss Ephemeris does not answer from its files in " SWISS_EPHEMERIS_DATA
                                 ": " +
                                 std::string(words));
    return six;
}

int number_of(Body body) {
    return body == Body::sun ? SE_SUN : SE_MOON;
}

Place place_of(Body body, double tt, int flags) {
    const Six ecliptic = calculate(tt, number_of(body), flags);
    const Six equatorial = calculate(tt, number_of(body), flags | SEFLG_EQUATORIAL);
    const Six geometric = calculate(tt, number_of(body), flags | SEFLG_TRUEPOS);
    constexpr double astronomical_unit_km = 149597870.7;
    return {ecliptic.value[0], ecliptic.value[1], equatorial.value[0], equatorial.value[1],
            geometric.value[2] * (body == Body::moon ? astronomical_unit_km : 1)};
}

/// Makes the library use this engine's Delta T while it lives.
class SharedDeltaT {
public:
    explicit SharedDeltaT(double tt) { swe_set_delta_t_userdef(tt - universal_time(tt)); }
    ~SharedDeltaT() { swe_set_delta_t_userdef(SE_DELTAT_AUTOMATIC); }
    SharedDeltaT(const SharedDeltaT&) = delete;
    SharedDeltaT& operator=(const SharedDeltaT&) = delete;
};

} // namespace

std::string unavailable() {
    try {
        calculate(2451545, SE_SUN, 0);
        calculate(2451545, SE_MOON, 0);
    } catch (const std::runtime_error& failure) {
        return std::string(failure.what()) + "\nInstall swe-standard-data.";
    }
    return {};
}

Place geocentric(Body body, double tt) {
    return place_of(body, tt, 0);
}

Place topocentric(Body body, double tt, double longitude, double latitude, double height) {
    const SharedDeltaT shared(tt);
    swe_set_topo(longitude, latitude, height);
    return place_of(body, tt, SEFLG_TOPOCTR);
}

Orientation orientation(double tt) {
    const Six six = calculate(tt, SE_ECL_NUT, 0);
    return {six.value[2], six.value[3], six.value[0]};
}

double sidereal_time(double ut) {
    const double tt = dynamical_time(ut);
    const Orientation now = orientation(tt);
    const SharedDeltaT shared(tt);
    return 15 * swe_sidtime0(ut, now.true_obliquity, now.nutation_longitude);
}

double dynamical_time(double ut) {
    double delta_t = 0;
    moddeltat(ut, delta_t);
    return ut + delta_t;
}

double universal_time(double tt) {
    double delta_t = 0;
    moddeltat(tt, delta_t);
    return tt - delta_t;
}

Horizontal horizontal(const Place& place, double ut, double longitude, double latitude) {
    using std::cos;
    using std::sin;
    const double h = (sidereal_time(ut) + longitude - place.right_ascension) * radian;
    const double delta = place.declination * radian;
    const double phi = latitude * radian;
    const double up = sin(phi) * sin(delta) + cos(phi) * cos(delta) * cos(h);
    const double north = cos(phi) * sin(delta) - sin(phi) * cos(delta) * cos(h);
    const double east = -cos(delta) * sin(h);
    const double azimuth = std::atan2(east, north) / radian;
    return {std::atan2(up, std::hypot(north, east)) / radian, azimuth < 0 ? azimuth + 360 : azimuth};
}

} // namespace halvane::swiss
