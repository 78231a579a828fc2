// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/taggedtime.h"
#include "ephemeris/ephemeris.h"

namespace halvane {

/// What a search of a day needs of the settings.
struct Horizon {
    bool height_counts = false; ///< the height lowers the horizon of Sun and Moon
    double height = 0;          ///< above sea level                                            [m]
    double pressure = 1010;     ///<                                                            [mb]
    double temperature = 10;    ///<                                                            [deg C]
    double fajer_angle = 18;    ///< depression of the Sun                                      [deg]
    double isha_angle = 18;     ///< depression of the Sun                                      [deg]
    int shadow_lengths = 1;     ///< by which a shadow has grown at Aser: 1 standard, 2 Hanafi
};

enum class Target { sun, moon, fajer, isha, aser };

/// The moments of one local day at which a body's altitude crosses its threshold going up and going down:
/// clock hours in [0, 24); "----" when there is none; both "Up" or "Down" when the body stays above or below
/// all day, "Bright" or "Dark" for the twilights. The twilights have the morning crossing in `rise` and the
/// evening one in `set`; the shadow's time is `set`.
struct RiseSet {
    TaggedTime rise = NoEvent::none;
    TaggedTime set = NoEvent::none;
    /// Altitude of the Sun or the Moon at rise and set with the dip of the horizon always included; 0 for
    /// the other targets                                                                        [deg]
    double horizon_altitude = 0;
};

/// In     start  the local day's 0 h: 0 h UT of the civil date minus (zone + summer hours) / 24
/// A scan by the low series in steps of two hours, a parabola through each three altitudes, and corrections
/// by the medium series until one changes less than half a second.
/// Error  raises RunTimeFailure when the settings give no finite threshold.
/// Accuracy  Sun 5 s, Moon 20 s at latitudes up to 60 deg (docs/accuracy.md).
/// Source Montenbruck and Pfleger, Astronomy on the Personal Computer (search); Meeus, Astronomical
///        Algorithms, chapter "Rising, Transit, and Setting" (correction).
RiseSet find_rise_set(Ephemeris& ephemeris, Target target, const Instant& start, const Observer& observer,
                      const Horizon& horizon);

/// Dip of the horizon for a height above sea level, negative below it                     [m -> deg]
double horizon_dip(double height);

/// Refraction at the horizon in standard air                                               [deg]
inline constexpr double standard_horizon_refraction = 0.5692857;

/// Refraction at the horizon by pressure [mb] and temperature [deg C]; the pair 1010 and 10 is the standard
/// one                                                                                    [deg]
double horizon_refraction(double pressure, double temperature);

} // namespace halvane
