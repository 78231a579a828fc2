// SPDX-License-Identifier: MIT
#include "stored/versiontext.h"

#include "base/version.h"
#include "stored/commit.h"
#include "stored/programfolder.h"

namespace halvane {

std::string version_text(std::string_view program) {
    std::string text = std::string(program) + " " + version;
    if (!std::string_view(commit).empty())
        text += std::string(" (commit ") + commit + ")";
    if (const std::optional<std::string> folder = told_program_folder())
        text += "\nFolder of the settings and reports: " + *folder;
    return text;
}

} // namespace halvane
