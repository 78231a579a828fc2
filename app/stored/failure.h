#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace halvane {

/// The one failure that ends a program: a stored or series file that is missing, short, not of its form or
/// not writable, or a calculation without a finite value. Only where a panel's own rules pass it over is it
/// caught before `main` or the program's event loop.
class RunTimeFailure : public std::runtime_error {
public:
    explicit RunTimeFailure(const std::string& words) : std::runtime_error(words) {}
};

/// Returns `value` when it is finite.
/// Error  raises RunTimeFailure naming `quantity`, so that neither "nan" nor "inf" reaches a report or a
/// panel.
double require_finite(double value, std::string_view quantity);

/// Watches a search that has no bound of its own: it converges in a few rounds for any time of the engine.
class SearchGuard {
public:
    explicit SearchGuard(std::string_view quantity) : quantity_(quantity) {}
    /// Returns `value`, the search's latest one.
    /// Error  raises RunTimeFailure for a value that is not finite, and for a search that does not end (a
    /// time so far off that the theories have lost their meaning).
    double check(double value);

private:
    std::string_view quantity_;
    int rounds_ = 0;
};

} // namespace halvane
