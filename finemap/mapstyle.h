// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "crescent/criteriacatalogue.h"
#include "crescent/visibilityclass.h"
#include "finemap/mapclass.h"
#include "finemap/maplines.h"

#include <string>
#include <vector>

namespace halvane {

/// The sign that is repeated within a zone, so that no class is told by its colour alone.
enum class MapMark { dash, dot, ring, triangle, square, star, cross, arrow, question, bars };

/// How a class looks on a map.
struct MapStyle {
    ClassColour colour; ///< laid over land and sea with zone_opacity
    MapMark mark = MapMark::dash;
    const char* mark_name = ""; ///< "ring"
};

/// How much of a zone's colour covers what lies below it, 0 to 1.
inline constexpr double zone_opacity = 0.6;

/// The colours of a map without zones: chosen together with those of the classes (docs/finemap.md).
inline constexpr ClassColour map_sea{0xF1, 0xF5, 0xF7};
inline constexpr ClassColour map_land{0xDD, 0xD5, 0xC3};

/// How a class of a criterion looks: the highest class of each alike, and the lowest too.
MapStyle style_of(const CataloguedCriterion& criterion, MapClass map_class);

/// The classes that a map by a criterion may show: its own, the highest first, then those without an answer.
std::vector<MapClass> legend_classes(const CataloguedCriterion& criterion);

/// What a class says.
TwinText words_of(const CataloguedCriterion& criterion, MapClass map_class, CrescentKind kind);

/// The class in files for other programs: "band_0" of the lowest, "moon_goes_first".
std::string key_of(MapClass map_class);

/// The number of a class in tables: 1 where there is no answer, 2 where the Moon goes first or the
/// conjunction is still to come, 3 and more for the classes of the criterion from the lowest up; those that
/// the small map has too bear its numbers.
int number_of(const CataloguedCriterion& criterion, MapClass map_class);

/// The borders of a map that have names.
enum class NamedBorder { none, moon_with_sun, conjunction_at_sun };

/// What the border between two classes is.
NamedBorder named_border(MapClass one, MapClass other);

TwinText words_of(NamedBorder border, CrescentKind kind);

/// What lines of equal value are of, and its unit.
TwinText words_of(MapQuantity quantity);
TwinText unit_of(MapQuantity quantity);
/// Its word on command lines: "lag", "age", "altitude", "elongation".
const char* key_of(MapQuantity quantity);
inline constexpr MapQuantity map_quantities[] = {MapQuantity::lag, MapQuantity::age, MapQuantity::altitude,
                                                 MapQuantity::elongation};

} // namespace halvane
