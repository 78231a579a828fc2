// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "crescent/crescentevening.h"
#include "crescent/criteria.h"

#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string_view>

namespace halvane {

/// The user's own limits; each that is set counts. Lag and age are those of the evening or the morning, the
/// altitude is the Moon's, topocentric and airless, the elongation geocentric, all at sunset or sunrise.
struct UserLimits {
    std::optional<double> lag = 0;        ///< least                                            [min]
    std::optional<double> altitude = 5;   ///< least                                            [deg]
    std::optional<double> elongation = 8; ///< least                                            [deg]
    std::optional<double> age = 0;        ///< least, from the geocentric conjunction           [h]
};

/// What the user may set of the criteria.
struct CriteriaSettings {
    double danjon_limit = 7; ///< least topocentric elongation                                  [deg]
    UserLimits user;
};

/// A class of a criterion: the values of the measure from its border up to the next class.
struct CriterionClass {
    double border = -std::numeric_limits<double>::infinity();
    bool holds_border = true; ///< false: the border itself belongs to the class below
    TwinText text;
};

/// A place on Earth whose evening alone answers a criterion.
struct JudgedPlace {
    double longitude; ///< east positive                                                         [deg]
    double latitude;  ///< north positive                                                        [deg]
};

/// A criterion with the number that its classes are borders of, so that lines can be drawn between them.
struct CataloguedCriterion {
    static constexpr std::size_t most_classes = 6;

    const char* key;
    TwinText name;
    const char* source; ///< a book, a paper or the body that decided
    ObservationMoment moment;
    bool of_mornings = true; ///< whether it judges old crescents too
    TwinText frame;          ///< of the places that are measured
    TwinText measure_name;   ///< what the measure is
    const char* unit;        ///< of the measure; empty for a mere number
    /// Nothing where the criterion has no answer.
    std::optional<double> (*measure)(const CrescentEvening& evening, const CriteriaSettings& settings);
    std::array<CriterionClass, most_classes> classes; ///< the lowest first; empty ones end the list
    std::size_t by_eye = 1; ///< the lowest class of what the eye sees, or of what meets the condition
    std::optional<JudgedPlace> place = std::nullopt; ///< nothing: the observer's own

    /// The classes without the empty ones at the end.
    constexpr std::span<const CriterionClass> bands() const {
        std::size_t count = 0;
        while (count < classes.size() && classes[count].text.english != nullptr)
            ++count;
        return {classes.data(), count};
    }
};

/// Every criterion, in the order of the lists.
std::span<const CataloguedCriterion> catalogued_criteria();

/// The criterion of a key; nullptr for any other text.
const CataloguedCriterion* catalogued_criterion(std::string_view key);

/// The evening or the morning that a criterion judges: of the place that it names, else of the observer's.
/// The rest as crescent_evening.
std::optional<CrescentEvening> judged_evening(Ephemeris& ephemeris, const CataloguedCriterion& criterion,
                                              const Observer& observer, CrescentKind kind, double day,
                                              double conjunction);

/// The measure of an evening or a morning. Nothing where the criterion has no answer: beyond its published
/// range, or for an old crescent when it judges new ones only. Whether the Moon sets first or the conjunction
/// is still to come (CrescentEvening::lag, age) is no part of a criterion of seeing.
/// In     evening  as judged_evening gives it
std::optional<double> criterion_value(const CataloguedCriterion& criterion, const CrescentEvening& evening,
                                      const CriteriaSettings& settings = {});

/// By how much the Moon passes the limits of Istanbul at sunset, altitude 5 and elongation 8, by the smaller
/// margin; the elongation is geocentric and negative while the conjunction is to come. Airless.
/// In     frame_of_altitude  of the evening's quantities at sunset, those whose altitude counts
double istanbul_margin(const CrescentEvening& evening, const CrescentQuantities& frame_of_altitude); // [deg]

/// The class that a value of the measure falls into: an index of bands().
std::size_t class_of_value(const CataloguedCriterion& criterion, double value);

} // namespace halvane
