// SPDX-License-Identifier: MIT
#pragma once

#include "base/progress.h"
#include "base/twintext.h"
#include "crescent/criteriacatalogue.h"
#include "finemap/mapclass.h"

#include <optional>
#include <vector>

namespace halvane {

/// The part of the world between two meridians and two parallels. It is at most 360 wide; one that crosses
/// the date line ends east of 180                                                                [deg]
struct MapWindow {
    double west = -180; ///< -180 to below 180
    double south = -85;
    double east = 180; ///< above west
    double north = 85;
    bool operator==(const MapWindow&) const = default;
};

/// The whole range of latitudes that a map may show                                              [deg]
inline constexpr double most_northern = 85;
inline constexpr double most_southern = -85;

/// The meridian where the dates of evenings step by a day                                        [deg]
inline constexpr double antimeridian = 180;

/// From the longitudes of a window beyond the date line to those of observers                    [deg]
inline constexpr double shift_beyond_date_line = -360;

/// The longitude of an observer, -180 to 180, from that of a window                              [deg]
constexpr double observer_longitude(double longitude) {
    return longitude > antimeridian ? longitude + shift_beyond_date_line : longitude;
}

/// What a map is made of.
struct FineMapSettings {
    CrescentKind kind = CrescentKind::new_crescent;
    double day = 0;         ///< 0 h of the civil date of every place, without a zone            [d]
    double conjunction = 0; ///< geocentric; Julian day, UT1                                     [d]
    const CataloguedCriterion* criterion = nullptr;
    CriteriaSettings limits;
    MapWindow window;
    double step = 0.5; ///< between the places that are judged                                   [deg]
};

/// Why no map can be made; nothing when it can. A criterion that judges by one place has no map, and one that
/// judges new crescents alone has none of a morning.
std::optional<TwinWords> refused_map(const FineMapSettings& settings);

/// The numbers of one place of the grid; not finite where the Sun or the Moon has no event.
struct MapNode {
    double value = 0;     ///< the criterion's measure; not finite where there is none
    float lag = 0;        ///< [min]
    float age = 0;        ///< at the Sun's event                                                [h]
    float altitude = 0;   ///< of the Moon at the Sun's event, topocentric, airless              [deg]
    float elongation = 0; ///< at the Sun's event, topocentric                                   [deg]
    MapClass map_class = MapClass::no_event;
};

/// A grid of places on one side of the date line.
struct MapPart {
    double west = 0;  ///< of the first column, in the window's longitudes                       [deg]
    double south = 0; ///< of the first row                                                      [deg]
    double step = 0;  ///< [deg]
    std::size_t columns = 0;
    std::size_t rows = 0;
    std::vector<MapNode> nodes; ///< row by row

    /// From its longitudes to those of observers: its first column may be the date line itself    [deg]
    double shift() const { return west < antimeridian ? 0 : shift_beyond_date_line; }
    double longitude(std::size_t column) const { return west + static_cast<double>(column) * step; }
    double latitude(std::size_t row) const { return south + static_cast<double>(row) * step; }
    const MapNode& at(std::size_t column, std::size_t row) const { return nodes[row * columns + column]; }
};

/// A point of a map                                                                              [deg]
struct MapPosition {
    double longitude = 0; ///< in the window's longitudes: 190 is 170 west
    double latitude = 0;
    bool operator==(const MapPosition&) const = default;
};

/// A closed line; the first point is not repeated.
using MapRing = std::vector<MapPosition>;

struct ZonePolygon {
    MapRing outer;              ///< counter-clockwise
    std::vector<MapRing> holes; ///< clockwise
};

/// All places of one class. The zones of a map share their borders point by point: there is nothing between
/// them and nothing twice.
struct MapZone {
    MapClass map_class = MapClass::band_0;
    std::vector<ZonePolygon> polygons;
};

struct FineMap {
    FineMapSettings settings;
    std::vector<MapPart> parts; ///< one, or two beside each other at the date line
    std::vector<MapZone> zones; ///< in the order of the classes; those without a place are left out
};

/// Makes a map on all cores. Nothing after a cancel, which is seen within a few milliseconds.
/// Accuracy  the borders of the zones are where the criterion has its limits, within 0.001 deg, at any step
///           (docs/finemap.md); a zone that reaches no place of the grid is not seen.
/// Error  raises RunTimeFailure for what refused_map refuses, and as the ephemeris.
std::optional<FineMap> make_fine_map(const TheoryPointer& theory, const FineMapSettings& settings,
                                     Progress& progress);

/// The grid of a map alone, without zones, by the calling thread. Nothing after a cancel, which is seen after
/// each row.
/// Error  raises RunTimeFailure as make_fine_map
std::optional<std::vector<MapPart>> judged_grid(const TheoryPointer& theory, const FineMapSettings& settings,
                                                Progress& progress);

/// What the criterion says of one place.
struct PlaceAnswer {
    MapClass map_class = MapClass::no_event;
    std::optional<double> value;            ///< of the measure
    std::optional<CrescentEvening> evening; ///< nothing where the Sun or the Moon has no event
};

/// The answer for a place of a map, from the ephemeris itself.
PlaceAnswer answer_at(Ephemeris& ephemeris, const FineMapSettings& settings, const MapPosition& place);

} // namespace halvane
