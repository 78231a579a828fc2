#include "app/nextprayer.h"

#include "calendar/clocktext.h"

namespace halvane {

namespace {

constexpr int seconds_per_minute = 60;
constexpr std::array<std::size_t, 5> prayer_columns{0, 2, 3, 4, 5};

} // namespace

std::optional<NextPrayer> next_prayer(const TodayTexts& times, int now) {
    std::optional<NextPrayer> next;
    std::optional<NextPrayer> first;
    int next_time = 0;
    int first_time = 0;
    for (const std::size_t column : prayer_columns) {
        const std::optional<int> time = seconds_of_clock_text(times[column]);
        if (!time)
            continue;
        if (!first || *time < first_time) {
            first = NextPrayer{column, 0, true};
            first_time = *time;
        }
        if (*time > now && (!next || *time < next_time)) {
            next = NextPrayer{column, (*time - now + seconds_per_minute - 1) / seconds_per_minute, false};
            next_time = *time;
        }
    }
    return next ? next : first;
}

} // namespace halvane
