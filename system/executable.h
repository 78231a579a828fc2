// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace halvane {

/// The running executable; empty where the system does not tell.
std::string executable_path();

/// The name of the file of a program: with the ending that the system wants.
std::string program_file(std::string_view program);

/// Goes on as the executable `path` with these words of the command line, the same streams and the same
/// present folder: what waits for this program waits for that one and gets its exit status. Returns only
/// when the system refuses; errno tells why.
/// In     words  the program's name first, null behind the last
void continue_as(const std::string& path, char** words);

} // namespace halvane
