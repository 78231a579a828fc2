// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "crescent/quantities.h"
#include "crescent/visibilityclass.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace halvane {

/// A criterion of crescent visibility: its place in the table of criteria. Rows that are spoken of by name
/// have one here; any other is found by its key.
enum class Criterion : int { vesk, yallop, saao };

/// The criterion that the crescent's report puts the circumstances to.
inline constexpr Criterion report_criterion = Criterion::vesk;

/// The moment that a criterion judges an evening or a morning by.
enum class ObservationMoment {
    best_time = 1, ///< four ninths of the lag from the Sun's event
    sun_event = 2, ///< sunset or sunrise
};

/// A line of the colour legend.
struct LegendLine {
    VisibilityClass visibility;
    TwinText text;
};

/// What the crescent's report tells of its criterion.
struct ReportVerdict {
    double (*value)(const CrescentQuantities& q) = nullptr; ///< printed as "q"
    const char* (*sentence)(double value) = nullptr;        ///< the verdict, in English
};

/// A criterion. The panel, the map with its legend, the report and the batch program list the table of these
/// rows and know nothing else of a criterion.
struct CriterionRow {
    static constexpr std::size_t most_bands = 4;

    const char* key; ///< its name for the batch program
    TwinText name;
    ObservationMoment moment;
    /// The class of topocentric, airless quantities: not_possible or a class of `bands`.
    VisibilityClass (*measure)(const CrescentQuantities& q);
    std::array<LegendLine, most_bands> bands; ///< the lowest first; empty ones end the list
    ReportVerdict report = {};                ///< wanted of the report's criterion only

    /// The bands without the empty ones at the end.
    constexpr std::span<const LegendLine> lines() const {
        std::size_t count = 0;
        while (count < bands.size() && bands[count].text.english != nullptr)
            ++count;
        return {bands.data(), count};
    }
};

/// The table, in the order of the lists.
std::span<const CriterionRow> criteria();

const CriterionRow& row_of(Criterion criterion);

/// The criterion of a key; nothing for any other text.
std::optional<Criterion> criterion_of(std::string_view key);

/// The criteria as plain functions of published quantities. All of them are topocentric and airless: ARCV,
/// altitude of the Moon less that of the Sun [deg]; W, width of the crescent [arc minutes]; DAZ, difference
/// of the azimuths without its sign [deg].

/// Height above the line of "Vesk Criteria": V, printed as "q".
double vesk_value(double arcv, double width);
VisibilityClass vesk_class(double value);
/// The verdict of the report.
const char* vesk_sentence(double value);

/// Yallop's q.
/// Source Yallop, NAO Technical Note 69 (1997).
double yallop_value(double arcv, double width);
/// No class for exactly -0.232: the published bands leave it out.
std::optional<VisibilityClass> yallop_class(double q);

/// Apparent altitude of the Moon's lower limb from its airless altitude and semidiameter       [deg]
/// Source Saemundsson, Sky and Telescope 72, 70 (1986) (refraction).
double apparent_lower_limb(double altitude, double semidiameter);
/// Height of the lower limb above the cubic that the two lines of the criterion share            [deg]
double saao_value(double limb, double daz);
/// `limb` is the apparent altitude of the lower limb at sunset or sunrise [deg].
/// Source Caldwell and Laney, African Skies 5, 15 (2001).
VisibilityClass saao_class(double limb, double daz);

} // namespace halvane
