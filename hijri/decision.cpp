// SPDX-License-Identifier: MIT
#include "hijri/decision.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace halvane {
namespace {

/// Standard error of Delta T in the years after the last that it was observed in                  [s]
/// Source Huber, J. Geod. 80, 283 (2006): a Brownian motion of the length of the day that is drawn back.
double delta_t_error(double universal) {
    constexpr double last_observed = 2453371.5; // 2005 January 1: the polynomials go beyond from there
    constexpr double days_a_year = 365.25;
    constexpr double spread = 0.058;    // [ms2 a year]
    constexpr double drawn_back = 2500; // [years]
    const double years = std::max(0.0, universal - last_observed) / days_a_year;
    return days_a_year * years * std::sqrt(years * spread / 3 * (1 + years / drawn_back)) / 1000;
}

/// The error of a measure in its unit.
double error_of(const CataloguedCriterion& criterion, const TheoryError& error) {
    const std::string_view unit = criterion.unit;
    if (unit == "min")
        return error.lag / 60;
    // Yallop's q is a tenth of degrees.
    const std::string_view key = criterion.key;
    return key == "yallop" || key == "yallop-1997" ? error.degrees / 10 : error.degrees;
}

double in_errors(const MonthMargin& margin) {
    return margin.value / margin.uncertainty;
}

} // namespace

TheoryError theory_error(double universal) {
    constexpr double of_lag = 10;                     // [s]
    constexpr double of_age = 90;                     // [s]
    constexpr double of_place = 0.02;                 // [deg]
    constexpr double moon_a_second = 0.55 / 3600;     // [deg/s]
    constexpr double lag_a_second = 0.035;            // as the Moon lags behind the sky
    const double turn = 2 * delta_t_error(universal); // nineteen of twenty are within
    return {of_lag + lag_a_second * turn, of_age + turn, of_place + moon_a_second * turn};
}

MonthMargin deciding(std::initializer_list<MonthMargin> margins) {
    return *std::min_element(margins.begin(), margins.end(), [](const MonthMargin& a, const MonthMargin& b) {
        return in_errors(a) < in_errors(b);
    });
}

MonthMargin lag_margin(const CrescentEvening& evening) {
    return {MonthMargin::Of::lag, evening.lag() * 60, theory_error(evening.sun_event).lag, "s"};
}

MonthMargin age_margin(const CrescentEvening& evening) {
    return {MonthMargin::Of::age, evening.age(evening.sun_event) * 3600, theory_error(evening.sun_event).age,
            "s"};
}

MonthMargin margin_of_value(const CrescentEvening& evening, const CataloguedCriterion& criterion,
                            double value, std::size_t seen_class) {
    const TheoryError error = theory_error(evening.sun_event);
    const MonthMargin measure{MonthMargin::Of::measure, value - criterion.bands()[seen_class].border,
                              error_of(criterion, error), criterion.unit};
    return deciding({lag_margin(evening), age_margin(evening), measure});
}

std::optional<MonthMargin> seeing_margin(const CrescentEvening& evening, const CataloguedCriterion& criterion,
                                         const CriteriaSettings& limits, std::size_t seen_class) {
    const std::optional<double> value = criterion_value(criterion, evening, limits);
    if (!value)
        return std::nullopt;
    return margin_of_value(evening, criterion, *value, seen_class);
}

} // namespace halvane
