// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"
#include "timetable/timetable.h"
#include "timetable/timetablefiles.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// The days as a person chooses them.
struct SpanChoice {
    SpanKind kind = SpanKind::month;
    double year = 1;  ///< of the kind's calendar
    double month = 1; ///< 1 to 12; of the two kinds that are a month
    DateNumbers from; ///< of the kind that goes from date to date, as is the next
    DateNumbers to;
};

/// The days of a choice, or why there are none.
/// In     hijri  by which Hijri months begin; null for the tabular calendar
/// Error  raises RunTimeFailure, as the reckoning does
SpanAnswer span_of(const SpanChoice& choice, const HijriReckoningPointer& hijri = nullptr);

/// The civil month of a clock's date.
SpanChoice month_of(const MachineTime& clock);

/// A choice of another kind about the first day of this one; without days only the kind changes.
SpanChoice in_kind(const SpanChoice& choice, SpanKind kind, const HijriReckoningPointer& hijri = nullptr);

/// Whether a choice is one month, civil or Hijri.
bool is_one_month(SpanKind kind);
/// The month before or after the one of a choice.
/// In     months  1 or -1
SpanChoice moved(const SpanChoice& choice, int months);

/// What a timetable is made by, as a person chooses it.
struct TimetableChoice {
    SpanChoice span;
    std::optional<std::string> place; ///< name in the list; without it the stored location
    std::optional<std::string> zone;  ///< IANA name; without it the stored zone and summer dates
    Profile profile;
    HijriReckoningPointer hijri = nullptr; ///< by which the Hijri dates are told; null: the tabular calendar
};

/// What of a choice is wrong.
enum class ChoicePart { span, place, zone, columns, rules };

struct WrongChoice {
    ChoicePart part;
    TwinWords words;
};

/// The settings of a choice, or all that is wrong with it.
struct ChoiceAnswer {
    std::optional<TimetableSettings> settings;
    std::vector<WrongChoice> wrong;
};

/// Reads `loc.vsk`, `pref.vsk`, `zones.csv`, and `loc.txt` for a place of the list. A reckoning that fails is
/// told as what is wrong with the span.
/// Error  raises RunTimeFailure for a missing or damaged file.
ChoiceAnswer settings_of(const TimetableChoice& choice);

/// Raises RunTimeFailure, with what is wrong, for a profile that its file could not hold: rules of the
/// preferences may be beyond the limits of a profile.
void require_storable(const Profile& profile);

/// The name of the time zone that a chosen place is known to lie in; an empty text without one. Reads the
/// same files.
std::string known_zone_of(const std::optional<std::string>& place);

/// The ending of a format's files, without the first point; the two tables differ.
std::string ending_of(TimetableFormat format);
/// The format of a file by its name; nothing for another ending.
std::optional<TimetableFormat> format_of_name(std::string_view name);

} // namespace halvane
