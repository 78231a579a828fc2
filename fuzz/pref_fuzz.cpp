// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/pref.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("pref.vsk", data, size, halvane::read_pref, halvane::write_pref);
    return 0;
}
