// SPDX-License-Identifier: MIT
#pragma once

#include "report/report.h"
#include "stored/coor.h"
#include "stored/loc.h"
#include "tables/ephemerisrow.h"

namespace halvane {

/// The body of the settings.
TableBody body_of(const EphemerisSettings& settings);

/// The head of `ephemeris.out`.
void write_ephemeris_head(Report& report, const EphemerisSettings& settings, const Location& location);

/// One row. `clock` is the row's local clock as a Julian day [d]; the Moon's row ends in her house.
/// Error  raises RunTimeFailure for a value that is not finite.
void write_ephemeris_row(Report& report, TableBody body, double clock, const EphemerisRow& row);

/// The rule and the remarks after the last row.
void write_ephemeris_closing(Report& report);

} // namespace halvane
