// SPDX-License-Identifier: MIT
#pragma once

#include "stored/loc.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// A delivered place with its time zone.
struct ZonedPlace {
    std::string name;     ///< as in the delivered `loc.txt`
    double latitude = 0;  ///< north positive [deg]
    double longitude = 0; ///< east positive  [deg]
    std::string zone;     ///< IANA name
};

/// The time zones of the delivered places.
class ZoneList {
public:
    /// In     places  in any order; of one name the first counts
    explicit ZoneList(std::vector<ZonedPlace> places);

    /// The zone of the delivered place of exactly that name; nothing for another name.
    std::optional<std::string> zone_of(std::string_view place) const;

    /// The zone of a location that has the name of a delivered place and stands within `farthest` of it;
    /// nothing for any other: a user's own "Paris" may be in Texas.
    std::optional<std::string> zone_of(const Location& location) const;
    static constexpr double farthest = 0.5; // [deg of a great circle]

    /// Sorted by the bytes of their names.
    const std::vector<ZonedPlace>& places() const { return places_; }

private:
    const ZonedPlace* find(std::string_view place) const;

    std::vector<ZonedPlace> places_;
};

/// Reads `zones.csv`: the program folder's, else that of the executable's folder.
/// Error  raises RunTimeFailure for a missing or damaged file.
ZoneList read_zone_list();

} // namespace halvane
