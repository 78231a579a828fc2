// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/crescent.h"

namespace halvane::HALVANE_INLINE v1 {

/// The tabular calendar: cycles of 30 years from 16 July 622 (Julian), as Halvane's reports reckon.
/// Error  raise Error (bad_argument) for a date before the calendar, or one that it has not.
HALVANE_EXPORT HijriDate tabular_hijri(const Date& date);
/// The civil date of a Hijri one by that calendar.
HALVANE_EXPORT Date tabular_civil(const HijriDate& date);

/// What decides when a month begins.
struct HijriRule {
    std::string key; ///< "umm-al-qura"
    std::string name;
    std::string arabic_name; ///< UTF-8
    std::string told;        ///< the rule in a sentence or two
    std::string source;
    bool asks_place = false;
    bool asks_criterion = false;
    bool asks_region = false;
};
/// Every rule, in the order of Halvane's lists.
HALVANE_EXPORT std::vector<HijriRule> hijri_rules();

/// Until when a crescent that is seen anywhere counts.
enum class SeenBefore {
    any_time = 0,
    midnight = 1, ///< 24 h Universal Time of the evening's date
    fajer = 2,    ///< Fajer of the next day at the place
};

/// The first day of a month as somebody announced it.
struct AnnouncedStart {
    int year = 1;
    int month = 1; ///< 1 to 12
    Date first_day;
    std::string announced_by;
};

/// A rule with what it asks for; what it does not ask for is not looked at.
struct HijriChoices {
    std::string rule = "umm-al-qura"; ///< key
    Observer place{};
    Clock clock{};                         ///< of the place, by which its dates are counted
    std::string criterion = "yallop-1997"; ///< key
    std::optional<std::size_t>
        seen_class{}; ///< the lowest class that counts as seen; the criterion's `by_eye`
    CriterionLimits limits{};
    double west = -180, south = -60, east = 180, north = 60; ///< where a crescent counts      [deg]
    SeenBefore before = SeenBefore::any_time;
    std::vector<AnnouncedStart> announced{}; ///< in the order of their months
};

/// What is told of a month, added up.
enum HijriNote : unsigned {
    hijri_announced = 1,      ///< its start is an announced one
    hijri_made_to_fit = 2,    ///< its start is not the rule's: months have 29 or 30 days
    hijri_completed = 4,      ///< the month before has 30 days without a crescent after them
    hijri_seen_on_28th = 8,   ///< the month before has 28 days
    hijri_rule_doubtful = 16, ///< by which rule these years were made is not known
    hijri_undecided = 32,     ///< no evening that was asked showed a crescent
};

/// A month by a rule.
struct HijriMonth {
    int year = 1;
    int month = 1; ///< 1 to 12
    Date first_day;
    int days = 0;
    unsigned notes = 0;           ///< of HijriNote, added up
    bool may_differ = false;      ///< the margin is less than the theory's own error
    double margin = not_a_number; ///< on the evening that decided: positive met                [margin_unit]
    std::string margin_unit;      ///< "s", "deg" ...; empty for a mere number
    std::string announced_by;
};

/// The months from one to another by a rule, both inside, without a gap.
/// In     first_year, last_year    1 to 9600, 2000 years at most at once
///        first_month, last_month  1 to 12
/// Accuracy  docs/accuracy.md compares them with published calendars.
/// Error  raises Error: bad_argument; missing_file for a rule that asks for the Americas of an engine without
///        `world.txt`; cancelled.
HALVANE_EXPORT std::vector<HijriMonth> hijri_months(const Engine& engine, const HijriChoices& choices,
                                                    int first_year, int first_month, int last_year,
                                                    int last_month, Progress* progress = nullptr);

/// The Hijri date of a civil date by a rule.
HALVANE_EXPORT HijriDate hijri_date(const Engine& engine, const HijriChoices& choices, const Date& date);
/// The civil date of a Hijri date by a rule.
HALVANE_EXPORT Date civil_date_of(const Engine& engine, const HijriChoices& choices, const HijriDate& date);

} // namespace halvane::HALVANE_INLINEv1
