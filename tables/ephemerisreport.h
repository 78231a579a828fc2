// SPDX-License-Identifier: MIT
#pragma once

#include "report/column.h"
#include "report/report.h"
#include "stored/coor.h"
#include "stored/loc.h"
#include "tables/ephemerisrow.h"

#include <span>

namespace halvane {

/// The body of the settings.
TableBody body_of(const EphemerisSettings& settings);

/// The head of `ephemeris.out`.
void write_ephemeris_head(Report& report, const EphemerisSettings& settings, const Location& location);

/// A line of the table.
struct EphemerisLine {
    double clock = 0; ///< local, as a Julian day                                                    [d]
    EphemerisRow row;
};

/// What it holds; the Moon's ends in her house.
std::span<const ColumnOf<EphemerisLine>> ephemeris_columns(TableBody body);

/// One row.
/// Error  raises RunTimeFailure for a value that is not finite.
void write_ephemeris_row(Report& report, TableBody body, const EphemerisLine& line);

/// The rule and the remarks after the last row.
void write_ephemeris_closing(Report& report);

} // namespace halvane
