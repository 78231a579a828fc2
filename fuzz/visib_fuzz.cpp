// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/visib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("visib.vsk", data, size, halvane::read_visib, halvane::write_visib);
    return 0;
}
