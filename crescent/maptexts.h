// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/visibilitymap.h"

#include <string>
#include <vector>

namespace halvane {

/// The colour legend of a map by a criterion: the lines of every map, and between them those of the bands.
std::vector<LegendLine> map_legend(const CriterionRow& criterion);
inline std::vector<LegendLine> map_legend(Criterion criterion) {
    return map_legend(row_of(criterion));
}

/// The Hijri month and year of a map; also the name that its picture is saved under.
std::string map_hijri_text(const MapRun& run, Language language);

/// The five information lines: title, criterion, Hijri month and year, weekday, civil date.
std::vector<std::string> map_information(const MapRun& run, Language language);

/// "New Crescent Visibility", "Old Crescent Visibility".
TwinText map_title(CrescentKind kind);

/// The Hijri month and year that a crescent begins or ends. In     conjunction_day  0 h of its date    [d]
std::string hijri_month_of(double conjunction_day, CrescentKind kind, Language language);

/// Whole day, month name and year of a day's 0 h.
std::string map_date_text(double day, Language language);

} // namespace halvane
