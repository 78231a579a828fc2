// SPDX-License-Identifier: MIT
#pragma once

#include "stored/loclist.h"
#include "tests/stored/storedrecords.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace halvane {

// Name, latitude, longitude, north, east, zone, elevation, city, pressure, temperature.
inline constexpr const char* two_places = "\"Amman\",31,57,0,35,54,0,1,1,2,900,0,1010,10\r\n"
                                          "\"Rio\",22,54,36,43,10,12,0,0,-3,11,2.5,1000,25.5\r\n";

inline Location place(const std::string& name) {
    Location location;
    location.name = name;
    location.longitude_degrees = 1;
    location.latitude_degrees = 2;
    return location;
}

inline std::vector<std::string> names() {
    std::vector<std::string> result;
    for (const Location& location : read_location_list())
        result.push_back(location.name);
    return result;
}

using Names = std::vector<std::string>;

/// A folder whose list holds two places.
class LocationList : public testing::Test {
protected:
    LocationList() { folder.write("loc.txt", two_places); }
    const TemporaryProgramFolder folder;
};

} // namespace halvane
