// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace halvane {

/// A mistake on the command line that its options alone do not show.
class UsageMistake : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Prints the mistake; gives its exit status.
int tell_mistake(const UsageMistake& mistake);

} // namespace halvane
