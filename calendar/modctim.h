// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// Clock text of decimal hours, modulo 24 h.
/// In     precision  0 "hh:mm:ss", any other "hh:mm"
///        hours      decimal hours
/// Out    text       rounded half to even; "24:00:00", or "24:00" with precision 1, for the last half unit of
///                   a day
/// Error  raises RunTimeFailure for hours that are not finite.
void modctim(int precision, double hours, std::string& text);
std::string modctim(int precision, double hours);

} // namespace halvane
