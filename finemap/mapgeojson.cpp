// SPDX-License-Identifier: MIT
#include "calendar/civildate.h"
#include "finemap/mapdocument.h"
#include "finemap/mapstyle.h"
#include "report/valuetext.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include <nlohmann/json.hpp>

namespace halvane {
namespace {

/// A coordinate with at most six decimals                                                        [deg]
std::string coordinate_text(double value) {
    std::array<char, 32> digits{};
    char* end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 6).ptr;
    while (end[-1] == '0')
        --end;
    if (end[-1] == '.')
        --end;
    std::string text(digits.data(), end);
    return text == "-0" ? "0" : text;
}

/// How far a polygon is moved so that its longitudes are from -180 to 180: none crosses the 180th meridian.
double shift_of(const ZonePolygon& polygon) {
    const bool is_beyond =
        std::any_of(polygon.outer.begin(), polygon.outer.end(),
                    [](const MapPosition& place) { return place.longitude > antimeridian; });
    return is_beyond ? shift_beyond_date_line : 0;
}

/// The points of a ring as they are written, each once, the first again at the end; empty where the ring has
/// no area left.
std::string ring_text(const MapRing& ring, double shift) {
    std::vector<std::string> points;
    for (const MapPosition& place : ring) {
        std::string point =
            "[" + coordinate_text(place.longitude + shift) + "," + coordinate_text(place.latitude) + "]";
        if (points.empty() || points.back() != point)
            points.push_back(std::move(point));
    }
    while (points.size() > 1 && points.back() == points.front())
        points.pop_back();
    constexpr std::size_t least_points = 3;
    if (points.size() < least_points)
        return {};
    std::string text = "[";
    for (const std::string& point : points)
        text += point + ",";
    return text + points.front() + "]";
}

/// Empty where the polygon has no area left.
std::string polygon_text(const ZonePolygon& polygon) {
    const double shift = shift_of(polygon);
    const std::string outer = ring_text(polygon.outer, shift);
    if (outer.empty())
        return {};
    std::string text = "[" + outer;
    for (const MapRing& hole : polygon.holes)
        if (const std::string ring = ring_text(hole, shift); !ring.empty())
            text += "," + ring;
    return text + "]";
}

std::string colour_text(const ClassColour& colour) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const unsigned char part : {colour.red, colour.green, colour.blue})
        (text += digits[part / 16]) += digits[part % 16];
    return text;
}

std::string properties_text(const FineMapSettings& settings, MapClass map_class, Language language) {
    const CataloguedCriterion& criterion = *settings.criterion;
    nlohmann::ordered_json properties;
    properties["class"] = key_of(map_class);
    properties["number"] = number_of(criterion, map_class);
    properties["words"] = words_of(criterion, map_class, settings.kind).in(language);
    properties["criterion"] = criterion.key;
    properties["colour"] = colour_text(style_of(criterion, map_class).colour);
    properties["date"] = iso_date(civil_date(settings.day));
    properties["crescent"] = settings.kind == CrescentKind::new_crescent ? "new" : "old";
    properties["conjunction"] = iso_moment(settings.conjunction);
    return properties.dump();
}

std::string feature_text(const FineMapSettings& settings, const MapZone& zone, Language language) {
    std::string polygons;
    for (const ZonePolygon& polygon : zone.polygons)
        if (const std::string text = polygon_text(polygon); !text.empty())
            polygons += (polygons.empty() ? "" : ",") + text;
    if (polygons.empty())
        return {};
    return R"({"type":"Feature","properties":)" + properties_text(settings, zone.map_class, language) +
           R"(,"geometry":{"type":"MultiPolygon","coordinates":[)" + polygons + "]}}";
}

} // namespace

std::string geojson_of(std::span<const FineMap> maps, Language language) {
    std::string features;
    for (const FineMap& map : maps)
        for (const MapZone& zone : map.zones)
            if (const std::string feature = feature_text(map.settings, zone, language); !feature.empty())
                features += (features.empty() ? "\n" : ",\n") + feature;
    return R"({"type":"FeatureCollection","features":[)" + features + "\n]}\n";
}

} // namespace halvane
