// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/loclist.h"

/// Whatever stands in the list: a location that is added is found there once, and the others stay.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_input("loc.txt", data, size, [] {
        const std::vector<halvane::Location> before = halvane::read_location_list();
        halvane::Location added;
        added.name = "Added";
        const bool is_new = halvane::add_location(added);
        const std::vector<halvane::Location> after = halvane::read_location_list();
        if (after.size() != before.size() + (is_new ? 1 : 0) || (is_new && after.back().name != added.name))
            __builtin_trap();
        for (std::size_t i = 0; i < before.size(); ++i)
            if (!(before[i] == after[i]))
                __builtin_trap();
    });
    return 0;
}
