// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/timetable.h"

#include <string>

namespace halvane {

/// A column's name as a page spells it.
const TwinText& name_of(TimetableColumn column, PrayerNames names);

/// A text as a page in that language shows it: both are joined by " / ", unless they are alike.
std::string text_in(PageLanguage language, const TwinWords& words);

/// "2026-02-18T04:57:00+03:00"; in Universal Time where the offset has seconds, which the form has not.
/// In     jd  0 h of the civil date that the clock's day counts from                               [d]
std::string instant_text(double jd, const LocalClock& clock);

/// The text itself, or what its bytes are in Windows-1256 where they are not UTF-8, as an unlucky name of a
/// place may be.
std::string as_utf8(const std::string& text);

} // namespace halvane
