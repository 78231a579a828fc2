// SPDX-License-Identifier: MIT
#include "system/localclock.h"

#include <windows.h>

namespace halvane {

std::tm local_clock() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    std::tm clock{};
    clock.tm_year = now.wYear - 1900;
    clock.tm_mon = now.wMonth - 1;
    clock.tm_mday = now.wDay;
    clock.tm_hour = now.wHour;
    clock.tm_min = now.wMinute;
    clock.tm_sec = now.wSecond;
    return clock;
}

} // namespace halvane
