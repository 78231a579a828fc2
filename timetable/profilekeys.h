// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/profile.h"

#include <optional>
#include <string>
#include <string_view>

namespace halvane {

// What the file of a profile holds: "key = value" in sections.

/// Takes a value into a profile.
/// Returns why it is none, in a few words with what was wanted and found; empty words for a good one.
TwinWords take_profile_value(Profile& profile, std::string_view section, std::string_view key,
                             std::string_view value);

/// The same of a key of the file that is no column's, in fewer words.
/// Returns what is wanted in the place of the value ("1 ... 30"); an empty text for a good one.
std::string take_key(Profile& profile, std::string_view section, std::string_view key,
                     std::string_view value);

/// The value of such a key as the file has it.
std::string value_of_key(const Profile& profile, std::string_view section, std::string_view key);

/// The text of a profile's file: every key with its value.
std::string text_of(const Profile& profile);

/// Why the values of a profile do not go together; nothing when they do.
std::optional<TwinWords> refused_profile(const Profile& profile);

/// The text of an iqamah as the file has it: "none", "05:30", "+20", "+20 up".
std::string text_of(const Iqamah& iqamah);
std::optional<Iqamah> iqamah_of(std::string_view text);

/// "12:30 13:15" and back: at most three clocks in rising order; none for an empty text.
std::string jumuah_text(const std::vector<int>& jumuah);
std::optional<std::vector<int>> jumuah_of(std::string_view text);

/// "date,weekday,fajer" to columns.
/// Out    unknown  the first word that is no key; empty when all are
std::vector<TimetableColumn> columns_of(std::string_view keys, std::string& unknown);

} // namespace halvane
