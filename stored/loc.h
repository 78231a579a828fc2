// SPDX-License-Identifier: MIT
#pragma once

#include "stored/fields.h"

#include <string>

namespace halvane {

/// `loc.vsk`: where the observer stands, in the order of the file. Angles are unsigned by intent; the
/// hemisphere stands apart.
struct Location {
    std::string name;
    double longitude_degrees = 0;
    double longitude_minutes = 0;
    double longitude_seconds = 0;
    double latitude_degrees = 0;
    double latitude_minutes = 0;
    double latitude_seconds = 0;
    double elevation = 0;
    double zone = 0;
    bool east = true;
    bool north = true;
    bool west = false;
    bool south = false;
    double city_offset = 0;
    double pressure = 1010;
    double temperature = 10;

    bool operator==(const Location&) const = default;
};

// Far beyond any place and any clock; what follows such a number would lose its minutes, or itself.
inline constexpr kind::NumberWithin angle_part{1e6};
inline constexpr kind::NumberWithin zone_hours{1e6};

/// What they are, in the order of the file.
inline constexpr FieldList loc_fields{
    Field(&Location::name, kind::Text{}, "name", "name of the place"),
    Field(&Location::longitude_degrees, angle_part, "longitude-degrees", "longitude, unsigned [deg]"),
    Field(&Location::longitude_minutes, angle_part, "longitude-minutes", "its minutes [arcmin]"),
    Field(&Location::longitude_seconds, angle_part, "longitude-seconds", "its seconds [arcsec]"),
    Field(&Location::latitude_degrees, angle_part, "latitude-degrees", "latitude, unsigned [deg]"),
    Field(&Location::latitude_minutes, angle_part, "latitude-minutes", "its minutes [arcmin]"),
    Field(&Location::latitude_seconds, angle_part, "latitude-seconds", "its seconds [arcsec]"),
    Field(&Location::elevation, kind::Number{}, "elevation", "elevation above sea level [m]"),
    Field(&Location::zone, zone_hours, "zone", "time zone from Universal Time, east positive [h]"),
    Field(&Location::east, kind::Boolean{}, "east", "east; alone decides the sign of the longitude"),
    Field(&Location::north, kind::Boolean{}, "north", "north; alone decides the sign of the latitude"),
    Field(&Location::west, kind::Boolean{}, "west", "west, the complement of east; not used"),
    Field(&Location::south, kind::Boolean{}, "south", "south, the complement of north; not used"),
    Field(&Location::city_offset, kind::Number{}, "city-offset",
          "how far east the observer is taken to stand for Fajer and Shuroq [km]"),
    Field(&Location::pressure, kind::Number{}, "pressure", "air pressure [mb]"),
    Field(&Location::temperature, kind::Number{}, "temperature", "air temperature [deg C]"),
};

/// Longitude [deg, east positive], from the parts and the flag.
double longitude_of(const Location& location);

/// Latitude [deg, north positive], from the parts and the flag.
double latitude_of(const Location& location);

/// Degrees part of the longitude with the sign of its hemisphere, as the reports print it.
double signed_longitude_degrees(const Location& location);

/// Degrees part of the latitude with the sign of its hemisphere, as the reports print it.
double signed_latitude_degrees(const Location& location);

/// The current location. Reads `loc.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const Location& read_loc();

/// The current location as far as `loc.vsk` is sound: from its first damage on, or without the file, the
/// numbers are 0, the name is empty and the hemispheres are east and north. Raises nothing.
Location readable_loc();

/// Rewrites `loc.vsk` whole.
void write_loc(const Location& location);

/// Changes whenever read_loc has parsed `loc.vsk` anew.
unsigned loc_version();

} // namespace halvane
