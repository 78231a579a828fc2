// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/visibilitymap.h"

#include <string>
#include <vector>

namespace halvane {

/// Language of the map's texts: 'E' English, 'A' Arabic.

/// Name of a criterion in its list.
const char* criterion_name(Criterion criterion, char letter);

/// The colour legend of a map by a criterion: the lines of every map, and between them those of the bands.
std::vector<LegendLine> map_legend(const CriterionRow& criterion);
inline std::vector<LegendLine> map_legend(Criterion criterion) {
    return map_legend(row_of(criterion));
}

/// The Hijri month and year of a map; also the name that its picture is saved under.
std::string map_hijri_text(const MapRun& run, char letter);

/// The five information lines: title, criterion, Hijri month and year, weekday, civil date.
std::vector<std::string> map_information(const MapRun& run, char letter);

/// Whole day, month name and year of a day's 0 h.
std::string map_date_text(double day, char letter);

} // namespace halvane
