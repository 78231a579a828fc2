// SPDX-License-Identifier: MIT
#include "prayer/prayermoments.h"

#include "calendar/clocktext.h"
#include "calendar/locationclock.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace halvane {

std::vector<PrayerMoment> prayer_moments(const PrayerTimes& times, double day, const Preferences& preferences,
                                         const Location& location) {
    const std::array<std::pair<Prayer, const std::string*>, 5> prayers{{{Prayer::fajer, &times.fajer},
                                                                        {Prayer::dhohur, &times.dhohur},
                                                                        {Prayer::aser, &times.aser},
                                                                        {Prayer::maghreb, &times.maghreb},
                                                                        {Prayer::isha, &times.isha}}};
    const double midnight =
        day * seconds_per_day - hours_ahead(preferences, location, day) * seconds_per_hour;
    std::vector<PrayerMoment> moments;
    for (const auto& [prayer, text] : prayers)
        if (const std::optional<int> seconds = seconds_of_clock_text(*text))
            moments.push_back({day, midnight + *seconds, prayer, *text});
    return moments;
}

void sort_by_time(std::vector<PrayerMoment>& moments) {
    std::stable_sort(moments.begin(), moments.end(),
                     [](const PrayerMoment& a, const PrayerMoment& b) { return a.seconds < b.seconds; });
}

} // namespace halvane
