#include "ephemeris/moonplace.h"

#include "ephemeris/coordinates.h"
#include "ephemeris/interpolation.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/series.h"
#include "ephemeris/seriesterms.h"

#include <array>
#include <cmath>

namespace halvane {
namespace {

constexpr std::size_t padded_rows = (moon_rows + series_padding - 1) / series_padding * series_padding;

/// Arguments of the theory at one instant                                                [rad]
struct Arguments {
    double mean_longitude;
    std::array<double, 4> fundamental; ///< D, M, M', F
    double a1, a2, a3;
    double eccentricity; ///< E of the Earth's orbit, a factor
};

double reduced(double degrees) {
    return reduce360(degrees) * radians_per_degree;
}

Arguments arguments_at(double t) {
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double t4 = t2 * t2;
    Arguments a{};
    // 189474 in the third order of the mean longitude is this system's own divisor.
    a.mean_longitude =
        reduced(218.3164591 + 481267.88134236 * t - 0.0013268 * t2 + t3 / 189474 - t4 / 65194000);
    a.fundamental = {
        reduced(297.8502042 + 445267.1115168 * t - 0.00163 * t2 + t3 / 545868 - t4 / 113065000),
        reduced(357.5291092 + 35999.0502909 * t - 0.0001536 * t2 + t3 / 24490000),
        reduced(134.9634114 + 477198.8676313 * t + 0.008997 * t2 + t3 / 69699 - t4 / 14712000),
        reduced(93.2720993 + 483202.0175273 * t - 0.0034029 * t2 - t3 / 3526000 + t4 / 863310000)};
    a.a1 = reduced(119.75 + 131.849 * t);
    a.a2 = reduced(53.09 + 479264.29 * t);
    a.a3 = reduced(313.45 + 481266.484 * t);
    a.eccentricity = 1 - 0.002516 * t - 0.0000074 * t2;
    return a;
}

/// Amplitudes times E for each multiple of M, once or twice.
void scale_by_eccentricity(const Column& amplitude, const Column& multiple_of_m, double eccentricity,
                           double* scaled) {
    for (std::size_t i = 0; i < padded_rows; ++i) {
        const double m = std::fabs(multiple_of_m[i]);
        const double factor = m == 1 ? eccentricity : m == 2 ? eccentricity * eccentricity : 1;
        scaled[i] = amplitude[i] * factor;
    }
}

void arguments_of(const PeriodicTerms& table, const Arguments& a, double* argument) {
    series_terms().fundamental_argument(table.d.data(), table.m.data(), table.m_prime.data(), table.f.data(),
                                        nullptr, a.fundamental.data(), padded_rows, argument);
}

using Rows = std::array<double, padded_rows>;

/// Sums of the sine terms (1e-6 deg) and of the cosine terms (0.001 km) of the longitude's table.
std::array<double, 2> longitude_sums(const Arguments& a) {
    const PeriodicTerms& table = mterm().moon_longitude;
    Rows argument{};
    Rows longitude{};
    Rows distance{};
    std::array<double, 2 * padded_rows> terms{};
    arguments_of(table, a, argument.data());
    scale_by_eccentricity(table.sine, table.m, a.eccentricity, longitude.data());
    scale_by_eccentricity(table.cosine, table.m, a.eccentricity, distance.data());
    series_terms().sine_and_cosine(longitude.data(), distance.data(), argument.data(), padded_rows,
                                   terms.data(), terms.data() + padded_rows);
    constexpr std::array<std::size_t, 2> counts{padded_rows, padded_rows};
    std::array<double, 2> sums{};
    row_order_sums(terms.data(), counts.data(), counts.size(), sums.data());
    return sums;
}

double latitude_sum(const Arguments& a) {
    const PeriodicTerms& table = mterm().moon_latitude;
    Rows argument{};
    Rows latitude{};
    Rows terms{};
    arguments_of(table, a, argument.data());
    scale_by_eccentricity(table.sine, table.m, a.eccentricity, latitude.data());
    series_terms().sine(latitude.data(), argument.data(), padded_rows, terms.data());
    constexpr std::size_t count = padded_rows;
    double sum = 0;
    row_order_sums(terms.data(), &count, 1, &sum);
    return sum;
}

EclipticMoon computed_moon(double days) {
    using std::sin;
    const Arguments a = arguments_at(10 * (days / 365250));
    const double l = a.mean_longitude;
    const double m_prime = a.fundamental[2];
    const double f = a.fundamental[3];
    const auto [longitude, distance] = longitude_sums(a);
    const double added_longitude = 3958 * sin(a.a1) + 1962 * sin(l - f) + 318 * sin(a.a2);
    const double added_latitude = -2235 * sin(l) + 382 * sin(a.a3) + 175 * sin(a.a1 - f) +
                                  175 * sin(a.a1 + f) + 127 * sin(l - m_prime) - 115 * sin(l + m_prime);
    return {l * degrees_per_radian + (longitude + added_longitude) / 1000000,
            (latitude_sum(a) + added_latitude) / 1000000, 385000.56 + distance / 1000};
}

InterpolatedSeries interpolated_moon([](double days) {
    const EclipticMoon moon = computed_moon(days);
    return InterpolatedSeries::Values{moon.longitude, moon.latitude, moon.distance};
});

} // namespace

EclipticMoon periodic_moon(double days) {
    if (!interpolating)
        return computed_moon(days);
    const auto [longitude, latitude, distance, none] = interpolated_moon.at(days);
    return {rev360(longitude), latitude, distance};
}

MoonPlace complete_moon(const Observer& observer, double jd, double obliquity, double nutation,
                        const EclipticMoon& moon) {
    MoonPlace place;
    place.longitude = moon.longitude;
    place.latitude = moon.latitude;
    place.distance = moon.distance;
    const TopocentricPlace topocentric = topocentric_place(observer, jd, obliquity, nutation, moon.longitude,
                                                           moon.latitude, moon.distance, 'M');
    place.topocentric_longitude = topocentric.longitude;
    place.topocentric_latitude = topocentric.latitude;
    place.parallax = topocentric.parallax;
    place.semidiameter = topocentric.semidiameter;
    place.topocentric_semidiameter = topocentric.topocentric_semidiameter;
    modeclequa(pi, jd, obliquity, place.longitude, place.latitude, place.right_ascension, place.declination);
    modeclequa(pi, jd, obliquity, place.topocentric_longitude, place.topocentric_latitude,
               place.topocentric_right_ascension, place.topocentric_declination);
    return place;
}

} // namespace halvane
