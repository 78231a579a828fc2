// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "fuzz/require.h"
#include "zones/zonelist.h"

/// Whatever stands in the list: each of its places is found by its name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_input("zones.csv", data, size, [] {
        const halvane::ZoneList zones = halvane::read_zone_list();
        for (const halvane::ZonedPlace& place : zones.places())
            halvane::fuzz::require(zones.zone_of(place.name).has_value());
    });
    return 0;
}
