// SPDX-License-Identifier: MIT
#include "fuzz/readinput.h"
#include "stored/alert.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halvane::fuzz::read_record("alert.vsk", data, size, halvane::read_alert, halvane::write_alert);
    return 0;
}
