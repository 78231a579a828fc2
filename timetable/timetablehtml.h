// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetablesheet.h"

#include <span>
#include <string>

namespace halvane {

/// One HTML file of sheets, which needs no script and nothing beside it: a section and a printed page for
/// each. In     sheets     whose rows are, one after the other, those of the timetable
///        timetable  gives the instants of the `time` elements
std::string html_of_sheets(std::span<const TimetableSheet> sheets, const Timetable& timetable,
                           const PageSettings& page);

} // namespace halvane
