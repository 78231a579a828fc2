// SPDX-License-Identifier: MIT
#pragma once

#include "panel/messages.h"
#include "timetable/timetablefiles.h"

#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// The kinds of files of a timetable, the printed page first.
QList<SaveKind> timetable_kinds(Language language);

/// A timetable in a format, as `halvane-report timetable` writes it.
std::string bytes_of(const Timetable& timetable, const PageSettings& page, TimetableFormat format);

/// The same of a long timetable: made beside the event loop, so that a cancel is answered at once.
/// Returns nothing after a cancel.
std::optional<std::string> bytes_of(const Timetable& timetable, const PageSettings& page,
                                    TimetableFormat format, Progress& progress);

} // namespace halvane
