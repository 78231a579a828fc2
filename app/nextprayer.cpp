#include "app/nextprayer.h"

#include <charconv>
#include <string_view>

namespace halvane {

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr int kSecondsPerHour = 3600;
constexpr std::array<std::size_t, 5> kPrayerColumns{0, 2, 3, 4, 5};

std::optional<int> two_digits(std::string_view text, std::size_t at) {
    int value = 0;
    if (text.size() < at + 2)
        return std::nullopt;
    const char* first = text.data() + at;
    const auto [end, error] = std::from_chars(first, first + 2, value);
    if (error != std::errc() || end != first + 2)
        return std::nullopt;
    return value;
}

/// Seconds since 0 h of "hh:mm" or "hh:mm:ss"; nothing for a word.
std::optional<int> seconds_of(std::string_view text) {
    const std::optional<int> hours = two_digits(text, 0);
    const std::optional<int> minutes = two_digits(text, 3);
    if (!hours || !minutes)
        return std::nullopt;
    return *hours * kSecondsPerHour + *minutes * kSecondsPerMinute + two_digits(text, 6).value_or(0);
}

} // namespace

std::optional<NextPrayer> next_prayer(const TodayTexts& times, int now) {
    std::optional<NextPrayer> next;
    std::optional<NextPrayer> first;
    int next_time = 0;
    int first_time = 0;
    for (const std::size_t column : kPrayerColumns) {
        const std::optional<int> time = seconds_of(times[column]);
        if (!time)
            continue;
        if (!first || *time < first_time) {
            first = NextPrayer{column, 0, true};
            first_time = *time;
        }
        if (*time > now && (!next || *time < next_time)) {
            next = NextPrayer{column, (*time - now + kSecondsPerMinute - 1) / kSecondsPerMinute, false};
            next_time = *time;
        }
    }
    return next ? next : first;
}

} // namespace halvane
