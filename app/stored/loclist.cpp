#include "app/stored/loclist.h"

#include "app/stored/failure.h"
#include "app/stored/programfolder.h"
#include "app/stored/record.h"
#include "app/stored/storedfile.h"
#include "app/stored/textfile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace halvane {
namespace {

constexpr const char* list_name = "loc.txt";
constexpr std::string_view working_copy_name = "temp.txt";

bool flag_of(RecordReader& reader) {
    return reader.number() == 1;
}

Location parse(RecordReader& reader) {
    Location record;
    record.name = reader.text();
    record.latitude_degrees = reader.number();
    record.latitude_minutes = reader.number();
    record.latitude_seconds = reader.number();
    record.longitude_degrees = reader.number();
    record.longitude_minutes = reader.number();
    record.longitude_seconds = reader.number();
    record.north = flag_of(reader);
    record.east = flag_of(reader);
    record.zone = reader.number();
    record.elevation = reader.number();
    record.city_offset = reader.number();
    record.pressure = reader.number();
    record.temperature = reader.number();
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

std::string format(const Location& record) {
    RecordWriter writer;
    writer.text(record.name)
        .number(record.latitude_degrees)
        .number(record.latitude_minutes)
        .number(record.latitude_seconds)
        .number(record.longitude_degrees)
        .number(record.longitude_minutes)
        .number(record.longitude_seconds)
        .number(record.north ? 1 : 0)
        .number(record.east ? 1 : 0)
        .number(record.zone)
        .number(record.elevation)
        .number(record.city_offset)
        .number(record.pressure)
        .number(record.temperature);
    return writer.line();
}

std::string lines_without(std::string_view name) {
    const std::string left_out = listed_name(name);
    std::string lines;
    for (const Location& location : read_location_list())
        if (location.name != left_out)
            lines += format(location);
    return lines;
}

/// Writes the working copy whole, then lets it take the list's place.
void replace_list(std::string_view content) {
    const std::string working_copy = program_path(working_copy_name);
    const std::string list = program_path(list_name);
    save_text_file(working_copy, content);
    if (std::rename(working_copy.c_str(), list.c_str()) != 0)
        throw file_failure(FileAction::write, list, errno);
}

} // namespace

std::vector<Location> read_location_list() {
    const std::string path = program_path(list_name);
    const std::string text = read_text_file(path);
    RecordReader reader(text, path);
    std::vector<Location> locations;
    fill(reader, locations);
    return locations;
}

std::vector<Location> readable_location_list() {
    return read_while_sound(list_name, std::vector<Location>(), fill);
}

std::optional<Location> find_location(std::string_view name) {
    const std::string path = program_path(list_name);
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
    const std::vector<Location> present = read_location_list();
    if (std::any_of(present.begin(), present.end(), [&name](const Location& l) { return l.name == name; }))
        return false;
    const std::string path = program_path(list_name);
    std::string content = read_text_file(path);
    if (!content.empty() && content.back() != '\n')
        content += content.back() == '\r' ? "\n" : "\r\n";
    save_text_file(path, content + format(location));
    return true;
}

void modify_location(const Location& location) {
    replace_list(lines_without(location.name) + format(location));
}

void delete_location(std::string_view name) {
    replace_list(lines_without(name));
}

} // namespace halvane
