// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/finemap.h"
#include "stored/loc.h"
#include "stored/pref.h"

#include <optional>
#include <string>
#include <vector>

namespace halvane {

/// A place that stands on a map with its name.
struct MarkedPlace {
    std::string name;
    MapPosition position;
    bool is_users = false;
};

/// A stored location with its clock.
struct SheetClock {
    std::string place;      ///< its name
    double hours_ahead = 0; ///< of Universal Time at the conjunction                             [h]
};

/// The clock of a location at an instant. In     universal  Julian day, UT1                      [d]
SheetClock clock_of(const Preferences& preferences, const Location& location, double universal);

/// Where a location stands on a map, under its own name.
MarkedPlace marked_place(const Location& location, bool is_users);

/// The words above the maps of one conjunction.
struct SheetTexts {
    std::string title;       ///< "New Crescent Visibility"
    std::string month;       ///< "Ramadan 1447"
    std::string criterion;   ///< "Yallop as published"
    std::string source;      ///< of the criterion
    std::string conjunction; ///< "Geocentric conjunction: 17 February 2026, 12:01 UT; 15:01 in Amman (UTC+3)"
    std::string step;        ///< "Judged at every 0.5° and along the borders"
    std::string credits;     ///< "Halvane 5.3.9. Coasts and borders: Natural Earth."
};

SheetTexts sheet_texts(const FineMapSettings& settings, const std::optional<SheetClock>& clock,
                       Language language);

/// "New Crescent Visibility, Ramadan 1447: Yallop as published"
std::string document_title(const SheetTexts& texts);

/// "Evening of Tuesday, 17 February 2026"
std::string evening_text(const FineMapSettings& settings, Language language);

/// A longitude or a latitude at the frame of a map: "30°E", "0°".
std::string longitude_text(double longitude, Language language);
std::string latitude_text(double latitude, Language language);

} // namespace halvane
