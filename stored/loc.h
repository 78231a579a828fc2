#pragma once

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
    double elevation = 0;    ///< above sea level [m]
    double zone = 0;         ///< from Universal Time, east positive [h]
    bool east = true;        ///< alone decides the sign of the longitude
    bool north = true;       ///< alone decides the sign of the latitude
    bool west = false;       ///< complement of `east`, not used
    bool south = false;      ///< complement of `north`, not used
    double city_offset = 0;  ///< how far east the observer is taken to stand for Fajer and Shuroq [km]
    double pressure = 1010;  ///< [mb]
    double temperature = 10; ///< [deg C]

    bool operator==(const Location&) const = default;
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
