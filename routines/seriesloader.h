// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "ephemeris/theory.h"

#include <string>
#include <vector>

namespace halvane {

/// Read the four series files of the program, each into its place of the loaded theory.
/// Error  raise RunTimeFailure for a missing, short or damaged file; what was loaded then stays.
void load_termfull();
void load_term();
void load_mterm();
void load_elp();

/// The four files in the order of the main panel's start.
void load_series();

/// The series loaded so far. A later load makes another theory and leaves this one as it is.
TheoryPointer loaded_theory();

/// What is told of the series files that have been looked at and are not the delivered ones, a sentence for
/// each path: "the series file ... is not the delivered one". A file counts as delivered by its size and
/// its CRC-32.
std::vector<std::string> series_notes(Language language);

} // namespace halvane
