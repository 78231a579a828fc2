// SPDX-License-Identifier: MIT
#include "batch/listedlocation.h"

#include "batch/nearestname.h"
#include "batch/usagemistake.h"
#include "stored/loclist.h"

#include <optional>
#include <vector>

namespace halvane {

Location listed_location(const std::string& name) {
    if (const std::optional<Location> found = find_location(name))
        return *found;
    std::vector<std::string> names;
    for (const Location& location : read_location_list())
        names.push_back(location.name);
    const std::string nearest = names.empty() ? "" : "; the nearest is \"" + nearest_name(name, names) + "\"";
    throw UsageMistake("there is no place \"" + name + "\" in the list of locations" + nearest);
}

} // namespace halvane
