// SPDX-License-Identifier: MIT
#pragma once

#include "stored/fields.h"

#include <string>

namespace halvane {

/// `phase.vsk`: what the Moon phases panel last showed, in the order of the file.
struct PhaseSettings {
    std::string year = "2004";
    bool geocentric = true;
    bool local_ut1 = true;

    bool operator==(const PhaseSettings&) const = default;
};

/// What they are, in the order of the file.
inline constexpr FieldList phase_fields{
    Field(&PhaseSettings::year, kind::NumberText{}, "year", "text of the year box"),
    Field(&PhaseSettings::geocentric, kind::Boolean{}, "geocentric", "true: geocentric, false: topocentric"),
    Field(&PhaseSettings::local_ut1, kind::Boolean{}, "local-ut1",
          "true: local UT1, false: local dynamical time"),
};

/// The stored choices. Reads `phase.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const PhaseSettings& read_phase();

/// Rewrites `phase.vsk` whole.
void write_phase(const PhaseSettings& settings);

} // namespace halvane
