// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/timetable.h"

#include <string>

namespace halvane {

/// A column's name as a page spells it.
const TwinText& name_of(TimetableColumn column, PrayerNames names);

/// The rule that made a time, in words for a note; the Sun's own and an interval have some, too.
TwinText words_of(TimeSource source);

/// A text as a page in that language shows it: both are joined by " / ", unless they are alike.
std::string text_in(PageLanguage language, const TwinWords& words);

} // namespace halvane
