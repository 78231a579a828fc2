// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace halvane {

/// A candidate hour angle of a body at an azimuth.
struct AzimuthRoot {
    double hour_angle = 0; ///< west positive                                                   [deg]
    bool valid = false;    ///< false: the body never stands there on that side of the meridian
};

/// The two hour angles at which a body of given declination may stand at a given azimuth.
struct AzimuthRoots {
    AzimuthRoot first;
    AzimuthRoot second;
};

/// In     latitude     observer's, north positive                                              [deg]
///        declination  body's                                                                  [deg]
///        azimuth      from north through east                                                 [deg]
/// Returns nothing when the body never reaches the azimuth.
/// Source spherical triangle pole, zenith, body, solved for the hour angle.
std::optional<AzimuthRoots> hour_angles_at(double latitude, double declination, double azimuth);

} // namespace halvane
