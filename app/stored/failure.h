#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace halvane {

/// The one failure that ends a program: a stored or series file that is missing, short, not of its form or
/// not writable, or a calculation without a finite value. Nothing between its source and `main` catches it.
class RunTimeFailure : public std::runtime_error {
public:
    explicit RunTimeFailure(const std::string& words) : std::runtime_error(words) {}
};

/// Returns `value` when it is finite.
/// Error  raises RunTimeFailure naming `quantity`, so that neither "nan" nor "inf" reaches a report or a
/// panel.
double require_finite(double value, std::string_view quantity);

} // namespace halvane
