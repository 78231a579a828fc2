// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// The level of these texts, and the precision of modctim, that shows seconds.
inline constexpr int to_the_second = 0;

/// Text of a signed angle or hour value. The three differ in marks and sign only.
/// In     level  1 to the minute, any other to the second, rounded half to even
///        unit   'd' degree form, any other hour form (which ends in a blank)
///        value  degrees or hours
/// Out    text   moddegree "+05°:30':00\"", moddegree2 "+05:30:00", moddegree3 "05:30:00" without a sign;
///               hour forms "+05H 30M 00S " (moddegree3 without the sign)
/// Error  raises RunTimeFailure for a value that is not finite.
void moddegree(int level, char unit, double value, std::string& text);
void moddegree2(int level, char unit, double value, std::string& text);
void moddegree3(int level, char unit, double value, std::string& text);
std::string moddegree(int level, char unit, double value);
std::string moddegree2(int level, char unit, double value);
std::string moddegree3(int level, char unit, double value);

} // namespace halvane
