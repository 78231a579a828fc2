// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <filesystem>
#include <vector>

namespace halvane {

/// The files of the program: `map.gif` and `qmap.gif`, all that lies in `images`, and the stored files,
/// series, list of places, guide and programs of the program folder, as they are when this is made.
class ProgramFiles {
public:
    ProgramFiles();

    /// Whether a result saved under `name` would take the place of one of them. Files are told by what they
    /// are, so that a link or another spelling of the name makes no difference.
    bool have(const std::filesystem::path& name) const;

private:
    std::array<std::filesystem::path, 2> folders_; ///< the program's own and that of the running program
    std::vector<std::filesystem::path> files_;
};

} // namespace halvane
