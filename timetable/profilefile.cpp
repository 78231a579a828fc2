// SPDX-License-Identifier: MIT
#include "timetable/profilefile.h"

#include "base/failure.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"
#include "system/path.h"
#include "timetable/inifile.h"
#include "timetable/profilekeys.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace halvane {
namespace {

constexpr std::string_view file_begins = "profile-";
constexpr std::string_view file_ends = ".ini";

std::string path_of_profile(const std::string& name) {
    return program_path(std::string(file_begins) + name + std::string(file_ends));
}

bool is_letter_byte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || byte >= 0x80;
}

void require_name(const std::string& name) {
    if (const std::optional<TwinWords> refused = refused_profile_name(name))
        throw RunTimeFailure(*refused);
}

TwinWords unknown_profile(const std::string& name) {
    std::string names;
    for (const std::string& known : profile_names())
        names += (names.empty() ? "" : ", ") + known;
    for (const Authority& authority : authorities())
        (names += names.empty() ? "" : ", ") += authority.key;
    return {"There is no profile \"" + name + "\". There are: " + names + ".",
            "لا توجد مجموعة قواعد باسم \"" + name + "\". الموجود: " + names + "."};
}

} // namespace

Profile profile_of_text(const std::string& text, const std::string& name, const std::string& path) {
    Profile profile;
    profile.name = name;
    profile.page.columns.clear();
    read_ini_text(text, path, [&](std::string_view section, std::string_view key, std::string_view value) {
        return take_profile_value(profile, section, key, value);
    });
    if (profile.page.columns.empty())
        profile.page.columns = usual_columns();
    if (const std::optional<TwinWords> refused = refused_profile(profile))
        throw RunTimeFailure(
            TwinWords{path + ": " + refused->english + ".", path + ": " + refused->arabic + "."},
            FailureKind::damaged_file);
    return profile;
}

std::optional<TwinWords> refused_profile_name(std::string_view name) {
    constexpr std::size_t longest = 40; // bytes
    const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
        return is_letter_byte(c) || c == ' ' || c == '-' || c == '_';
    });
    if (!name.empty() && name.size() <= longest && plain && name.front() != ' ' && name.back() != ' ')
        return std::nullopt;
    return TwinWords{"The name of a profile has letters, digits, blanks, - and _, at most 40.",
                     "اسم مجموعة القواعد من حروف و أرقام و فراغات و - و _، و لا يزيد على 40."};
}

std::vector<std::string> profile_names() {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(path_of(program_folder()), error)) {
        const std::string file = entry.path().filename().string();
        if (file.size() <= file_begins.size() + file_ends.size() || !file.starts_with(file_begins) ||
            !file.ends_with(file_ends))
            continue;
        const std::string name =
            file.substr(file_begins.size(), file.size() - file_begins.size() - file_ends.size());
        if (!refused_profile_name(name))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

Profile read_profile(const std::string& name) {
    require_name(name);
    const std::string path = path_of_profile(name);
    return profile_of_text(read_text_file(path), name, path);
}

void write_profile(const Profile& profile) {
    require_name(profile.name);
    save_text_file(path_of_profile(profile.name), text_of(profile));
}

void delete_profile(const std::string& name) {
    require_name(name);
    const std::string path = path_of_profile(name);
    std::error_code error;
    std::filesystem::remove(path_of(path), error);
    if (error)
        throw file_failure(FileAction::write, path, error.value());
}

Profile find_profile(const std::string& name, const Preferences& preferences) {
    if (name.empty())
        return neutral_profile(preferences);
    const std::vector<std::string> names = profile_names();
    if (std::find(names.begin(), names.end(), name) != names.end())
        return read_profile(name);
    if (const Authority* authority = find_authority(name))
        return authority_profile(*authority);
    throw RunTimeFailure(unknown_profile(name));
}

} // namespace halvane
