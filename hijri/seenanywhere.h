// SPDX-License-Identifier: MIT
#pragma once

#include "hijri/mainland.h"
#include "hijri/monthrule.h"

#include <memory>
#include <optional>

namespace halvane {

/// The rules of a crescent that is seen anywhere.
std::unique_ptr<MonthRule> seen_anywhere_rule(Ephemeris& ephemeris, const HijriSettings& settings);

/// A part of the world that is asked for a crescent.
struct SeenSearch {
    const CataloguedCriterion* criterion = nullptr;
    std::size_t seen_class = 1;
    CriteriaSettings limits;
    MapWindow region;
    std::optional<double> before; ///< sunsets from this Julian day in UT1 on do not count            [d]
    const Land* land = nullptr;   ///< what is outside does not count; null: all counts
};

/// The margin at the place of the part where the crescent is seen best, on the evening of one civil date of
/// every place. Nothing where no place has an evening that counts.
/// In     sky          as sky_around_date gives it for `day`
///        day          0 h of the civil date, without a zone                                     [d]
///        conjunction  geocentric; Julian day, UT1                                               [d]
/// Accuracy  not below that of the best place at whole degrees by a tenth of its uncertainty (tests/hijri)
std::optional<MonthMargin> best_margin(const SkyPolynomials& sky, double day, double conjunction,
                                       const SeenSearch& search);

} // namespace halvane
