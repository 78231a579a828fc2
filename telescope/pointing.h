// SPDX-License-Identifier: MIT
#pragma once

#include "ephemeris/ephemeris.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "stored/tele.h"
#include "telescope/moonphase.h"

#include <optional>

namespace halvane {

/// Where a telescope has to point.
struct SkyPlace {
    double right_ascension = 0; ///< 0 to 360                                                 [deg]
    double declination = 0;     ///<                                                          [deg]
    double altitude = 0;        ///<                                                          [deg]
    double azimuth = 0;         ///< 0 north, 90 east                                         [deg]
};

/// The places of one instant, seen by the observer.
struct TelescopePointing {
    SkyPlace sun;
    SkyPlace moon;
    SkyPlace crescent;       ///< the middle of the Moon's lit limb
    double zenith_angle = 0; ///< of the lit limb on the Moon's disc: 0 towards the zenith, then towards the
                             ///< left of an upright view; 0 to below 360                [deg]
    MoonPhase phase;
};

/// The Moon is not answered for below this airless altitude                                 [deg]
inline constexpr double lowest_moon_altitude = -1;

/// The Sun, the Moon and the crescent at the local date and clock of `settings`, with refraction and in the
/// coordinates of J2000 where these ask for it. Refraction moves the right ascension and the declination too.
/// The flips are not read. No value when the Moon stands below lowest_moon_altitude.
/// In     theory       with `term.vsk`, `mterm.vsk` and `elp.vsk`
///        preferences  for the summer time
/// Source bright limb: Meeus, Astronomical Algorithms, chapters "Illuminated Fraction of the Moon's Disk" and
///        "The Parallactic Angle".
/// Error  raises RunTimeFailure when a place has no finite value.
std::optional<TelescopePointing> telescope_pointing(const TheoryPointer& theory,
                                                    const TelescopeSettings& settings,
                                                    const Preferences& preferences, const Location& location);

} // namespace halvane
