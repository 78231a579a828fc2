// SPDX-License-Identifier: MIT
#include "ephemeris/series.h"
#include "fuzz/readinput.h"
#include "routines/seriesloader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_input("term.vsk", data, size, halvane::load_term);
    return 0;
}
