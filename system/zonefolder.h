// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace halvane {

/// The folder of the time zone files (tzdata): the system's own, or where it has none "zoneinfo" beside the
/// running executable.
std::string zone_folder();

} // namespace halvane
