// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace halvane {

/// A note that the crescent cannot be seen, two lines.
struct ImpossibilityNote {
    const char* first_line;
    const char* second_line;
};

/// The notes of a report, below its verdict.
/// In     lag  of the Moon [h]; age  at the time of calculation, signed [d]
std::vector<ImpossibilityNote> impossibility_notes(bool new_crescent, double lag, double age);

} // namespace halvane
