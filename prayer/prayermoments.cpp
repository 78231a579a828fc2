// SPDX-License-Identifier: MIT
#include "prayer/prayermoments.h"

#include "calendar/locationclock.h"

#include <algorithm>
#include <array>
#include <utility>

namespace halvane {

std::vector<PrayerMoment> prayer_moments(const PrayerTimes& times, double day, const Preferences& preferences,
                                         const Location& location) {
    const std::array<std::pair<Prayer, const TaggedTime*>, 5> prayers{{{Prayer::fajer, &times.fajer},
                                                                       {Prayer::dhohur, &times.dhohur},
                                                                       {Prayer::aser, &times.aser},
                                                                       {Prayer::maghreb, &times.maghreb},
                                                                       {Prayer::isha, &times.isha}}};
    const double midnight =
        day * seconds_per_day - hours_ahead(preferences, location, day) * seconds_per_hour;
    std::vector<PrayerMoment> moments;
    for (const auto& [prayer, time] : prayers)
        if (const double* hours = hours_of(*time)) {
            const ShownClock clock = shown_clock(precision_of(preferences), *hours);
            moments.push_back({day, midnight + clock.seconds, prayer, clock});
        }
    return moments;
}

void sort_by_time(std::vector<PrayerMoment>& moments) {
    std::stable_sort(moments.begin(), moments.end(),
                     [](const PrayerMoment& a, const PrayerMoment& b) { return a.seconds < b.seconds; });
}

} // namespace halvane
