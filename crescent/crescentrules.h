// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "calendar/hijriconversion.h"
#include "crescent/conjunction.h"
#include "events/dayevents.h"
#include "report/run.h"

#include <array>
#include <optional>
#include <string>

namespace halvane {

/// Captions of the three days before a conjunction has been looked for.
std::array<TwinText, 3> day_captions(bool new_crescent);

/// Captions of the Sun's and the Moon's event at which a crescent is looked for.
std::array<TwinText, 2> event_captions(bool new_crescent);

/// The Hijri months as the panel's list names them, Muharram first. The sixth has an Arabic spelling of its
/// own here.
MonthNames hijri_month_list(Language language);

/// "dd/mm/yyyy  CE".
std::string day_caption(const DateNumbers& date);

/// The inputs that may hold what has no answer.
enum class CrescentInput { gregorian_year, hijri_year, user_time };

struct CrescentRefusal {
    CrescentInput input;
    Refusal told;
};

/// What the user is told of a year beyond the theories, or of a time that is used and lies farther from the
/// day than a stored time may; nothing for choices that can be calculated.
std::optional<CrescentRefusal> refused_conjunction(const CrescentSettings& settings);
std::optional<CrescentRefusal> refused_user_time(const CrescentSettings& settings);

/// The choices with both approximate dates led to the crescent that comes next: the first of which one of the
/// three days of observation is today or later.
/// In     run    of the kind of crescent and the reference that are looked for
///        today  civil date
CrescentSettings coming_crescent(const TheoryPointer& theory, const CrescentRecords& run,
                                 const DateNumbers& today);

/// Two lines: the conjunction's date and local clock; the same in UT, and the Hijri month that it begins, or
/// ends for an old crescent.
TwinWords conjunction_words(const Conjunction& conjunction, const CrescentRecords& run);

/// What the crescent visibility panel keeps between its buttons: the conjunction that its choices have led
/// to. Any change of the choices drops it, so that no calculation sees one of other choices.
class CrescentRules {
public:
    /// Finds the conjunction of the choices and keeps it.
    Conjunction prepare(const TheoryPointer& theory, const CrescentRecords& run) {
        Ephemeris ephemeris(theory);
        return conjunction_.emplace(find_conjunction(ephemeris, run));
    }
    void reset() { conjunction_.reset(); }
    bool is_prepared() const { return conjunction_.has_value(); }

    /// The days to choose from, in the order of the panel: the conjunction's, then one and two days after it
    /// (new crescent) or before it (old). Only when prepared.
    std::array<DateNumbers, 3> days(bool new_crescent) const;
    /// The same as captions.
    std::array<std::string, 3> dates(bool new_crescent) const;

    /// Stores the choices and calculates their report. Only when prepared.
    /// In,out events  as crescent_circumstances
    RunPointer calculate(const TheoryPointer& theory, const CrescentRecords& run, DayEvents& events) const;

private:
    std::optional<Conjunction> conjunction_;
};

} // namespace halvane
