// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetable.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// The stored location by its stored zone and summer dates. Reads `loc.vsk`, `pref.vsk` and, where it is
/// there, `zones.csv`.
TimetablePlace stored_place();

/// A place of the list, by the rules of its time zone where it is known, else as the stored one.
/// Reads `loc.txt`, `pref.vsk` and `zones.csv`.
/// Error  raises RunTimeFailure for a name that the list has not, telling the nearest.
TimetablePlace listed_place(const std::string& name);

/// The same of a location that has been found in the list. Reads `pref.vsk` and `zones.csv`.
TimetablePlace listed_place(const Location& location);

/// The place of that name in the list, without one the stored location; nothing for a name that the list has
/// not.
std::optional<TimetablePlace> chosen_place(const std::optional<std::string>& name);

/// What is told of such a name, in whole sentences.
TwinWords unknown_place(const std::string& name);

/// A place by its numbers.
struct GivenPlace {
    std::string name;           ///< empty: its coordinates
    double latitude = 0;        ///< north positive                                                [deg]
    double longitude = 0;       ///< east positive                                                 [deg]
    double height = 0;          ///< above sea level                                               [m]
    std::string zone_name;      ///< IANA name; empty: `zone`
    std::optional<double> zone; ///< from Universal Time, the whole year                           [h]
};

/// Why the numbers are no place; nothing for good ones.
std::optional<TwinWords> refused_place(const GivenPlace& place);

/// Error  raises RunTimeFailure for a zone that the system does not know.
TimetablePlace given_place(const GivenPlace& place);

/// The places of a CSV text with the head row `name,latitude,longitude,zone_name,zone,height` in any order;
/// `name`, `height` and one of the zones may be left out.
/// Error  raises RunTimeFailure naming `path`, the line and what is wrong there.
std::vector<GivenPlace> places_of_text(const std::string& text, const std::string& path);

} // namespace halvane
