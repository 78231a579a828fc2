// SPDX-License-Identifier: MIT
#include "stored/loclist.h"

#include "base/failure.h"
#include "base/record.h"
#include "stored/programfolder.h"
#include "stored/storedfile.h"
#include "stored/textfile.h"
#include "system/folderlock.h"
#include "system/path.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

namespace halvane {
namespace {

constexpr const char* list_name = "loc.txt";
/// What a broken edit of an earlier version has left.
constexpr std::string_view earlier_working_copy = "temp.txt";

Location parse(RecordReader& reader) {
    Location record;
    listed_fields.read(reader, record);
    record.south = !record.north;
    record.west = !record.east;
    return record;
}

void fill(RecordReader& reader, std::vector<Location>& locations) {
    while (!reader.at_end()) {
        reader.start_record();
        locations.push_back(parse(reader));
    }
}

/// The one edit of the list in this moment, by whatever process. What is locked is the program folder: the
/// list itself is replaced by every edit, and a file of its own would stay behind.
class ListEdit {
public:
    ListEdit() : list_(program_path(list_name)), folder_(program_folder()) {
        const auto given_up = std::chrono::steady_clock::now() + longest_wait;
        for (auto answer = folder_.take(); answer != FolderLock::Answer::taken; answer = folder_.take()) {
            const bool is_held = answer == FolderLock::Answer::held;
            if (!is_held || std::chrono::steady_clock::now() >= given_up)
                give_up(is_held);
            std::this_thread::sleep_for(between_looks);
        }
    }

    std::string content() const { return read_text_file(list_); }
    void replace(std::string_view content) const { save_text_file(list_, content); }

private:
    [[noreturn]] void give_up(bool is_held) const {
        if (!is_held)
            throw file_failure(FileAction::write, list_, errno);
        throw RunTimeFailure(TwinWords{"Cannot write " + list_ + ": another program is changing it.",
                                       "لا تمكن كتابة " + list_ + ": برنامج آخر يعدلها الآن."},
                             FailureKind::system);
    }

    static constexpr auto longest_wait = std::chrono::seconds(10);
    static constexpr auto between_looks = std::chrono::milliseconds(2);
    std::string list_;
    FolderLock folder_;
};

std::vector<Location> locations_of(const std::string& text, const std::string& path) {
    RecordReader reader(text, path);
    std::vector<Location> locations;
    fill(reader, locations);
    return locations;
}

/// Writes the list again without the records of that name and with `added` behind the others.
void rewrite_list(std::string_view name, const std::string& added) {
    const ListEdit edit;
    const std::string left_out = listed_name(name);
    std::string lines;
    for (const Location& location : locations_of(edit.content(), program_path(list_name)))
        if (location.name != left_out)
            lines += listed_fields.line(location);
    edit.replace(lines + added);
    std::error_code ignored;
    std::filesystem::remove(path_of(program_path(earlier_working_copy)), ignored);
}

} // namespace

std::vector<Location> read_location_list() {
    const std::string path = stored_path(list_name);
    return locations_of(read_text_file(path), path);
}

std::vector<Location> readable_location_list() {
    return read_while_sound(list_name, std::vector<Location>(), fill);
}

std::optional<Location> find_location(std::string_view name) {
    const std::string path = stored_path(list_name);
    const std::string text = read_text_file(path);
    RecordReader reader(text, path);
    while (!reader.at_end()) {
        reader.start_record();
        if (Location location = parse(reader); location.name == name)
            return location;
    }
    return std::nullopt;
}

std::string listed_name(std::string_view name) {
    std::string listed(name);
    std::replace(listed.begin(), listed.end(), '"', '\'');
    return listed;
}

bool add_location(const Location& location) {
    const std::string name = listed_name(location.name);
    const ListEdit edit;
    std::string content = edit.content();
    const std::vector<Location> present = locations_of(content, program_path(list_name));
    if (std::any_of(present.begin(), present.end(), [&name](const Location& l) { return l.name == name; }))
        return false;
    if (!content.empty() && content.back() != '\n')
        content += content.back() == '\r' ? "\n" : "\r\n";
    edit.replace(content + listed_fields.line(location));
    return true;
}

void modify_location(const Location& location) {
    rewrite_list(location.name, listed_fields.line(location));
}

void delete_location(std::string_view name) {
    rewrite_list(name, {});
}

} // namespace halvane
