// SPDX-License-Identifier: MIT
#include "timetable/timetableplaces.h"

#include "base/failure.h"
#include "base/numberformat.h"
#include "stored/loclist.h"
#include "timetable/csvtable.h"
#include "zones/zonelist.h"

#include <charconv>
#include <cmath>

namespace halvane {
namespace {

constexpr double farthest_latitude = 90;
constexpr double farthest_longitude = 180;
constexpr double least_height = -500;    // below the Dead Sea's shore                               [m]
constexpr double greatest_height = 9000; // above any ground                                         [m]
constexpr double most_zone_hours = 15;

std::optional<TimeZone> known_zone(const Location& location) {
    const std::optional<std::string> name = read_zone_list().zone_of(location);
    if (!name || !is_zone_name(*name))
        return std::nullopt;
    return TimeZone(*name);
}

Location location_at(double latitude, double longitude) {
    Location location;
    location.latitude_degrees = std::fabs(latitude);
    location.longitude_degrees = std::fabs(longitude);
    location.north = latitude >= 0;
    location.south = !location.north;
    location.east = longitude >= 0;
    location.west = !location.east;
    return location;
}

std::string name_by_coordinates(double latitude, double longitude) {
    return format_number(std::fabs(latitude), "0.00") + (latitude >= 0 ? " N " : " S ") +
           format_number(std::fabs(longitude), "0.00") + (longitude >= 0 ? " E" : " W");
}

TwinWords beyond(const char* english, const char* arabic, double least, double greatest) {
    const std::string from = plain_number(least);
    const std::string to = plain_number(greatest);
    return {std::string(english) + " is from " + from + " to " + to,
            std::string(arabic) + " من " + from + " إلى " + to};
}

/// A field of a table of places that may be missing.
class PlaceFields {
public:
    PlaceFields(const CsvTable& table, const std::string& path) : table_(table), path_(path) {}

    std::string text(const CsvRow& row, const char* heading) const {
        const std::optional<std::size_t> column = table_.column(heading);
        return column ? row.fields[*column] : std::string();
    }

    std::optional<double> number(const CsvRow& row, const char* heading) const {
        const std::string found = text(row, heading);
        if (found.empty())
            return std::nullopt;
        double value = 0;
        const auto [end, error] = std::from_chars(found.data(), found.data() + found.size(), value);
        if (error != std::errc() || end != found.data() + found.size() || !std::isfinite(value))
            raise_bad_line(path_, row.line,
                           std::string(heading) + ": wanted a number, found \"" + found + "\"",
                           std::string(heading) + ": المطلوب رقم، و الموجود \"" + found + "\"");
        return value;
    }

    double needed_number(const CsvRow& row, const char* heading) const {
        const std::optional<double> value = number(row, heading);
        if (!value)
            raise_bad_line(path_, row.line, std::string(heading) + " is missing",
                           std::string(heading) + " مفقود");
        return *value;
    }

private:
    const CsvTable& table_;
    const std::string& path_;
};

GivenPlace place_of_row(const PlaceFields& fields, const CsvRow& row, const std::string& path) {
    GivenPlace place;
    place.name = fields.text(row, "name");
    place.latitude = fields.needed_number(row, "latitude");
    place.longitude = fields.needed_number(row, "longitude");
    place.height = fields.number(row, "height").value_or(0);
    place.zone_name = fields.text(row, "zone_name");
    place.zone = fields.number(row, "zone");
    if (const std::optional<TwinWords> refused = refused_place(place))
        raise_bad_line(path, row.line, refused->english, refused->arabic);
    return place;
}

} // namespace

TimetablePlace stored_place() {
    TimetablePlace place{read_loc(), std::nullopt, read_pref(), std::nullopt};
    try {
        place.known_zone = known_zone(place.location);
    } catch (const RunTimeFailure& failure) {
        // The list only lets the stored clock be compared; without it there is nothing to compare.
        if (failure.parts().kind != FailureKind::missing_file)
            throw;
    }
    return place;
}

TimetablePlace listed_place(const std::string& name) {
    const std::optional<Location> location = find_location(name);
    if (!location)
        throw RunTimeFailure(TwinWords{"There is no place \"" + name + "\" in the list of locations.",
                                       "لا يوجد موقع باسم \"" + name + "\" في قائمة المواقع."});
    return listed_place(*location);
}

TimetablePlace listed_place(const Location& location) {
    const std::optional<TimeZone> zone = known_zone(location);
    return {location, zone, read_pref(), zone};
}

std::optional<TimetablePlace> chosen_place(const std::optional<std::string>& name) {
    if (!name)
        return stored_place();
    if (!find_location(*name))
        return std::nullopt;
    return listed_place(*name);
}

TwinWords unknown_place(const std::string& name) {
    if (name.empty())
        return {"Choose a place of the list.", "اختر موقعا من القائمة."};
    return {"There is no place \"" + name + "\" in the list.",
            "لا يوجد موقع باسم \"" + name + "\" في القائمة."};
}

std::optional<TwinWords> refused_place(const GivenPlace& place) {
    if (!(std::fabs(place.latitude) <= farthest_latitude))
        return beyond("a latitude", "خط العرض", -farthest_latitude, farthest_latitude);
    if (!(std::fabs(place.longitude) <= farthest_longitude))
        return beyond("a longitude", "خط الطول", -farthest_longitude, farthest_longitude);
    if (!(place.height >= least_height && place.height <= greatest_height))
        return beyond("a height", "الارتفاع", least_height, greatest_height);
    if (place.zone && !(std::fabs(*place.zone) <= most_zone_hours))
        return beyond("a zone", "فرق التوقيت", -most_zone_hours, most_zone_hours);
    if (place.zone_name.empty() && !place.zone)
        return TwinWords{"a time zone is missing: give zone_name or zone",
                         "المنطقة الزمنية مفقودة: zone_name أو zone"};
    if (!place.zone_name.empty() && !is_zone_name(place.zone_name))
        return TwinWords{"there is no time zone \"" + place.zone_name + "\"",
                         "لا توجد منطقة زمنية باسم \"" + place.zone_name + "\""};
    return std::nullopt;
}

TimetablePlace given_place(const GivenPlace& given) {
    TimetablePlace place;
    place.location = location_at(given.latitude, given.longitude);
    place.location.name =
        given.name.empty() ? name_by_coordinates(given.latitude, given.longitude) : given.name;
    place.location.elevation = given.height;
    place.preferences.summer_time = "0";
    if (given.zone_name.empty())
        place.location.zone = given.zone.value_or(0);
    else
        place.zone = TimeZone(given.zone_name);
    return place;
}

std::vector<GivenPlace> places_of_text(const std::string& text, const std::string& path) {
    const CsvTable table = read_csv_table(text, path);
    for (const char* heading : {"latitude", "longitude"})
        if (!table.column(heading))
            raise_bad_line(path, table.head.line, std::string("there is no column ") + heading,
                           std::string("لا يوجد عمود ") + heading);
    const PlaceFields fields(table, path);
    std::vector<GivenPlace> places;
    for (const CsvRow& row : table.rows)
        places.push_back(place_of_row(fields, row, path));
    if (places.empty())
        raise_bad_line(path, table.head.line, "no place follows the head row",
                       "لا يوجد موقع بعد سطر العناوين");
    return places;
}

} // namespace halvane
