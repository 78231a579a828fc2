// SPDX-License-Identifier: MIT
#pragma once

#include "watch/crescentwatch.h"

#include <string>

namespace halvane {

/// The rows of a watch as CSV (RFC 4180): a row of keys with their units, then the rows; UTF-8, CR LF. A
/// field is empty where there is no value (docs/watch.md).
std::string csv_of(const CrescentWatch& watch);

/// "daylight", "civil_twilight" ...
const char* key_of(SkyBrightness brightness);

} // namespace halvane
