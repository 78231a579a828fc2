// SPDX-License-Identifier: MIT
#include "events/phase.h"

#include "base/failure.h"
#include "ephemeris/modgeneral.h"
#include "events/phaseterms.h"

#include <cmath>

namespace halvane {
namespace {

struct Arguments {
    double m, m_prime, f, omega; ///< [rad]
    double eccentricity;         ///< E, a factor
};

double reduced(double degrees) {
    return rev360(degrees) * radians_per_degree;
}

Arguments arguments_at(double k, double t) {
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double t4 = t2 * t2;
    return {reduced(2.5534 + 29.10535669 * k - 0.0000218 * t2 - 0.00000011 * t3),
            reduced(201.5643 + 385.81693528 * k + 0.0107438 * t2 + 0.00001239 * t3 - 0.000000058 * t4),
            reduced(160.7108 + 390.67050274 * k - 0.0016341 * t2 - 0.00000227 * t3 + 0.000000011 * t4),
            reduced(124.7746 - 1.5637558 * k + 0.0020691 * t2 + 0.00000215 * t3),
            1 - 0.002516 * t - 0.0000074 * t2};
}

template <class Terms>
double periodic_sum(const Terms& terms, const Arguments& a) {
    const double factors[] = {1, a.eccentricity, a.eccentricity * a.eccentricity};
    double sum = 0;
    for (const PhaseTerm& term : terms)
        sum += term.coefficient * factors[term.eccentricity] *
               std::sin(term.m * a.m + term.m_prime * a.m_prime + term.f * a.f + term.omega * a.omega);
    return sum;
}

double planetary_sum(double k, double t) {
    double sum = 0;
    for (const PlanetaryTerm& term : planetary_terms)
        sum += term.coefficient * std::sin(reduced(term.a0 + term.a1 * k + term.a2 * t * t));
    return sum;
}

/// The term W that is added at the first quarter and taken off at the last [d]
double quarter_difference(const Arguments& a) {
    using std::cos;
    return 0.00306 - 0.00038 * a.eccentricity * cos(a.m) + 0.00026 * cos(a.m_prime) -
           0.00002 * cos(a.m_prime - a.m) + 0.00002 * cos(a.m_prime + a.m) + 0.00002 * cos(2 * a.f);
}

double phase_sum(Phase phase, const Arguments& a) {
    switch (phase) {
    case Phase::new_moon:
        return periodic_sum(new_moon_terms, a);
    case Phase::full_moon:
        return periodic_sum(full_moon_terms, a);
    case Phase::first_quarter:
        return periodic_sum(quarter_terms, a) + quarter_difference(a);
    case Phase::last_quarter:
        break;
    }
    return periodic_sum(quarter_terms, a) - quarter_difference(a);
}

double elongation_of(Phase phase) {
    switch (phase) {
    case Phase::first_quarter:
        return 90;
    case Phase::full_moon:
        return 180;
    case Phase::last_quarter:
        return 270;
    case Phase::new_moon:
        break;
    }
    return 0;
}

} // namespace

double mean_lunation(double dynamical) {
    constexpr double new_moon_of_2000 = 2451550.09766; // mean; Meeus, 2nd ed., chapter 49
    return (dynamical - new_moon_of_2000) / synodic_month;
}

double phase_estimate(Phase phase, double k) {
    const double t = k / 1236.85;
    const double t2 = t * t;
    const double mean =
        2451550.09765 + 29.530588853 * k + 0.0001337 * t2 - 0.00000015 * t2 * t + 0.00000000073 * t2 * t2;
    return mean + planetary_sum(k, t) + phase_sum(phase, arguments_at(k, t));
}

double elongation_from_phase(Phase phase, double moon_longitude, double sun_longitude) {
    if (phase != Phase::new_moon && moon_longitude < sun_longitude)
        moon_longitude += 360;
    const double d = moon_longitude - sun_longitude - elongation_of(phase);
    if (d < -60)
        return d + 360;
    return d > 60 ? d - 360 : d;
}

namespace {

double elongation_at(Ephemeris& ephemeris, Phase phase, const Instant& instant, const Observer* observer) {
    if (observer == nullptr)
        return elongation_from_phase(phase, geocentric_moon_medium(ephemeris, instant).longitude,
                                     geocentric_sun_high(ephemeris, instant).longitude);
    return elongation_from_phase(phase, moon_medium(ephemeris, instant, *observer).topocentric_longitude,
                                 sun_high(ephemeris, instant, *observer).topocentric_longitude);
}

} // namespace

double refined_phase(Ephemeris& ephemeris, Phase phase, double estimate, const Observer* observer) {
    SearchGuard guard({"a phase of the Moon", "طور من أطوار القمر"});
    double t = estimate;
    for (;;) {
        const double elongation = elongation_at(ephemeris, phase, Instant::of_dynamical(t), observer);
        const double next = guard.check(t - elongation * days_per_degree);
        const double step = std::fabs(next - t);
        t = next;
        if (step <= phase_tolerance)
            return t;
    }
}

} // namespace halvane
