#include "calendar/machineclock.h"

#include "calendar/locationclock.h"

#include <ctime>
#include <optional>

namespace halvane {
namespace {

std::optional<MachineTime> fixed_time;
double fixed_zone = 0; // [h]

MachineTime shown_by(const std::tm& clock) {
    return {clock.tm_year + 1900, clock.tm_mon + 1, clock.tm_mday, clock.tm_hour, clock.tm_min, clock.tm_sec};
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

MachineTime universal_time() {
    if (fixed_time)
        return clock_at(seconds_of(*fixed_time) - fixed_zone * seconds_per_hour);
    const std::time_t now = std::time(nullptr);
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

CalculationPeriod calculation_period(const CalculationDate& date) {
    if (!date.system_date)
        return {date.start, date.end};
    const MachineTime now = machine_time();
    const DateNumbers today{static_cast<double>(now.year), static_cast<double>(now.month),
                            static_cast<double>(now.day)};
    return {today, today};
}

} // namespace halvane
