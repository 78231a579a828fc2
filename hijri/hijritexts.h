// SPDX-License-Identifier: MIT
#pragma once

#include "events/phase.h"
#include "hijri/hijriyears.h"

#include <string>
#include <vector>

namespace halvane {

// What all files and pages of Hijri months say alike.

/// "Ramadan 1447"
TwinWords month_words(HijriMonthNumber month);

/// "seen-here-yallop-319500n359333e": a rule with its criterion, what is not the usual
/// (unusualsettings.h) and its place, without announced starts.
std::string rule_key(const HijriSettings& settings);
/// The same, with "announced-" before it where announced starts are used.
std::string settings_key(const HijriSettings& settings);
/// Those of several rules, by settings_key; where two are alike the later one ends with its number.
std::vector<std::string> distinct_keys(const std::vector<RuleMonths>& rules);
/// Those of the events of several rules: each its rule_key, so that an event stays itself when its start is
/// announced; its settings_key where the same rule stands there without announced starts too. Their order
/// counts for nothing, and two of one rule with the same starts are alike.
std::vector<std::string> event_keys(const std::vector<RuleMonths>& rules);

/// The book or the body that a rule comes from, or its criterion where it asks for one.
std::string source_of(const HijriSettings& settings);

/// What a rule asks for.
struct AskedThing {
    const char* key; ///< "place", "criterion", "region": the names of the options; "place_before_fajer"
    TwinText name;
};
std::vector<AskedThing> asked_things(const HijriRule& rule);

/// The notes of a month as one text, "; " between them; empty without any.
std::string notes_text(const HijriMonth& month, Language language);

/// The keys of a month's notes: "may_differ", "announced" ...
std::vector<std::string> note_keys(const HijriMonth& month);

/// "Full Moon", "First quarter"
TwinWords phase_words(Phase phase);

/// "0", "+1", "-1"
std::string signed_days(int days);

} // namespace halvane
