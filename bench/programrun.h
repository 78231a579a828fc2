// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace halvane::bench {

/// What one run of a program took.
struct ProgramRun {
    double seconds = 0;   ///< from start to end
    double megabytes = 0; ///< most memory it held
};

/// Runs a program within `folder`, with its output thrown away.
/// Error  raises std::runtime_error when it cannot be run or ends with a status but 0.
ProgramRun run_program(const std::vector<std::string>& command, const std::string& folder);

} // namespace halvane::bench
