#pragma once

#include "app/stored/loc.h"

#include <string>
#include <string_view>
#include <vector>

namespace halvane {

/// The saved locations of `loc.txt` in the file's order; the complement flags are set from the stored ones.
/// Reads `loc.txt`.
/// Error  raises RunTimeFailure for a missing or damaged file.
std::vector<Location> read_location_list();

/// Appends `location` to `loc.txt`; a missing last line end is mended first.
/// Returns false, with nothing written, when a location of exactly that name is in the list.
bool add_location(const Location& location);

/// Takes every location of the name of `location` out of the list and appends `location`.
void modify_location(const Location& location);

/// Takes every location of exactly that name out of the list.
void delete_location(std::string_view name);

} // namespace halvane
