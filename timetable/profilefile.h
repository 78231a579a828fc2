// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "timetable/profile.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// The profile of an INI text.
/// Error  raises RunTimeFailure (damaged file) naming `path`, the line and what is wrong there: an unknown
///        key, a value that is none, a number beyond its limits.
Profile profile_of_text(const std::string& text, const std::string& name, const std::string& path);

/// Why a text cannot name a profile; nothing for one that can: letters, digits, blanks, "-", "_", at most 40.
std::optional<TwinWords> refused_profile_name(std::string_view name);

// Profiles are files of the program folder: "profile-NAME.ini".

/// Names of the stored profiles, sorted.
std::vector<std::string> profile_names();
/// Error  raises RunTimeFailure for a missing or damaged file.
Profile read_profile(const std::string& name);
/// Error  raises RunTimeFailure; an earlier file then stands.
void write_profile(const Profile& profile);
void delete_profile(const std::string& name);

/// A profile by its name: a stored one, else an authority's key; the preferences by an empty name.
/// Error  raises RunTimeFailure for a name that is neither, listing what there is.
Profile find_profile(const std::string& name, const Preferences& preferences);

} // namespace halvane
