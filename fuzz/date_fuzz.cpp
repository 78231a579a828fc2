// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/date.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("date.vsk", data, size, halvane::read_date, halvane::write_date);
    return 0;
}
