// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "crescent/criteriacatalogue.h"

#include <optional>
#include <vector>

namespace halvane {

/// What a criterion says of an evening or a morning.
struct CrescentVerdict {
    const CataloguedCriterion* criterion = nullptr;
    std::optional<double> value; ///< of its measure; nothing where the criterion has no answer
};

/// Whether a crescent can be looked for on a day at a place, and what each criterion says of it.
struct ShortAnswer {
    CrescentKind kind = CrescentKind::new_crescent;
    double day = 0;                         ///< 0 h of the civil date                           [d]
    bool has_sun_event = false;             ///< whether the Sun sets, or rises for an old crescent
    std::optional<CrescentEvening> evening; ///< nothing when the Sun or the Moon has no event
    /// Of every criterion that judges this kind; of those alone that judge by a place of their own when there
    /// is nothing to be seen at the observer's.
    std::vector<CrescentVerdict> verdicts;

    /// Whether there is a crescent: the Moon outlasts the Sun, and the conjunction is over (new) or to come
    /// (old).
    bool has_crescent() const;
};

/// In     day          0 h of the civil date, without a zone                                    [d]
///        conjunction  geocentric; Julian day, UT1                                              [d]
/// Error  as crescent_evening.
ShortAnswer short_answer(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double day,
                         double conjunction, const CriteriaSettings& settings = {});

/// The same for a civil date of a place's clock.
/// In     date  0 h of it; `sun` is of it                                                       [d]
ShortAnswer short_answer(Ephemeris& ephemeris, const Observer& observer, CrescentKind kind, double date,
                         const EventOfDate& sun, double conjunction, const CriteriaSettings& settings = {});

/// The answer in lines: the day, then the events, the lag and what stands in the sky at Best Time, or why
/// there is no crescent; then a line for each verdict. In     hours_ahead  of the local clock, of Universal
/// Time                                    [h]
///        place        its name
TwinWords words_of(const ShortAnswer& answer, double hours_ahead, const std::string& place);

} // namespace halvane
