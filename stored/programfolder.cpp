// SPDX-License-Identifier: MIT
#include "stored/programfolder.h"

#include "stored/programplace.h"
#include "system/executable.h"
#include "system/path.h"
#include "system/usersfolder.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

namespace halvane {
namespace {

std::optional<std::string>& folder() {
    static std::optional<std::string> value;
    return value;
}

const std::string& own_folder() {
    static const std::string value = working_folder(present_place());
    return value;
}

unsigned generation = 0;
bool takes_delivered = false;

bool is_there(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(path_of(path), ignored);
}

bool holds_series(const std::string& base) {
    static constexpr std::array<std::string_view, 4> names{"termfull.vsk", "term.vsk", "mterm.vsk",
                                                           "elp.vsk"};
    return std::any_of(names.begin(), names.end(),
                       [&base](std::string_view name) { return is_there(joined_path(base, name)); });
}

} // namespace

const std::string& program_folder() {
    return folder() ? *folder() : own_folder();
}

void set_program_folder(const std::string& value) {
    folder() = value;
    ++generation;
}

std::optional<std::string> told_program_folder() {
    return users_folder() ? std::optional(program_folder()) : std::nullopt;
}

unsigned program_folder_generation() {
    return generation;
}

std::string executable_folder() {
    const std::string executable = executable_path();
    return executable.empty() ? std::string(".") : folder_of(executable);
}

std::string program_path(std::string_view name) {
    return joined_path(program_folder(), name);
}

void take_delivered_files() {
    takes_delivered = true;
    ++generation;
}

bool is_without_stored_files() {
    return std::none_of(stored_file_names.begin(), stored_file_names.end(),
                        [](std::string_view name) { return is_there(program_path(name)); });
}

std::string stored_path(std::string_view name) {
    return takes_delivered ? delivered_path(name) : program_path(name);
}

std::string series_path(std::string_view name) {
    return joined_path(holds_series(program_folder()) ? program_folder() : executable_folder(), name);
}

std::string delivered_path(std::string_view name) {
    std::string path = program_path(name);
    return is_there(path) ? path : joined_path(executable_folder(), name);
}

} // namespace halvane
