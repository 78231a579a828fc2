#include "calendar/machineclock.h"

#include <ctime>
#include <optional>

namespace halvane {
namespace {

std::optional<MachineTime> fixed_time;

} // namespace

MachineTime machine_time() {
    if (fixed_time)
        return *fixed_time;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

void set_machine_time(const MachineTime& time) {
    fixed_time = time;
}

void use_machine_clock() {
    fixed_time.reset();
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
