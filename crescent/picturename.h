// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace halvane {

/// The name that a picture is saved under: `chosen` with the ending of a picture taken off (".gif", ".bmp"
/// and their kind, capital or not; any other ending belongs to the name) and ".gif" put on.
std::string gif_name(const std::string& chosen);

/// Whether a result saved under `name` would take the place of a file of the program: `map.gif` and
/// `qmap.gif`, all that lies in `images`, and the stored files, series, list of places, guide and programs of
/// the program folder. Files are told by what they are, so that a link or another spelling of the name makes
/// no difference.
bool is_program_file(const std::filesystem::path& name);

} // namespace halvane
