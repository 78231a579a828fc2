// SPDX-License-Identifier: MIT
#include <cstdio>
#include <ctime>
#include <halvane/prayer.h>

// Today's six prayer times at Cairo; those of a date that is given, such as 2026-11-23.
int main(int count, char** words) {
    const std::time_t now = std::time(nullptr);
    const std::tm* today = std::localtime(&now);
    halvane::Date date{today->tm_year + 1900, today->tm_mon + 1, today->tm_mday};
    if (count > 1)
        std::sscanf(words[1], "%d-%d-%d", &date.year, &date.month, &date.day);

    const halvane::Engine engine;
    const halvane::Observer cairo{30.05, 31.25};
    const halvane::Clock clock = halvane::Clock::of_zone("Africa/Cairo");
    const halvane::TimetableRules rules = halvane::rules_of_authority("egypt");
    const auto days = halvane::timetable(engine, date, date, cairo, clock, rules);
    for (const halvane::TimetableTime& time : days.front().times)
        std::printf("%02d:%02d\n", time.seconds / 3600, time.seconds / 60 % 60);
}
