// SPDX-License-Identifier: MIT
#include "alerts/alertsounds.h"

#include "stored/programfolder.h"
#include "system/path.h"

#include <filesystem>
#include <system_error>

namespace halvane {

namespace {

constexpr const char* chime_file = "chime.wav";

} // namespace

std::string athan_file(Athan athan) {
    const std::string recording = athan == Athan::mecca ? "mecca.wav" : "jerusalem.wav";
    return sound_path(recording) ? recording : chime_file;
}

std::optional<std::string> sound_in_place_of(const std::string& name) {
    if (name == chime_file || name == beep_file)
        return std::nullopt;
    return chime_file;
}

std::optional<std::string> sound_path(const std::string& name) {
    std::error_code error;
    std::string path = delivered_path(name);
    if (!std::filesystem::is_regular_file(path_of(path), error))
        return std::nullopt;
    return path;
}

} // namespace halvane
