// SPDX-License-Identifier: MIT
#pragma once

#include "stored/loc.h"
#include "stored/pref.h"
#include "stored/visib.h"

namespace halvane {

/// What a run takes of the stored records, once, at its start.
struct CrescentRecords {
    CrescentSettings settings;
    Preferences preferences;
    Location location;
};

/// A run of those choices with the stored preferences and location. Reads `loc.vsk` and `pref.vsk`.
CrescentRecords read_crescent_records(const CrescentSettings& settings);

} // namespace halvane
