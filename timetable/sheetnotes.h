// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/timetable.h"

#include <span>
#include <string>
#include <vector>

namespace halvane {

/// "Time zone Asia/Amman (UT +3)", with every offset of the rows.
TwinWords zone_words(const TimetablePlace& place, std::span<const TimetableRow> rows);

/// "Fajer 18°, Isha 17°, Aser standard - Muslim World League"
TwinWords rules_words(const Profile& profile, PrayerNames names);

/// What a page tells below its table: the rules behind the marks, why times are missing, changes of the
/// clock, by what the Hijri dates are told where it is not the tabular calendar, days on which the stored
/// zone differs from the time zone's rules.
std::vector<TwinWords> notes_of(const Timetable& timetable, const PageSettings& page,
                                std::span<const TimetableRow> rows);

/// A rule in a few words: "the middle of the night".
TwinWords words_of(TimeSource source, const Profile& profile);

/// Days on which the stored zone and summer dates differ from the time zone; nothing without any.
std::vector<TwinWords> zone_difference_words(const Timetable& timetable);

} // namespace halvane
