// SPDX-License-Identifier: MIT
#include "routines/machineclock.h"

#include <cmath>
#include <ctime>
#include <optional>

namespace halvane {
namespace {

std::optional<MachineTime> fixed_time;
double fixed_zone = 0; // [h]

MachineTime shown_by(const std::tm& clock) {
    return {clock.tm_year + 1900, clock.tm_mon + 1, clock.tm_mday, clock.tm_hour, clock.tm_min, clock.tm_sec};
}

/// Seconds of the system's count at which a clock `zone` hours ahead of Universal Time shows `time`.
std::time_t seconds_of(const MachineTime& time, double zone) {
    constexpr double seconds_per_hour = 3600;
    std::tm clock{};
    clock.tm_year = time.year - 1900;
    clock.tm_mon = time.month - 1;
    clock.tm_mday = time.day;
    clock.tm_hour = time.hour;
    clock.tm_min = time.minute;
    clock.tm_sec = time.second;
    return timegm(&clock) - static_cast<std::time_t>(std::floor(zone * seconds_per_hour + 0.5));
}

} // namespace

MachineTime machine_time() {
    if (fixed_time)
        return *fixed_time;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return shown_by(local);
}

std::int64_t utc_second_now() {
    return fixed_time ? seconds_of(*fixed_time, fixed_zone) : std::time(nullptr);
}

MachineTime universal_time() {
    const std::time_t now = utc_second_now();
    std::tm universal{};
    gmtime_r(&now, &universal);
    return shown_by(universal);
}

void set_machine_time(const MachineTime& time) {
    fixed_time = time;
}

void set_machine_zone(double hours) {
    fixed_zone = hours;
}

void use_machine_clock() {
    fixed_time.reset();
    fixed_zone = 0;
}

} // namespace halvane
