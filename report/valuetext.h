// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "calendar/taggedtime.h"

#include <optional>
#include <string>

namespace halvane {

/// The texts of values in the machine formats, by ISO 8601 and the same in every locale.

/// "2026-02-18"; a year before 0 has a minus sign and four digits.
std::string iso_date(const DateNumbers& date);

/// "04:57:12.345678" of hours modulo 24, rounded to the microsecond; "24:00:00.000000" for the last half of
/// one. So many digits let a reader round to the second or the minute as the reports do. Error  raises
/// RunTimeFailure for hours that are not finite.
std::string iso_clock(double hours);

/// The clock, or "up", "down", "bright", "dark"; nothing for a time that does not exist without a reason.
std::optional<std::string> iso_time(const TaggedTime& time);

/// "2026-02-18T04:57:12.345678" of a Julian day, rounded to the microsecond.
std::string iso_moment(double jd);

/// The shortest decimal digits that read back as the number.
/// Error  raises RunTimeFailure for a number that is not finite.
std::string exact_number(double value);

} // namespace halvane
