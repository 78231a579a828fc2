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

/// The bodies of a pointing.
enum class PointedBody { sun, moon, crescent };

/// The four read-outs of a body, to the second: right ascension, declination, altitude, azimuth.
std::array<ReadOut, 4> readouts_of(PointedBody body, const SkyPlace& place);

/// The read-outs of the Sun, the Moon and the crescent.
std::array<ReadOut, 12> telescope_readouts(const TelescopePointing& pointing);

/// What the user is told when the Moon is too low.
extern const TwinMessage moon_below_horizon;

} // namespace halvane
