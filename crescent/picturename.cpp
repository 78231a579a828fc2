// SPDX-License-Identifier: MIT
#include "crescent/picturename.h"

#include "stored/programfolder.h"
#include "system/path.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <system_error>

namespace halvane {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 11> picture_endings = {
    ".gif", ".bmp", ".png", ".jpg", ".jpeg", ".tif", ".tiff", ".webp", ".svg", ".ppm", ".xpm"};

/// In small letters, since not every file system tells `PREF.VSK` from `pref.vsk`.
std::string small_letters(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text;
}

std::string ending_of(const std::string& name) {
    return small_letters(path_of(name).extension().string());
}

bool is_same_file(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return one == other || fs::equivalent(one, other, ignored);
}

/// The path without links as far as it exists.
fs::path resolved(const fs::path& path) {
    std::error_code failed;
    const fs::path whole = fs::weakly_canonical(fs::absolute(path, failed), failed);
    return failed ? path : whole;
}

bool lies_within(const fs::path& file, const fs::path& folder) {
    for (fs::path parent = file.parent_path(); parent.has_relative_path(); parent = parent.parent_path())
        if (is_same_file(parent, folder))
            return true;
    return false;
}

/// A stored file, a profile, what is kept of Hijri months, a series, the lists of places and their zones, the
/// world's lines, the guide or a program. Some file systems let every file run, so that this right alone says
/// nothing of a name with an ending.
bool is_data_or_program(const fs::path& file) {
    const std::string name = small_letters(file.filename().string());
    const std::string ending = ending_of(name);
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    const bool can_run = (status.permissions() & fs::perms::owner_exec) != fs::perms::none;
    const bool is_delivered_text =
        name == "loc.txt" || name == "zones.csv" || name == "world.txt" || name == "help.txt";
    const bool is_kept_text = name == "hijri-rule.ini" || name == "hijri-announced.csv" ||
                              (ending == ".ini" && name.starts_with("profile-"));
    return fs::is_regular_file(status) && (ending == ".vsk" || is_delivered_text || is_kept_text ||
                                           ending == ".exe" || (ending.empty() && can_run));
}

/// Whether `folder` holds `file` under the name of such a one.
bool has_data_or_program(const fs::path& folder, const fs::path& file) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        if (is_data_or_program(entry->path()) && is_same_file(file, entry->path()))
            return true;
    return false;
}

bool is_file_of(const fs::path& folder, const fs::path& file) {
    const auto is_map = [&](const char* map) {
        return is_same_file(file, resolved(folder / map)) ||
               (small_letters(file.filename().string()) == map && is_same_file(file.parent_path(), folder));
    };
    return is_map("map.gif") || is_map("qmap.gif") || lies_within(file, resolved(folder / "images")) ||
           has_data_or_program(folder, file);
}

} // namespace

std::string gif_name(const std::string& chosen) {
    const std::string ending = ending_of(chosen);
    const bool is_picture =
        std::find(picture_endings.begin(), picture_endings.end(), ending) != picture_endings.end();
    return chosen.substr(0, chosen.size() - (is_picture ? ending.size() : 0)) + ".gif";
}

bool is_program_file(const fs::path& name) {
    const fs::path file = resolved(name);
    return is_file_of(resolved(path_of(program_folder())), file) ||
           is_file_of(resolved(path_of(executable_folder())), file);
}

} // namespace halvane
