#pragma once

#include <string>

namespace halvane {

/// `phase.vsk`: what the Moon phases panel last showed, in the order of the file.
struct PhaseSettings {
    std::string year = "2004"; ///< text of the year box
    bool geocentric = true;    ///< false: topocentric
    bool local_ut1 = true;     ///< false: local dynamical time

    bool operator==(const PhaseSettings&) const = default;
};

/// The stored choices. Reads `phase.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const PhaseSettings& read_phase();

/// Rewrites `phase.vsk` whole.
void write_phase(const PhaseSettings& settings);

} // namespace halvane
