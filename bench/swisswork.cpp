// SPDX-License-Identifier: MIT
#include "bench/swisswork.h"

#include <cmath>
#include <stdexcept>
#include <string>

#include <swephexp.h>

namespace halvane::bench {
namespace {

constexpr double pressure_mb = 1010;
constexpr double temperature_celsius = 10;

} // namespace

SwissWork::SwissWork(double longitude, double latitude, double height) : site_{longitude, latitude, height} {
    if (const std::string why = swiss::unavailable(); !why.empty())
        throw std::runtime_error(why);
    swe_set_topo(longitude, latitude, height);
}

double SwissWork::place(swiss::Body body, double tt) const {
    const int number = body == swiss::Body::sun ? SE_SUN : SE_MOON;
    double equatorial[6];
    double other[6];
    double horizontal[3];
    swe_calc(tt, number, SEFLG_SWIEPH | SEFLG_TOPOCTR, other, nullptr);
    swe_calc(tt, number, SEFLG_SWIEPH | SEFLG_TOPOCTR | SEFLG_EQUATORIAL, other, nullptr);
    swe_calc(tt, number, SEFLG_SWIEPH, other, nullptr);
    swe_calc(tt, number, SEFLG_SWIEPH | SEFLG_EQUATORIAL, equatorial, nullptr);
    const double ut = tt - swe_deltat(tt);
    double site[3] = {site_[0], site_[1], site_[2]};
    swe_azalt(ut, SE_EQU2HOR, site, pressure_mb, temperature_celsius, equatorial, horizontal);
    return horizontal[1];
}

double SwissWork::event(int body, int kind, double ut) const {
    double site[3] = {site_[0], site_[1], site_[2]};
    double time = 0;
    swe_rise_trans(ut, body, nullptr, SEFLG_SWIEPH, kind, site, pressure_mb, temperature_celsius, &time,
                   nullptr);
    return time;
}

void SwissWork::sun_day(double ut) const {
    for (const int kind : {SE_CALC_RISE, SE_CALC_SET, SE_CALC_RISE | SE_BIT_ASTRO_TWILIGHT,
                           SE_CALC_SET | SE_BIT_ASTRO_TWILIGHT, SE_CALC_MTRANSIT})
        event(SE_SUN, kind, ut);
}

void SwissWork::moon_day(double ut) const {
    for (const int kind : {SE_CALC_RISE, SE_CALC_MTRANSIT, SE_CALC_SET})
        event(SE_MOON, kind, ut);
}

double SwissWork::phase(double tt, double angle) const {
    constexpr double tolerance = 0.00000289;
    for (double step = 1; std::fabs(step) > tolerance; tt += step) {
        double moon[6];
        double sun[6];
        swe_calc(tt, SE_MOON, SEFLG_SWIEPH | SEFLG_SPEED, moon, nullptr);
        swe_calc(tt, SE_SUN, SEFLG_SWIEPH | SEFLG_SPEED, sun, nullptr);
        step = -std::remainder(moon[0] - sun[0] - angle, 360) / (moon[3] - sun[3]);
    }
    return tt;
}

double swiss_moon(double longitude, double latitude, double tt) {
    double place[6];
    swe_set_topo(longitude, latitude, 0);
    swe_calc(tt, SE_MOON, SEFLG_SWIEPH | SEFLG_TOPOCTR, place, nullptr);
    return place[0];
}

} // namespace halvane::bench
