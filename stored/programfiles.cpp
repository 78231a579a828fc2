// SPDX-License-Identifier: MIT
#include "stored/programfiles.h"

#include "stored/programfolder.h"
#include "system/path.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace halvane {
namespace {

namespace fs = std::filesystem;

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

/// The name of a stored file, a profile, what is kept of Hijri months, a series, the lists of places and
/// their zones, the world's lines, the guide or a program of Windows.
bool is_name_of_data(const std::string& name, const std::string& ending) {
    constexpr std::array<std::string_view, 6> names{"loc.txt",  "zones.csv",      "world.txt",
                                                    "help.txt", "hijri-rule.ini", "hijri-announced.csv"};
    return ending == ".vsk" || ending == ".exe" || (ending == ".ini" && name.starts_with("profile-")) ||
           std::find(names.begin(), names.end(), name) != names.end();
}

/// Some file systems let every file run, so that this right alone says nothing of a name with an ending.
bool is_data_or_program(const fs::path& file) {
    const std::string name = small_letters(file.filename().string());
    const std::string ending = ending_of(file.string());
    const bool is_data = is_name_of_data(name, ending);
    // A folder may hold thousands of results, whose names tell enough.
    if (!is_data && !ending.empty())
        return false;
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    const bool can_run = (status.permissions() & fs::perms::owner_exec) != fs::perms::none;
    return fs::is_regular_file(status) && (is_data || can_run);
}

std::vector<fs::path> data_and_programs(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        if (is_data_or_program(entry->path()))
            files.push_back(entry->path());
    return files;
}

bool is_map_of(const fs::path& folder, const fs::path& file, const char* map) {
    return is_same_file(file, resolved(folder / map)) ||
           (small_letters(file.filename().string()) == map && is_same_file(file.parent_path(), folder));
}

} // namespace

ProgramFiles::ProgramFiles()
    : folders_{resolved(path_of(program_folder())), resolved(path_of(executable_folder()))} {
    for (const fs::path& folder : folders_)
        for (fs::path& file : data_and_programs(folder))
            files_.push_back(std::move(file));
}

bool ProgramFiles::have(const fs::path& name) const {
    const fs::path file = resolved(name);
    const bool is_picture = std::any_of(folders_.begin(), folders_.end(), [&file](const fs::path& folder) {
        return is_map_of(folder, file, "map.gif") || is_map_of(folder, file, "qmap.gif") ||
               lies_within(file, resolved(folder / "images"));
    });
    return is_picture || std::any_of(files_.begin(), files_.end(),
                                     [&file](const fs::path& own) { return is_same_file(file, own); });
}

} // namespace halvane
