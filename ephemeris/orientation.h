#pragma once

namespace halvane {

/// The turning Earth at one instant, as the transformations need it.
struct SkyFrame {
    double sine_obliquity = 0;
    double cosine_obliquity = 1;
    double sidereal_time = 0; ///< apparent, at Greenwich, not reduced                       [deg]
};

/// The frame of an instant whose true obliquity and nutation in longitude are known           [deg]
/// Reads the switch `tdtinput`.
SkyFrame sky_frame(double jd, double true_obliquity, double nutation_longitude);

/// What modobliquity gives, with all that follows from it.
struct Orientation {
    double nutation_longitude = 0; ///< [deg]
    double nutation_obliquity = 0; ///< [deg]
    double true_obliquity = 0;     ///< [deg]
    double dynamical_days = 0;     ///< dynamical time from 2000                              [d]
    SkyFrame frame;
};

/// The orientation at `jd`, UT1 or TDT with `tdtinput` 1. The last instant's is kept: many routines ask for
/// one instant after the other. The reference holds until the next call.
const Orientation& orientation_of(double jd);

} // namespace halvane
