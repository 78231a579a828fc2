// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/timetable.h"

#include <span>
#include <string>

namespace halvane {

/// A text that both languages share.
TwinWords alike(const std::string& text);

TwinWords joined(const TwinWords& a, const char* between, const TwinWords& b);

/// Words of a refusal as a sentence that stands alone.
TwinWords sentence(const TwinWords& words);

/// "18 February 2026"
TwinWords date_words(const DateNumbers& date);

/// Keeps a sign, an angle or a Latin name in its order within Arabic text.
std::string left_to_right(const std::string& text);

/// "31°57' N, 35°56' E, 779 m"
TwinWords coordinates_words(const Location& location);

/// "Time zone Asia/Amman (UT +3)", with every offset.
/// In     offsets  of the clock from Universal Time                                              [s]
TwinWords zone_words(const TimetablePlace& place, std::span<const int> offsets);

} // namespace halvane
