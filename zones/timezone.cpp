// SPDX-License-Identifier: MIT
#include "zones/timezone.h"

#include "base/failure.h"
#include "stored/textfile.h"
#include "system/path.h"
#include "system/regularfile.h"
#include "system/zonefolder.h"
#include "zones/zonefile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace halvane {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t one_day = 86400; // [s]

/// What the folder of the zones holds besides: the machine's own zone, and every zone again with other leap
/// seconds.
bool is_no_zone(const std::string& entry) {
    static constexpr std::array<std::string_view, 5> names{"Factory", "localtime", "posix", "posixrules",
                                                           "right"};
    return std::find(names.begin(), names.end(), entry) != names.end();
}

/// The names in `folder`; none where there is no such folder.
std::vector<std::string> entries_of(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        names.push_back(entry->path().filename().string());
    return names;
}

/// Whether `name` stands in the folder of the zones letter by letter, which not every file system asks for.
bool is_listed(const std::string& name) {
    fs::path folder = path_of(zone_folder());
    std::size_t begin = 0;
    while (begin <= name.size()) {
        const std::size_t end = std::min(name.find('/', begin), name.size());
        const std::string entry = name.substr(begin, end - begin);
        const std::vector<std::string> present = entries_of(folder);
        if ((begin == 0 && is_no_zone(entry)) ||
            std::find(present.begin(), present.end(), entry) == present.end())
            return false;
        folder /= path_of(entry);
        begin = end + 1;
    }
    return true;
}

/// The file of that zone; nothing when it is none.
std::optional<std::string> zone_file(const std::string& name) {
    try {
        if (is_listed(name)) {
            std::string bytes = read_file(joined_path(zone_folder(), name));
            if (bytes.starts_with("TZif"))
                return bytes;
        }
    } catch (const RunTimeFailure&) { // NOLINT(bugprone-empty-catch): no zone then
    }
    return std::nullopt;
}

bool begins_a_zone_file(const std::string& path) {
    constexpr std::string_view begin = "TZif";
    std::array<char, begin.size()> bytes{};
    const RegularFile opened = open_regular(path);
    return opened.file.is_open() &&
           read_some(opened.file.number(), bytes.data(), bytes.size()) ==
               static_cast<std::ptrdiff_t>(bytes.size()) &&
           std::string_view(bytes.data(), bytes.size()) == begin;
}

/// Adds the zones in a folder of the zones, whose name within it is `prefix`.
void list_zones(const fs::path& folder, const std::string& prefix, std::vector<std::string>& names) {
    for (const std::string& entry : entries_of(folder)) {
        const fs::path path = folder / path_of(entry);
        std::error_code ignored;
        if (prefix.empty() && is_no_zone(entry))
            continue;
        if (fs::is_directory(path, ignored))
            list_zones(path, prefix + entry + '/', names);
        else if (begins_a_zone_file(path.string()))
            names.push_back(prefix + entry);
    }
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
    return RunTimeFailure(
        TwinWords("There are no time zone files (package tzdata; on Windows the folder zoneinfo).",
                  "لا توجد ملفات المناطق الزمنية (الحزمة tzdata، و في ويندوز المجلد zoneinfo)."));
}

RunTimeFailure unknown_zone(const std::string& name) {
    return RunTimeFailure(TwinWords("This system knows no time zone \"" + name + "\".",
                                    "لا يعرف هذا النظام منطقة زمنية باسم \"" + name + "\"."));
}

} // namespace

struct TimeZone::Rules {
    std::string name;
    std::vector<ZoneClock> periods;
    std::optional<RuleOfFile> rule;
};

std::shared_ptr<const TimeZone::Rules> TimeZone::read(const std::string& name) {
    const std::optional<std::string> file = zone_file(name);
    std::optional<std::vector<ZoneClock>> clocks = file ? clocks_of_zone_file(*file) : std::nullopt;
    if (!clocks)
        throw entries_of(path_of(zone_folder())).empty() ? no_zone_files() : unknown_zone(name);
    return std::make_shared<Rules>(Rules{name, std::move(*clocks), rule_of_zone_file(*file)});
}

TimeZone::TimeZone(const std::string& name) : rules_(read(name)) {}

const std::string& TimeZone::name() const {
    return rules_->name;
}

int TimeZone::offset_at_second(std::int64_t utc_second) const {
    const std::vector<ZoneClock>& periods = rules_->periods;
    const auto next =
        std::upper_bound(periods.begin() + 1, periods.end(), utc_second,
                         [](std::int64_t second, const ZoneClock& period) { return second < period.begin; });
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
    return zone_file(name).has_value();
}

std::vector<std::string> zone_names() {
    std::vector<std::string> names;
    list_zones(path_of(zone_folder()), {}, names);
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace halvane
