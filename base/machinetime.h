// SPDX-License-Identifier: MIT
#pragma once

namespace halvane {

/// A date and clock as a machine shows it.
struct MachineTime {
    int year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

} // namespace halvane
