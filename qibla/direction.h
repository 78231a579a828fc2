// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// The Kaaba's place, east and north positive                                                   [deg]
inline constexpr double kaaba_longitude = 39.8261167;
inline constexpr double kaaba_latitude = 21.42263;

/// Direction of the Qiblah before rounding: the initial bearing of the great circle to the Kaaba on a sphere.
/// In     longitude, latitude  observer's, east and north positive                              [deg]
/// Returns from true north through east, 0 to 360; due south of the Kaaba and due north of it alike 0   [deg]
/// Error  raises RunTimeFailure where the circle leaves due east or due west (a zero divisor), and at the
///        Kaaba itself.
/// Source Meeus, Astronomical Algorithms, chapter "Angular Separation"; spherical triangle pole, observer,
///        Kaaba, solved for the angle at the observer.
double qiblah_bearing(double longitude, double latitude);

/// Direction of the Qiblah as the panel, the report and the search use it: rounded to one decimal through the
/// text "###0.0".
float qiblah_direction(double longitude, double latitude);

} // namespace halvane
