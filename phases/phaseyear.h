// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "ephemeris/ephemeris.h"
#include "events/phase.h"
#include "stored/loc.h"
#include "stored/phase.h"
#include "stored/pref.h"

#include <optional>
#include <string>

namespace halvane {

/// What a table of the phases is made from.
struct PhaseYear {
    double year = 2000;
    bool geocentric = true; ///< false: for the observer of `location`
    bool local_ut1 = true;  ///< false: the clock runs on dynamical time
    double delta_t = 0;     ///< taken off with `local_ut1`                                         [s]
    Preferences preferences;
    Location location;
};

/// Delta T beyond this, and any that is not a number, is refused: that of `phase_years` is far below  [s]
inline constexpr double largest_delta_t = 1e6;

/// What the user is told of a year that has no whole table (see phase_years), or of a Delta T that is used
/// and too large; nothing for what can be written.
std::optional<Refusal> refused_phase_year(const PhaseYear& run);
std::optional<Refusal> refused_delta_t(const PhaseYear& run);

/// The stored choices with a text for Delta T as the panel's box holds it. Reads `pref.vsk` and `loc.vsk`.
PhaseYear phase_year(const PhaseSettings& settings, const std::string& delta_t_text);

/// The Delta T that the panel proposes for a year's text: at 15 June, to the hundredth of a second; empty
/// for a year without an answer                                                                        [s]
std::string proposed_delta_t(const std::string& year_text);

/// A phase on the table's clock.
struct LocalPhase {
    double jd = 0;       ///< on the local clock                                                        [d]
    bool summer = false; ///< summer time is in it
};

/// The phase of lunation `k` (a whole number plus the phase's quarter).
/// Error  raises RunTimeFailure when the search does not end.
LocalPhase local_phase(Ephemeris& ephemeris, const PhaseYear& run, Phase phase, double k);

/// Lunation of the table's first row: one before the year.
double first_lunation(double year);

/// "dd/mm/yyyy  clock"
std::string phase_text(const PhaseYear& run, const LocalPhase& phase);

} // namespace halvane
