// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace halvane {

/// The files that hold what a user sets.
inline constexpr std::array<std::string_view, 9> stored_file_names{"pref.vsk", "loc.vsk",   "loc.txt",
                                                                   "date.vsk", "phase.vsk", "visib.vsk",
                                                                   "coor.vsk", "tele.vsk",  "alert.vsk"};

/// The folder of the stored files and reports, until a program sets another: the executable's, or the user's
/// own where the system has such (`working_folder`).
const std::string& program_folder();

/// Makes `folder` the program folder. Every reader drops the copy it keeps.
void set_program_folder(const std::string& folder);

/// The program folder where a user cannot know it from where the program stands; nothing elsewhere.
std::optional<std::string> told_program_folder();

/// Counts the calls of set_program_folder, so that a kept path or copy can tell that it is stale.
unsigned program_folder_generation();

/// The folder of the running executable; the present folder where the system does not tell.
std::string executable_folder();

/// `name` within the program folder.
std::string program_path(std::string_view name);

/// From now on the delivered file is read in the place of a stored one that the program folder has not.
void take_delivered_files();

/// Whether the program folder has none of the stored files.
bool is_without_stored_files();

/// Where the stored file `name` is read: in the program folder, or as `delivered_path` after
/// `take_delivered_files`.
std::string stored_path(std::string_view name);

/// `name` within the folder of the series files: the program folder, or the executable's folder when the
/// program folder holds none of the four series files (a folder of settings only).
std::string series_path(std::string_view name);

/// `name`, a delivered file that no user writes, within the program folder, or within the executable's folder
/// when the program folder has none of that name.
std::string delivered_path(std::string_view name);

} // namespace halvane
