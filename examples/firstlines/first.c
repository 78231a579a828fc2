// SPDX-License-Identifier: MIT
#include <halvane/halvane.h>
#include <stdio.h>
#include <time.h>

// Today's six prayer times at Cairo; those of a date that is given, such as 2026-11-23.
int main(int count, char** words) {
    const time_t now = time(NULL);
    const struct tm* today = localtime(&now);
    halvane_date date = {today->tm_year + 1900, today->tm_mon + 1, today->tm_mday};
    if (count > 1)
        sscanf(words[1], "%d-%d-%d", &date.year, &date.month, &date.day);

    halvane_engine* engine = NULL;
    halvane_clock* clock = NULL;
    const halvane_observer cairo = {30.05, 31.25, 0};
    halvane_timetable_rules rules = {.size = sizeof rules};
    halvane_timetable_day day;
    size_t days;
    if (halvane_engine_open(&engine) || halvane_clock_of_zone("Africa/Cairo", &clock) ||
        halvane_rules_of_authority("egypt", &rules) ||
        halvane_timetable(engine, date, date, cairo, clock, &rules, NULL, NULL, &day, 1, sizeof day, &days)) {
        fprintf(stderr, "%s\n", halvane_last_error());
        return 1;
    }
    for (int i = 0; i < HALVANE_PRAYERS; ++i)
        printf("%02d:%02d\n", day.times[i].seconds / 3600, day.times[i].seconds / 60 % 60);
    halvane_clock_free(clock);
    halvane_engine_close(engine);
    return 0;
}
