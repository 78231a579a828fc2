// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/phase.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("phase.vsk", data, size, halvane::read_phase, halvane::write_phase);
    return 0;
}
