#include "app/stored/failure.h"

#include <cmath>

namespace halvane {

double require_finite(double value, std::string_view quantity) {
    if (!std::isfinite(value))
        throw RunTimeFailure("The calculation of " + std::string(quantity) +
                             " has no finite value with the stored settings.");
    return value;
}

} // namespace halvane
