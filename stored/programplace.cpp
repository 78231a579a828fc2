// SPDX-License-Identifier: MIT
#include "stored/programplace.h"

#include "stored/programfolder.h"
#include "stored/textfile.h"
#include "system/path.h"
#include "system/unfinishedfile.h"
#include "system/usersfolder.h"

#include <exception>
#include <filesystem>
#include <string_view>

namespace halvane {
namespace {

bool takes_files(const std::string& folder) {
    constexpr unsigned own = 0600;
    return UnfinishedFile(folder, own).descriptor() >= 0;
}

void fill(const std::string& folder, const std::string& delivered) {
    std::filesystem::create_directories(path_of(folder));
    for (const std::string_view name : stored_file_names) {
        const std::string file = joined_path(folder, name);
        const std::string source = joined_path(delivered, name);
        if (!std::filesystem::exists(path_of(file)) && std::filesystem::exists(path_of(source)))
            save_text_file(file, read_file(source));
    }
}

} // namespace

std::string working_folder(const ProgramPlace& place) {
    if (place.takes_files || !place.users_folder)
        return place.executable_folder;
    try {
        fill(*place.users_folder, place.executable_folder);
        return *place.users_folder;
    } catch (const std::exception&) {
        return place.executable_folder;
    }
}

ProgramPlace present_place() {
    ProgramPlace place;
    place.executable_folder = executable_folder();
    place.users_folder = users_folder();
    place.takes_files = !place.users_folder || takes_files(place.executable_folder);
    return place;
}

} // namespace halvane
