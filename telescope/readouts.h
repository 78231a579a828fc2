// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "telescope/pointing.h"

#include <array>
#include <string>

namespace halvane {

/// A read-out of the telescope panel.
struct ReadOut {
    const char* label; ///< name of the control that shows it
    std::string text;
};

/// The twelve read-outs, to the second: of the Sun, the Moon and the crescent, each by right ascension,
/// declination, altitude and azimuth.
std::array<ReadOut, 12> telescope_readouts(const TelescopePointing& pointing);

/// What the user is told when the Moon is too low.
extern const TwinMessage moon_below_horizon;

} // namespace halvane
