// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/moon.h"
#include "ephemeris/sun.h"

namespace halvane {

/// The four phases of the Moon.
enum class Phase { new_moon, first_quarter, full_moon, last_quarter };

/// Days that the Moon takes for one degree of elongation.
inline constexpr double days_per_degree = 0.082077778;

/// Mean synodic month; Meeus, Astronomical Algorithms, 2nd ed., chapter 49, where it multiplies k      [d]
inline constexpr double synodic_month = 29.530588861;

/// A search for a phase ends when a step is below a quarter of a second                               [d]
inline constexpr double phase_tolerance = 0.00000289;

/// The lunation index k of a Julian day of dynamical time, with its fraction, by lunations of one length:
/// their phases are less than a day from the mean ones of the book in the years -4000 to 10000.
double mean_lunation(double dynamical);

/// A phase by the published mean lunations with periodic terms.
/// In     phase  which
///        k      lunation index, a whole number (0 is the New Moon of 2000 January 6) plus 0, 0.25, 0.5, 0.75
/// Returns the Julian day of dynamical time; a minute or less from the true phase.
/// Source Meeus, Astronomical Algorithms, chapter "Phases of the Moon".
double phase_estimate(Phase phase, double k);

/// Elongation of the Moon from the Sun less that of the phase, folded once at 60                      [deg]
double elongation_from_phase(Phase phase, double moon_longitude, double sun_longitude);

/// The moment at which the elongation of the full theories is that of the phase.
/// In     estimate  Julian day of dynamical time within a fortnight of it                            [d]
///        observer  of topocentric longitudes; nullptr: geocentric ones
/// Returns the Julian day of dynamical time.
/// Error  raises RunTimeFailure when the search does not end.
/// Accuracy  docs/accuracy.md.
double refined_phase(Ephemeris& ephemeris, Phase phase, double estimate, const Observer* observer = nullptr);

} // namespace halvane
