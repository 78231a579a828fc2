// SPDX-License-Identifier: MIT
#include "routines/machineclock.h"

#include "system/localclock.h"

#include <chrono>
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
std::int64_t seconds_of(const MachineTime& time, double zone) {
    using namespace std::chrono;
    constexpr double seconds_per_hour = 3600;
    const year_month_day date(year(time.year), month(static_cast<unsigned>(time.month)),
                              day(static_cast<unsigned>(time.day)));
    const sys_seconds shown = sys_days(date) + hours(time.hour) + minutes(time.minute) + seconds(time.second);
    return shown.time_since_epoch().count() -
           static_cast<std::int64_t>(std::floor(zone * seconds_per_hour + 0.5));
}

} // namespace

MachineTime machine_time() {
    if (fixed_time)
        return *fixed_time;
    return shown_by(local_clock());
}

std::int64_t utc_second_now() {
    return fixed_time ? seconds_of(*fixed_time, fixed_zone) : std::time(nullptr);
}

MachineTime universal_time() {
    return shown_at(std::chrono::sys_seconds{std::chrono::seconds(utc_second_now())});
}

void set_machine_time(const MachineTime& time) {
    fixed_time = time;
}

bool machine_time_is_set() {
    return fixed_time.has_value();
}

void set_machine_zone(double hours) {
    fixed_zone = hours;
}

void use_machine_clock() {
    fixed_time.reset();
    fixed_zone = 0;
}

} // namespace halvane
