// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteriacatalogue.h"
#include "tools/ratecriteria/sightings.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace halvane {

/// How many of the sightings in a class were seen by eye, by aid and not at all, in the order of Seen.
using SeenCounts = std::array<int, 3>;

/// What became of the sightings that a criterion put into each of its classes.
struct CriterionRates {
    const CataloguedCriterion* criterion = nullptr;
    std::vector<SeenCounts> classes; ///< the lowest first
    SeenCounts unanswered{};         ///< the criterion has no answer for them
};

/// The evening or the morning that a sighting belongs to, by the mean time of its place: an evening from noon
/// on.
/// Error  raises RunTimeFailure when the Sun or the Moon does not set or rise then.
CrescentEvening evening_of(Ephemeris& ephemeris, const Sighting& sighting);

/// The rates of every criterion that judges the observer's own place, each at its own moment.
std::vector<CriterionRates> rate_criteria(Ephemeris& ephemeris, std::span<const Sighting> sightings);

/// The rates as a table in Markdown, each criterion's highest class first.
std::string markdown_table(const std::vector<CriterionRates>& rates);

} // namespace halvane
