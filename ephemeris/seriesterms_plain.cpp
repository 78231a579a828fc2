#include "ephemeris/seriesterms_sets.h"

#include "ephemeris/modgeneral.h"

#include <cmath>

namespace halvane {
namespace {

void cosine_of_rate(const double* amplitude, const double* phase, const double* frequency, double tau,
                    std::size_t count, double* terms) {
    for (std::size_t i = 0; i < count; ++i)
        terms[i] = amplitude[i] * std::cos(phase[i] + frequency[i] * tau);
}

void sine(const double* amplitude, const double* argument, std::size_t count, double* terms) {
    for (std::size_t i = 0; i < count; ++i)
        terms[i] = amplitude[i] * std::sin(argument[i]);
}

void cosine(const double* amplitude, const double* argument, std::size_t count, double* terms) {
    for (std::size_t i = 0; i < count; ++i)
        terms[i] = amplitude[i] * std::cos(argument[i]);
}

void sine_and_cosine(const double* sine_amplitude, const double* cosine_amplitude, const double* argument,
                     std::size_t count, double* sine_terms, double* cosine_terms) {
    sine(sine_amplitude, argument, count, sine_terms);
    cosine(cosine_amplitude, argument, count, cosine_terms);
}

#include "ephemeris/seriesterms_arguments.inc"

} // namespace

const SeriesTerms plain_terms{"none",
                              cosine_of_rate,
                              sine,
                              cosine,
                              sine_and_cosine,
                              main_argument,
                              secondary_argument,
                              fundamental_argument};

} // namespace halvane
