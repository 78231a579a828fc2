// SPDX-License-Identifier: MIT
#pragma once

#include "base/failure.h"
#include "calendar/hijricalendar.h"
#include "ephemeris/theory.h"
#include "hijri/announcedlist.h"
#include "hijri/hijrirules.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace halvane {

struct TimetablePlace;

/// A rule of months as a person chooses it. What the rule does not ask for is kept, and not looked at.
struct HijriChoice {
    std::string rule;                      ///< key; empty: the first rule
    std::optional<std::string> place;      ///< name in the list; without it the stored location. "Seen
                                           ///< here" does not look at it, "seen at a place" needs it
    std::string criterion = "yallop";      ///< key
    std::optional<std::size_t> seen_class; ///< the lowest class that counts as seen, an index of the
                                           ///< criterion's bands from 1 on; without it the usual one
    CriteriaSettings limits;
    MapWindow region = HijriSettings{}.region; ///< longitudes and latitudes                           [deg]
    SeenBefore before = SeenBefore::any_time;
    AnnouncedUse announced = AnnouncedUse::none;
};

/// What of a choice is wrong.
enum class HijriPart { rule, place, criterion, seen_class, limits, region, announced };

/// The settings of a choice, or what is wrong with it.
struct HijriAnswer {
    std::optional<HijriSettings> settings;
    HijriPart wrong = HijriPart::rule;
    TwinWords words; ///< of what is wrong, in whole sentences
};

/// Reads `loc.vsk`, `pref.vsk`, `zones.csv` where the rule asks for a place, `loc.txt` for one of the list,
/// `world.txt` where the rule has an exception of the Americas, and `hijri-announced.csv` where announced
/// months are used.
/// In     year  civil year of whose first day the place's clock is taken
/// Error  raises RunTimeFailure for a missing or damaged file.
HijriAnswer settings_of(const HijriChoice& choice, double year);

/// The same of a list that has been read.
HijriAnswer settings_of(const HijriChoice& choice, double year, const AnnouncedList& announced);

/// The same, whatever the choice's place is, at one that has been found: it is "here" too.
HijriAnswer settings_of(const HijriChoice& choice, double year, const AnnouncedList& announced,
                        const TimetablePlace& place);

/// The choice of an INI text.
/// Error  raises RunTimeFailure (damaged file) naming `path`, the line, the key and what is wrong there.
HijriChoice hijri_choice_of_text(const std::string& text, const std::string& path);
/// The text of a choice's file: every key with its value.
std::string text_of(const HijriChoice& choice);

// The rule that dates outside the panel are told by is a file of the program folder: "hijri-rule.ini".

/// Nothing where no rule was chosen.
/// Error  raises RunTimeFailure for a damaged file.
std::optional<HijriChoice> kept_hijri_rule();
/// A fault of the kept rule that settings_of has told: "hijri-rule.ini, class: ...".
RunTimeFailure kept_rule_failure(const HijriAnswer& answer);
/// Error  raises RunTimeFailure; an earlier file then stands.
void keep_hijri_rule(const HijriChoice& choice);
/// As if none had been chosen.
void forget_hijri_rule();

/// The reckoning of a kept choice; null for the calendar that is used where nothing is chosen.
/// Error  raises RunTimeFailure: kept_rule_failure of a choice with a fault, and as settings_of.
HijriReckoningPointer reckoning_of(const TheoryPointer& theory, const HijriChoice& kept, double year);

/// The kept rule for a program that asks again and again: a reckoning, with the months that it has made,
/// stands until something that it was made of is another.
class KeptReckoning {
public:
    /// The reckoning of the kept rule, read anew; null where none was chosen.
    /// Error  raises RunTimeFailure, as reckoning_of
    HijriReckoningPointer now(const TheoryPointer& theory, double year);

private:
    TheoryPointer theory_;
    std::string made_of_;
    HijriReckoningPointer reckoning_;
};

} // namespace halvane
