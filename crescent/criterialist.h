// SPDX-License-Identifier: MIT
#pragma once

#include "crescent/criteriacatalogue.h"
#include "report/run.h"

#include <cstddef>
#include <string>

namespace halvane {

/// A class of a criterion, as the list of the catalogue has it.
struct CatalogueRow {
    const CataloguedCriterion* criterion = nullptr;
    std::size_t visibility = 0; ///< its place among the classes, 0 the lowest

    const CriterionClass& band() const { return criterion->bands()[visibility]; }
    bool is_highest() const { return visibility + 1 == criterion->bands().size(); }
};

/// The values of the measure that a class begins with: "above 0.216 deg", "from 8 deg", "below" for the
/// lowest.
std::string border_text(const CatalogueRow& row);

/// When a criterion looks at the sky: "Best Time", "sunset or sunrise", "sunset".
const char* moment_text(const CataloguedCriterion& criterion);

/// Lists every criterion with its classes, the highest first.
RunPointer criteria_run();

} // namespace halvane
