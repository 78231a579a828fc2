// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

// Clocks of a timetable are whole seconds, the sky's times hours.
inline constexpr int seconds_of_minute = 60;
inline constexpr int seconds_of_hour = 3600;
inline constexpr int seconds_of_day = 86400;
inline constexpr int minutes_of_hour = 60;
inline constexpr int hours_per_day = 24;

inline constexpr double unix_epoch = 2440587.5; // 1970 January 1, 0 h, as a Julian day

inline constexpr int ramadan = 9; // its Hijri month

} // namespace halvane
