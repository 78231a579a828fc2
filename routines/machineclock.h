// SPDX-License-Identifier: MIT
#pragma once

#include "base/machinetime.h"

#include <cstdint>

namespace halvane {

/// The machine's local time now, or what set_machine_time has put in its place.
MachineTime machine_time();

/// The machine's instant now in Universal Time, whatever zone its clock shows.
MachineTime universal_time();

/// The same as seconds since 1970 January 1 0 h.
std::int64_t utc_second_now();

/// Puts a fixed time in place of the machine's clock (tests and reproducible reports).
void set_machine_time(const MachineTime& time);

/// Whether a fixed time stands in its place.
bool machine_time_is_set();

/// How far the fixed time is ahead of Universal Time; 0 until it is set.
/// In     hours  east positive                                                                  [h]
void set_machine_zone(double hours);

/// Gives the machine's own clock and zone back.
void use_machine_clock();

} // namespace halvane
