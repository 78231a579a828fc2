// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// How one direction lies from another: along a great circle.
struct SkyOffset {
    double separation = 0; ///< 0 to 180                                                        [deg]
    /// At the first direction, from the pole of the coordinates towards growing longitudes, 0 to below 360:
    /// of right ascension and declination the position angle, from the north to the east; of azimuth and
    /// altitude from the zenith to the right                                                   [deg]
    double angle = 0;
};

/// In     longitude, latitude  right ascension and declination, or azimuth and altitude         [deg]
/// Source Meeus, Astronomical Algorithms, chapters "Angular Separation" and "Illuminated Fraction of the
///        Moon's Disk".
SkyOffset sky_offset(double from_longitude, double from_latitude, double to_longitude, double to_latitude);

/// The least airless altitude that an apparent one is told of: below it no light comes over the sea's horizon
/// [deg]
inline constexpr double lowest_refracted = -1;

/// The altitude at which standard air shows a body                                             [deg]
/// Bennett's refraction is that of the apparent altitude, so this solves for it; `refracted` of the
/// telescope's read-outs puts the airless altitude in its place, which gives 5.5' more on the horizon.
/// In     airless  from lowest_refracted to 90                                                 [deg]
/// Source Bennett, Journal of Navigation 35, 255 (1982).
double apparent_altitude(double airless);

} // namespace halvane
