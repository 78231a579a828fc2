// SPDX-License-Identifier: MIT
#include "watch/watchcsv.h"

#include "base/numberformat.h"
#include "ephemeris/modgeneral.h"
#include "watch/localmoment.h"

#include <array>
#include <string>

namespace halvane {
namespace {

/// A row with what its fields need besides.
struct CsvSource {
    const WatchRow& row;
    const TimetablePlace& place;
};

struct CsvColumn {
    const char* key;
    std::string (*text)(const CsvSource& source);
};

/// A hundred thousandth of a degree is a thirtieth of an arc second, less than the theories know.
std::string number(double value) {
    return format_number(value, "0.00000");
}

std::string number(const std::optional<double>& value) {
    return value ? number(*value) : std::string();
}

std::string universal_text(double universal) {
    const std::string zone = "+00:00";
    std::string text = instant_of(universal_moment(universal));
    return text.replace(text.size() - zone.size(), zone.size(), "Z");
}

constexpr CsvColumn columns[] = {
    {"local_time",
     [](const CsvSource& source) { return instant_of(local_moment(source.place, source.row.universal)); }},
    {"universal_time", [](const CsvSource& source) { return universal_text(source.row.universal); }},
    {"moon_altitude_deg", [](const CsvSource& source) { return number(source.row.places.moon_altitude); }},
    {"moon_apparent_altitude_deg", [](const CsvSource& source) { return number(source.row.moon_apparent); }},
    {"moon_azimuth_deg", [](const CsvSource& source) { return number(source.row.places.moon_azimuth); }},
    {"sun_altitude_deg", [](const CsvSource& source) { return number(source.row.places.sun_altitude); }},
    {"sun_apparent_altitude_deg", [](const CsvSource& source) { return number(source.row.sun_apparent); }},
    {"sun_azimuth_deg", [](const CsvSource& source) { return number(source.row.places.sun_azimuth); }},
    {"elongation_deg", [](const CsvSource& source) { return number(source.row.places.elongation); }},
    {"arcv_deg", [](const CsvSource& source) { return number(source.row.places.relative_altitude()); }},
    {"daz_deg", [](const CsvSource& source) { return number(rev180(source.row.places.relative_azimuth())); }},
    {"width_arcmin", [](const CsvSource& source) { return number(source.row.places.width_minutes()); }},
    {"illuminated_fraction",
     [](const CsvSource& source) { return number(source.row.places.illuminated_fraction); }},
    {"sky", [](const CsvSource& source) { return std::string(key_of(source.row.brightness)); }},
};

} // namespace

const char* key_of(SkyBrightness brightness) {
    constexpr std::array<const char*, 5> keys{"daylight", "civil_twilight", "nautical_twilight",
                                              "astronomical_twilight", "night"};
    return keys.at(static_cast<std::size_t>(brightness));
}

std::string csv_of(const CrescentWatch& watch) {
    std::string text;
    for (const CsvColumn& column : columns)
        (text += text.empty() ? "" : ",") += column.key;
    text += "\r\n";
    for (const WatchRow& row : watch.rows) {
        std::string line;
        for (const CsvColumn& column : columns)
            (line += &column == std::begin(columns) ? "" : ",") += column.text({row, watch.settings.place});
        text += line + "\r\n";
    }
    return text;
}

} // namespace halvane
