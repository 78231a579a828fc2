// SPDX-License-Identifier: MIT
#pragma once

#include "stored/loc.h"

#include <QStringList>
#include <vector>

namespace halvane {

/// The names of locations in alphabetical order whatever the system's language; names that differ in case
/// only keep apart.
QStringList sorted_place_names(const std::vector<Location>& locations);

} // namespace halvane
