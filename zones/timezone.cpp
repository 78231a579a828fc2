// SPDX-License-Identifier: MIT
#include "zones/timezone.h"

#include "base/failure.h"
#include "stored/textfile.h"
#include "zones/zonefile.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <date/tz.h>
#include <exception>
#include <optional>
#include <string_view>

namespace halvane {
namespace {

constexpr std::int64_t one_day = 86400; // [s]

/// The folder that the date library takes the zones from.
constexpr std::string_view zone_folder = "/usr/share/zoneinfo/";

/// Not zones of the IANA: the machine's own one is a link among them.
bool is_alias_of_the_machine(std::string_view name) {
    return name == "localtime";
}

/// The zones of the system; none when it has no zone files.
const date::tzdb* installed_zones() {
    try {
        const date::tzdb& zones = date::get_tzdb();
        return zones.zones.empty() ? nullptr : &zones;
    } catch (const std::exception&) {
        return nullptr;
    }
}

std::optional<std::string> zone_file(const std::string& name) {
    try {
        std::string bytes = read_file(std::string(zone_folder) + name);
        if (bytes.starts_with("TZif"))
            return bytes;
    } catch (const RunTimeFailure&) { // NOLINT(bugprone-empty-catch): no zone then
    }
    return std::nullopt;
}

const date::time_zone* find_zone(const date::tzdb& zones, const std::string& name) {
    if (is_alias_of_the_machine(name))
        return nullptr;
    const auto found = std::lower_bound(
        zones.zones.begin(), zones.zones.end(), name,
        [](const date::time_zone& zone, const std::string& wanted) { return zone.name() < wanted; });
    return found != zones.zones.end() && found->name() == name ? &*found : nullptr;
}

std::int64_t second_of(double jd) {
    constexpr double jd_of_1970 = 2440587.5;
    constexpr double farthest = 1e12;   // some 30000 years
    constexpr double rounding = 0.0005; // a Julian day of today is sound to 40 us
    require_finite(jd, {"the time of a zone's clock", "وقت ساعة المنطقة الزمنية"});
    const double seconds = std::floor((jd - jd_of_1970) * static_cast<double>(one_day) + rounding);
    return static_cast<std::int64_t>(std::clamp(seconds, -farthest, farthest));
}

RunTimeFailure no_zone_files() {
    return RunTimeFailure(TwinWords("This system has no time zone files. Install the package tzdata.",
                                    "لا توجد ملفات المناطق الزمنية في هذا النظام. ثبّت الحزمة tzdata."));
}

RunTimeFailure unknown_zone(const std::string& name) {
    return RunTimeFailure(TwinWords("This system knows no time zone \"" + name + "\".",
                                    "لا يعرف هذا النظام منطقة زمنية باسم \"" + name + "\"."));
}

} // namespace

struct TimeZone::Rules {
    struct Period {
        std::int64_t begin; ///< seconds after 1970 January 1, 0 h UT
        int offset;         ///< [s]
    };
    std::string name;
    std::vector<Period> periods; ///< the first one has no beginning
    std::optional<RuleOfFile> rule;
};

std::shared_ptr<const TimeZone::Rules> TimeZone::read(const std::string& name) {
    const date::tzdb* zones = installed_zones();
    if (!zones)
        throw no_zone_files();
    const date::time_zone* zone = find_zone(*zones, name);
    const std::optional<std::string> file = zone ? zone_file(name) : std::nullopt;
    if (!file)
        throw unknown_zone(name);
    const date::sys_seconds first = date::sys_days(date::year(-9999) / 1 / 1);
    const date::sys_seconds last = date::sys_days(date::year(9999) / 12 / 31);
    auto rules = std::make_shared<Rules>();
    rules->name = name;
    for (date::sys_seconds at = first; at < last;) {
        const date::sys_info info = zone->get_info(at);
        rules->periods.push_back(
            {info.begin.time_since_epoch().count(), static_cast<int>(info.offset.count())});
        at = info.end;
    }
    rules->rule = rule_of_zone_file(*file);
    return rules;
}

TimeZone::TimeZone(const std::string& name) : rules_(read(name)) {}

const std::string& TimeZone::name() const {
    return rules_->name;
}

int TimeZone::offset_at_second(std::int64_t utc_second) const {
    const std::vector<Rules::Period>& periods = rules_->periods;
    const auto next = std::upper_bound(
        periods.begin() + 1, periods.end(), utc_second,
        [](std::int64_t second, const Rules::Period& period) { return second < period.begin; });
    if (next == periods.end() && rules_->rule && utc_second > rules_->rule->last_change)
        return rules_->rule->rule.offset_at_second(utc_second);
    return (next - 1)->offset;
}

int TimeZone::offset_at(double jd_ut) const {
    return offset_at_second(second_of(jd_ut));
}

int TimeZone::offset_of_local(std::int64_t local_second) const {
    const int before = offset_at_second(local_second - one_day);
    const int after = offset_at_second(local_second + one_day);
    if (before == after || offset_at_second(local_second - before) == before)
        return before;
    return offset_at_second(local_second - after) == after ? after : before;
}

int TimeZone::offset_on(double jd) const {
    return offset_of_local(second_of(jd + 0.5));
}

bool is_zone_name(const std::string& name) {
    const date::tzdb* zones = installed_zones();
    return zones && find_zone(*zones, name) && zone_file(name);
}

std::vector<std::string> zone_names() {
    std::vector<std::string> names;
    if (const date::tzdb* zones = installed_zones())
        for (const date::time_zone& zone : zones->zones)
            if (!is_alias_of_the_machine(zone.name()))
                names.push_back(zone.name());
    return names;
}

} // namespace halvane
