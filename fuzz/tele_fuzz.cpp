// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/tele.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("tele.vsk", data, size, halvane::read_tele, halvane::write_tele);
    return 0;
}
