// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// The engine's pi.
inline constexpr double pi = 3.14159265358979;

inline constexpr double degrees_per_radian = 180 / pi;
inline constexpr double radians_per_degree = pi / 180;

/// The Julian day of 2000 January 1.5.
inline constexpr double epoch_j2000 = 2451545;
inline constexpr double astronomical_unit_km = 149597870.66;

/// Angle of the point (x, y), x first                                      [rad, -pi/2 to 3 pi/2]
/// Not the usual range: callers fold the result. 0 for the origin.
double atan2(double x, double y);

/// `x` in 0 to below 360; -360, 360 and 720 give 0                         [deg]
double rev360(double x);

/// The first two tests of rev360: a whole turn may stay as 360             [deg]
double reduce360(double x);

/// Adds or takes off one turn; about -180 to 180                           [deg]
double rev180(double x);

/// Adds or takes off one turn; about -pi to pi                             [rad]
double revpi(double x);

/// Arc sine and arc cosine through the arc tangent                         [rad]
/// Exactly 1 and -1 give the limit; beyond them the result is not finite.
double asin(double x);
double acos(double x);

/// The nearest whole number, a half to the even one.
double round_half_even(double x);

/// Adds or takes off whole turns one after the other until `x` is in 0 to below 360     [deg]
/// Error  raises RunTimeFailure for a value that is not finite.
double turn_into_360(double x);

} // namespace halvane
