#include "app/nextprayer.h"

#include "calendar/clocktext.h"

namespace halvane {

namespace {

constexpr int kSecondsPerMinute = 60;
constexpr std::array<std::size_t, 5> kPrayerColumns{0, 2, 3, 4, 5};

} // namespace

std::optional<NextPrayer> next_prayer(const TodayTexts& times, int now) {
    std::optional<NextPrayer> next;
    std::optional<NextPrayer> first;
    int next_time = 0;
    int first_time = 0;
    for (const std::size_t column : kPrayerColumns) {
        const std::optional<int> time = seconds_of_clock_text(times[column]);
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
