// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/loc.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("loc.vsk", data, size, halvane::read_loc, halvane::write_loc);
    return 0;
}
