// SPDX-License-Identifier: MIT
#include "system/localclock.h"

namespace halvane {

std::tm local_clock() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return local;
}

} // namespace halvane
