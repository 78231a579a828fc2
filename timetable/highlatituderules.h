// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/night.h"

#include <optional>

namespace halvane {

/// The parts of a night that a rule gives to Fajer, before sunrise, and to Isha, after sunset.
struct NightParts {
    double fajer = 0;
    double isha = 0;
    TimeSource source = TimeSource::middle;
};

/// The parts of one of the three rules that need nothing but the angles; nothing for any other.
/// In     fajer_angle, isha_angle  depressions of the Sun                                          [deg]
/// Source the rules stand in the published notes on calculation of several authorities: half, a seventh, and
///        the angle over 60 of the night.
std::optional<NightParts> night_parts(HighLatitudeRule rule, double fajer_angle, double isha_angle);

/// The parts that Fajer and Isha have of a night in which they exist; nothing without them.
/// Source Fiqh Council of the Muslim World League, ninth session, 1406 AH (1986), eighth decree: the share of
///        the night at 45 degrees.
std::optional<NightParts> night_shares(const Night& night);

/// Puts the times of a rule into a night, from its sunset and sunrise: where the angle gave none, or as `use`
/// says. Without sunset and sunrise nothing changes.
/// In     with_isha  false where Isha follows Maghreb by an interval
void take_parts(Night& night, const NightParts& parts, RuleUse use, bool with_isha);

/// Puts the Fajer and Isha of a lower latitude's night into one, clock for clock.
void take_clock(Night& night, const Night& lower, RuleUse use, bool with_isha);

} // namespace halvane
