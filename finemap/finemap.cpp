// SPDX-License-Identifier: MIT
#include "finemap/finemap.h"

#include "base/failure.h"
#include "base/sharedwork.h"
#include "finemap/classborders.h"
#include "finemap/zones.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace halvane {
namespace {

/// The places of a grid from one degree to another, both at whole steps and within their limits.
std::size_t places_within(double first, double last, double step) {
    return static_cast<std::size_t>(std::lround((last - first) / step)) + 1;
}

MapPart empty_part(double west, double east, double south, double north, double step) {
    MapPart part{west, south, step, places_within(west, east, step), places_within(south, north, step), {}};
    part.nodes.resize(part.columns * part.rows);
    return part;
}

/// The grids that cover a window, to the next whole steps outside it.
std::vector<MapPart> parts_of(const MapWindow& window, double step) {
    const auto down = [step](double degrees) { return std::floor(degrees / step) * step; };
    const auto up = [step](double degrees) { return std::ceil(degrees / step) * step; };
    const double south = std::max(down(window.south), most_southern);
    const double north = std::min(up(window.north), most_northern);
    const double west = down(window.west);
    const double east = up(window.east);
    std::vector<MapPart> parts;
    if (west < antimeridian)
        parts.push_back(empty_part(west, std::min(east, antimeridian), south, north, step));
    if (east > antimeridian)
        parts.push_back(empty_part(std::max(west, antimeridian), east, south, north, step));
    return parts;
}

void judge_row(const MapJudge& judge, MapPart& part, std::size_t row) {
    MapJudge::OfRow judge_of_row(judge, part.latitude(row));
    for (std::size_t column = 0; column < part.columns; ++column)
        part.nodes[row * part.columns + column] = node_of(judge_of_row.at(part.longitude(column)));
}

bool judge_part(const MapJudge& judge, MapPart& part, Progress& progress) {
    const auto begin = [&]() -> DoPiece { return [&](std::size_t row) { judge_row(judge, part, row); }; };
    return share_work(part.rows, begin, progress);
}

/// Adds the zones of a part to those of the same class.
void add_zones(std::vector<MapZone>& zones, std::vector<MapZone> added) {
    for (MapZone& zone : added) {
        auto place = std::find_if(zones.begin(), zones.end(),
                                  [&zone](const MapZone& each) { return each.map_class >= zone.map_class; });
        if (place == zones.end() || place->map_class != zone.map_class)
            place = zones.insert(place, {zone.map_class, {}});
        for (ZonePolygon& polygon : zone.polygons)
            place->polygons.push_back(std::move(polygon));
    }
}

bool make_part(const MapJudge& judge, FineMap& map, MapPart& part, double first, double last,
               Progress& progress) {
    constexpr double judging = 0.8; // of a part's time
    const double judged = first + (last - first) * judging;
    StageProgress of_places(progress, first, judged);
    StageProgress of_borders(progress, judged, last);
    if (!judge_part(judge, part, of_places))
        return false;
    const std::optional<ClassBorders> borders = class_borders(judge, part, of_borders);
    if (!borders)
        return false;
    add_zones(map.zones, zones_within(*borders));
    return true;
}

} // namespace

std::optional<TwinWords> refused_map(const FineMapSettings& settings) {
    const CataloguedCriterion& criterion = *settings.criterion;
    if (criterion.place)
        return TwinWords(
            std::string(criterion.name.english) + " judges by one place alone, so there is no map of it.",
            "يحكم معيار " + std::string(criterion.name.arabic) + " بمكان واحد فقط، فلا خريطة له.");
    if (settings.kind == CrescentKind::old_crescent && !criterion.of_mornings)
        return TwinWords(std::string(criterion.name.english) +
                             " judges new crescents alone, so there is no map of a morning.",
                         "معيار " + std::string(criterion.name.arabic) +
                             " لهلال أول الشهر فقط، فلا خريطة له في الصباح.");
    return std::nullopt;
}

std::optional<std::vector<MapPart>> judged_grid(const TheoryPointer& theory, const FineMapSettings& settings,
                                                Progress& progress) {
    if (const std::optional<TwinWords> refused = refused_map(settings))
        throw RunTimeFailure(*refused);
    Ephemeris ephemeris(theory);
    const SkyPolynomials sky = sky_around_date(ephemeris, settings.day);
    std::vector<MapPart> parts = parts_of(settings.window, settings.step);
    double rows = 0;
    for (const MapPart& part : parts)
        rows += static_cast<double>(part.rows);
    double done = 0;
    for (MapPart& part : parts) {
        const MapJudge judge(settings, sky, part.shift());
        for (std::size_t row = 0; row < part.rows; ++row) {
            judge_row(judge, part, row);
            progress.percent(100 * ++done / rows);
            if (!progress.yield())
                return std::nullopt;
        }
    }
    return parts;
}

std::optional<FineMap> make_fine_map(const TheoryPointer& theory, const FineMapSettings& settings,
                                     Progress& progress) {
    if (const std::optional<TwinWords> refused = refused_map(settings))
        throw RunTimeFailure(*refused);
    Ephemeris ephemeris(theory);
    const SkyPolynomials sky = sky_around_date(ephemeris, settings.day);
    FineMap map{settings, parts_of(settings.window, settings.step), {}};
    double columns = 0;
    for (const MapPart& part : map.parts)
        columns += static_cast<double>(part.columns);
    double first = 0;
    for (MapPart& part : map.parts) {
        const double last = first + 100 * static_cast<double>(part.columns) / columns;
        const MapJudge judge(map.settings, sky, part.shift());
        if (!make_part(judge, map, part, first, last, progress))
            return std::nullopt;
        first = last;
    }
    return map;
}

} // namespace halvane
