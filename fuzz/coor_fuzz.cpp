// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/coor.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("coor.vsk", data, size, halvane::read_coor, halvane::write_coor);
    return 0;
}
