// SPDX-License-Identifier: MIT
#pragma once

#include "stored/date.h"
#include "stored/loc.h"
#include "stored/pref.h"

namespace halvane {

/// While it lives, read_loc answers as if its record were stored; the file is neither read nor touched.
class SupposedLocation {
public:
    [[nodiscard]] explicit SupposedLocation(const Location& location);
    SupposedLocation(const SupposedLocation&) = delete;
    SupposedLocation& operator=(const SupposedLocation&) = delete;
    ~SupposedLocation();
};

/// While it lives, read_pref answers as if its record were stored; the file is neither read nor touched.
class SupposedPreferences {
public:
    [[nodiscard]] explicit SupposedPreferences(const Preferences& preferences);
    SupposedPreferences(const SupposedPreferences&) = delete;
    SupposedPreferences& operator=(const SupposedPreferences&) = delete;
    ~SupposedPreferences();
};

/// A record as it would read after it has been stored: numbers beyond its limits are the limits.
Location as_stored(const Location& location);
Preferences as_stored(const Preferences& preferences);
CalculationDate as_stored(const CalculationDate& date);

} // namespace halvane
