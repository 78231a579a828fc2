// SPDX-License-Identifier: MIT
#pragma once

#include "stored/fields.h"
#include "stored/loc.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// A field of `loc.vsk` that `loc.txt` has too, in the form of that file.
template <class Value, class Kind>
constexpr auto listed_field(Value Location::*member, Kind what) {
    return Field(member, what, loc_fields.name_of(member), loc_fields.meaning_of(member));
}

/// What `loc.txt` holds of a location, in the order of the file.
inline constexpr FieldList listed_fields{
    listed_field(&Location::name, kind::Text{}),
    listed_field(&Location::latitude_degrees, kind::Number{}),
    listed_field(&Location::latitude_minutes, kind::Number{}),
    listed_field(&Location::latitude_seconds, kind::Number{}),
    listed_field(&Location::longitude_degrees, kind::Number{}),
    listed_field(&Location::longitude_minutes, kind::Number{}),
    listed_field(&Location::longitude_seconds, kind::Number{}),
    listed_field(&Location::north, kind::Flag{}),
    listed_field(&Location::east, kind::Flag{}),
    listed_field(&Location::zone, kind::Number{}),
    listed_field(&Location::elevation, kind::Number{}),
    listed_field(&Location::city_offset, kind::Number{}),
    listed_field(&Location::pressure, kind::Number{}),
    listed_field(&Location::temperature, kind::Number{}),
};

/// The saved locations of `loc.txt` in the file's order; the complement flags are set from the stored ones.
/// Reads `loc.txt`.
/// Error  raises RunTimeFailure for a missing or damaged file.
std::vector<Location> read_location_list();

/// The saved locations up to the first damage of `loc.txt`; none without the file. Raises nothing.
std::vector<Location> readable_location_list();

/// The first saved location of exactly that name; upper and lower case differ.
/// Error  raises RunTimeFailure for a missing file, or a record damaged before the name is found.
std::optional<Location> find_location(std::string_view name);

/// The name as the list holds it: a double quote mark, which would break the record, becomes an apostrophe.
std::string listed_name(std::string_view name);

// An edit holds a lock on the program folder while it reads the list, changes it and puts it in its place, so
// that none is lost when two programs edit it. Its error is RunTimeFailure naming the list, after ten seconds
// of waiting too.

/// Appends `location` to `loc.txt`; a missing last line end is mended first.
/// Returns false, with nothing written, when a location of exactly that name is in the list.
bool add_location(const Location& location);

/// Takes every location of the name of `location` out of the list and appends `location`.
void modify_location(const Location& location);

/// Takes every location of exactly that name out of the list.
void delete_location(std::string_view name);

} // namespace halvane
