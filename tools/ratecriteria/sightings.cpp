// SPDX-License-Identifier: MIT
#include "tools/ratecriteria/sightings.h"

#include "base/failure.h"
#include "calendar/modjul.h"

#include <charconv>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

namespace halvane {
namespace {

[[noreturn]] void raise_unusable(const std::string& what) {
    throw RunTimeFailure(
        TwinWords{"The sightings cannot be used: " + what, "لا يمكن استعمال الأرصاد: " + what});
}

double number_of(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        raise_unusable("\"" + std::string(text) + "\" is no number");
    return value;
}

/// The Julian day of "2001-11-15T13:51:06Z".
double julian_day_of(std::string_view utc) {
    if (utc.size() != 20 || utc[10] != 'T' || utc[19] != 'Z')
        raise_unusable("\"" + std::string(utc) + "\" is no moment in UTC");
    const auto part = [utc](std::size_t from, std::size_t length) {
        return number_of(utc.substr(from, length));
    };
    double jd = 0;
    modjul(part(0, 4), part(5, 2), part(8, 2), part(11, 2) + (part(14, 2) + part(17, 2) / 60) / 60, jd);
    return jd;
}

Seen seen_of(const std::string& word) {
    if (word == "eye")
        return Seen::eye;
    if (word == "aid")
        return Seen::aid;
    if (word != "no")
        raise_unusable("\"" + word + "\" tells nothing of what was seen");
    return Seen::no;
}

} // namespace

CsvTable read_told_table(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        raise_unusable(path.string() + " cannot be read");
    std::string text;
    for (std::string line; std::getline(stream, line);)
        if (!line.starts_with('#'))
            text += line + "\n";
    return read_csv_table(text, path.string());
}

const std::string& field(const CsvTable& table, const CsvRow& row, const char* heading) {
    const auto column = table.column(heading);
    if (!column)
        raise_unusable(std::string("there is no column ") + heading);
    return row.fields[*column];
}

double number(const CsvTable& table, const CsvRow& row, const char* heading) {
    return number_of(field(table, row, heading));
}

std::vector<Sighting> read_sightings(const std::filesystem::path& path) {
    const CsvTable table = read_told_table(path);
    std::vector<Sighting> sightings;
    for (const CsvRow& row : table.rows) {
        Sighting& sighting = sightings.emplace_back();
        sighting.row = field(table, row, "row");
        sighting.universal = julian_day_of(field(table, row, "utc"));
        sighting.longitude = number(table, row, "longitude");
        sighting.latitude = number(table, row, "latitude");
        sighting.elongation = number(table, row, "arcl");
        sighting.seen = seen_of(field(table, row, "seen"));
    }
    return sightings;
}

} // namespace halvane
