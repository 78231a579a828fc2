// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// The house (station) of the Moon by its ecliptic longitude [deg, 0 to 360]. There are 28 of them; a house's
/// first degree belongs to it, and one house lies on both sides of the equinox.
const char* moon_house(double longitude);

} // namespace halvane
