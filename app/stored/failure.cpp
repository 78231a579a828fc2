#include "app/stored/failure.h"

#include <cmath>

namespace halvane {

double require_finite(double value, std::string_view quantity) {
    if (!std::isfinite(value))
        throw RunTimeFailure("The calculation of " + std::string(quantity) +
                             " has no finite value with the stored settings.");
    return value;
}

double SearchGuard::check(double value) {
    constexpr int never_needed = 10000;
    if (++rounds_ > never_needed)
        throw RunTimeFailure("The search for " + std::string(quantity_) +
                             " does not end: the time is too far off for the theories.");
    return require_finite(value, quantity_);
}

} // namespace halvane
