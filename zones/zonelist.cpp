// SPDX-License-Identifier: MIT
#include "zones/zonelist.h"

#include "base/record.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace halvane {
namespace {

constexpr std::string_view file_name = "zones.csv";
constexpr int columns = 4;

/// Great circle between two places [deg]. Source  the haversine formula.
double distance(double latitude_a, double longitude_a, double latitude_b, double longitude_b) {
    constexpr double degree = std::numbers::pi / 180;
    const double north = std::sin((latitude_b - latitude_a) * degree / 2);
    const double east = std::sin((longitude_b - longitude_a) * degree / 2);
    const double square =
        north * north + std::cos(latitude_a * degree) * std::cos(latitude_b * degree) * east * east;
    return 2 * std::asin(std::sqrt(std::clamp(square, 0.0, 1.0))) / degree;
}

} // namespace

ZoneList::ZoneList(std::vector<ZonedPlace> places) : places_(std::move(places)) {
    std::stable_sort(places_.begin(), places_.end(),
                     [](const ZonedPlace& a, const ZonedPlace& b) { return a.name < b.name; });
}

const ZonedPlace* ZoneList::find(std::string_view place) const {
    const auto found = std::lower_bound(
        places_.begin(), places_.end(), place,
        [](const ZonedPlace& listed, std::string_view wanted) { return listed.name < wanted; });
    return found != places_.end() && found->name == place ? &*found : nullptr;
}

std::optional<std::string> ZoneList::zone_of(std::string_view place) const {
    const ZonedPlace* found = find(place);
    return found ? std::optional(found->zone) : std::nullopt;
}

std::optional<std::string> ZoneList::zone_of(const Location& location) const {
    const ZonedPlace* found = find(location.name);
    if (!found ||
        distance(found->latitude, found->longitude, latitude_of(location), longitude_of(location)) > farthest)
        return std::nullopt;
    return found->zone;
}

ZoneList read_zone_list() {
    const std::string path = delivered_path(file_name);
    const std::string text = read_text_file(path);
    RecordReader reader(text, path);
    std::vector<ZonedPlace> places;
    for (bool head = true; !reader.at_end(); head = false) {
        reader.start_record();
        if (head) {
            for (int column = 0; column < columns; ++column)
                reader.text();
            continue;
        }
        ZonedPlace place;
        place.name = reader.text();
        place.latitude = reader.number();
        place.longitude = reader.number();
        place.zone = reader.text();
        places.push_back(std::move(place));
    }
    return ZoneList(std::move(places));
}

} // namespace halvane
