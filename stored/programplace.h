// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace halvane {

/// Where a program finds itself.
struct ProgramPlace {
    std::string executable_folder;
    bool takes_files = true;                 ///< whether this user can make files there
    std::optional<std::string> users_folder; ///< the one that the user has of his own in place of it
};

/// The folder for the stored files and reports: that of the executable, or the user's own where no files can
/// be made there. The own folder is made, and gets copies of the delivered stored files that it lacks; where
/// that cannot be done it is the executable's all the same.
std::string working_folder(const ProgramPlace& place);

/// Where the running program finds itself.
ProgramPlace present_place();

} // namespace halvane
