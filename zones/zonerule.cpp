// SPDX-License-Identifier: MIT
#include "zones/zonerule.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <date/date.h>
#include <system_error>

namespace halvane {
namespace {

constexpr int seconds_per_minute = 60;
constexpr int seconds_per_hour_of_rule = 3600;

std::int64_t second_of(const date::sys_days& day) {
    return std::chrono::seconds(day.time_since_epoch()).count();
}

bool is_letter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

} // namespace

class ZoneRule::Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    bool at_end() const { return rest_.empty(); }

    bool take(char c) {
        if (rest_.empty() || rest_.front() != c)
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool next_is(char c) const { return !rest_.empty() && rest_.front() == c; }

    bool number(int least, int most, int& value) {
        const auto result = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        if (result.ec != std::errc() || rest_.front() == '-')
            return false;
        rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
        return least <= value && value <= most;
    }

    /// An abbreviation: three letters or more, or any characters in angle brackets.
    bool abbreviation() {
        if (take('<')) {
            const std::size_t end = rest_.find('>');
            if (end == std::string_view::npos)
                return false;
            rest_.remove_prefix(end + 1);
            return true;
        }
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), is_letter);
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        rest_.remove_prefix(length);
        return length >= 3;
    }

    /// Signed hours with or without minutes and seconds.
    bool time(int& seconds) {
        constexpr int most_hours = 167;
        constexpr int most_parts = 59;
        const bool negative = take('-');
        if (!negative)
            take('+');
        int hours = 0;
        int minutes = 0;
        int rest = 0;
        if (!number(0, most_hours, hours) || (take(':') && !number(0, most_parts, minutes)) ||
            (take(':') && !number(0, most_parts, rest)))
            return false;
        seconds = hours * seconds_per_hour_of_rule + minutes * seconds_per_minute + rest;
        if (negative)
            seconds = -seconds;
        return true;
    }

    bool change(YearlyChange& change) {
        return take(',') && day(change) && (!take('/') || time(change.seconds));
    }

private:
    bool day(YearlyChange& change) {
        constexpr int days_of_leap_year = 366;
        if (take('M'))
            return number(1, 12, change.month) && take('.') && number(1, 5, change.week) && take('.') &&
                   number(0, 6, change.day);
        if (take('J')) {
            change.form = DayForm::day_without_leap_day;
            return number(1, days_of_leap_year - 1, change.day);
        }
        change.form = DayForm::day_from_zero;
        return number(0, days_of_leap_year - 1, change.day);
    }

    std::string_view rest_;
};

std::optional<ZoneRule> ZoneRule::read(std::string_view text) {
    Reader reader(text);
    ZoneRule rule;
    // POSIX counts offsets west of Greenwich.
    if (!reader.abbreviation() || !reader.time(rule.standard_))
        return std::nullopt;
    rule.standard_ = -rule.standard_;
    if (reader.at_end())
        return rule;
    rule.changes_ = true;
    rule.summer_ = rule.standard_ + seconds_per_hour_of_rule;
    if (!reader.abbreviation())
        return std::nullopt;
    if (!reader.next_is(',')) {
        if (!reader.time(rule.summer_))
            return std::nullopt;
        rule.summer_ = -rule.summer_;
    }
    if (!reader.change(rule.start_) || !reader.change(rule.end_) || !reader.at_end())
        return std::nullopt;
    return rule;
}

std::int64_t ZoneRule::YearlyChange::local_second(int year) const {
    const date::year that{year};
    if (form == DayForm::weekday_of_month) {
        const date::year_month those = that / date::month(static_cast<unsigned>(month));
        const date::weekday name(static_cast<unsigned>(day));
        const date::sys_days date = week == 5 ? date::sys_days(those / name[date::last])
                                              : date::sys_days(those / name[static_cast<unsigned>(week)]);
        return second_of(date) + seconds;
    }
    int count = day;
    if (form == DayForm::day_without_leap_day) {
        constexpr int last_of_february = 59;
        count = day > last_of_february && that.is_leap() ? day : day - 1;
    }
    return second_of(date::sys_days(that / 1 / 1) + date::days(count)) + seconds;
}

int ZoneRule::offset_at_second(std::int64_t utc_second) const {
    if (!changes_)
        return standard_;
    constexpr std::int64_t farthest = 884'541'340'800; // 30000 January 1
    utc_second = std::clamp(utc_second, -farthest, farthest);
    const date::sys_seconds local{std::chrono::seconds(utc_second + standard_)};
    const int year{date::year_month_day(date::floor<date::days>(local)).year()};
    const std::int64_t start = start_.local_second(year) - standard_;
    const std::int64_t end = end_.local_second(year) - summer_;
    const bool summer =
        start < end ? start <= utc_second && utc_second < end : utc_second < end || start <= utc_second;
    return summer ? summer_ : standard_;
}

} // namespace halvane
