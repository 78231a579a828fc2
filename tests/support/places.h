// SPDX-License-Identifier: MIT
#pragma once

#include "stored/loc.h"

#include <cmath>

namespace halvane {

/// Degrees and minutes of an angle; negative degrees are west or south.
struct PlaceAngle {
    constexpr PlaceAngle(double whole, double part = 0) : degrees(whole), minutes(part) {}
    double degrees;
    double minutes;
};

/// A location at sea level in the air of a fresh record.
inline Location place_at(PlaceAngle longitude, PlaceAngle latitude, double zone, const char* name = "Here") {
    Location place;
    place.name = name;
    place.longitude_degrees = std::fabs(longitude.degrees);
    place.longitude_minutes = longitude.minutes;
    place.latitude_degrees = std::fabs(latitude.degrees);
    place.latitude_minutes = latitude.minutes;
    place.zone = zone;
    place.east = longitude.degrees >= 0;
    place.north = latitude.degrees >= 0;
    place.west = !place.east;
    place.south = !place.north;
    return place;
}

} // namespace halvane
