// SPDX-License-Identifier: MIT
// Calls of every header's kind in C17; the numbers are those of consumer.cpp.
#include <halvane/halvane.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static void need(halvane_status status) {
    if (status == HALVANE_OK)
        return;
    fprintf(stderr, "%s: %s\n", halvane_status_words(status), halvane_last_error());
    exit(1);
}

int main(void) {
    const halvane_date date = {2026, 2, 18};
    const halvane_observer amman = {31.95, 35.93, 900};
    const halvane_instant instant = halvane_instant_of_unix(1771430400);
    halvane_engine* engine = NULL;
    halvane_clock* clock = NULL;
    need(halvane_engine_open(&engine));
    need(halvane_clock_of_zone("Asia/Amman", &clock));

    halvane_seen_moon moon = {.size = sizeof moon};
    need(halvane_moon_seen(engine, instant, amman, HALVANE_COMPLETE, &moon));
    printf("%.17g %.17g\n", moon.geocentric.longitude, moon.topocentric.altitude);

    halvane_body_day day = {.size = sizeof day};
    need(halvane_sun_day(engine, date, amman, clock, NULL, &day));
    printf("%.17g %.17g\n", day.rise.hours, day.set.hours);

    halvane_prayer_day prayers = {.size = sizeof prayers};
    need(halvane_prayer_times(engine, date, amman, clock, NULL, &prayers));
    for (int i = 0; i < HALVANE_PRAYERS; ++i)
        printf("%.17g\n", prayers.times[i].hours);

    double direction = 0;
    need(halvane_qiblah_direction(amman.latitude, amman.longitude, &direction));
    printf("%.17g\n", direction);

    halvane_crescent_answer answer = {.size = sizeof answer};
    halvane_verdict verdicts[64];
    size_t count = 0;
    need(halvane_crescent(engine, HALVANE_NEW_CRESCENT, date, amman, clock, NULL, &answer, verdicts, 64,
                          sizeof verdicts[0], &count));
    for (size_t i = 0; i < count; ++i)
        printf("%s %d\n", verdicts[i].criterion, verdicts[i].band);

    halvane_hijri_date hijri = {0, 0, 0};
    need(halvane_hijri_by_rule(engine, NULL, date, &hijri));
    printf("%d-%d-%d\n", hijri.year, hijri.month, hijri.day);

    halvane_clock* none = NULL;
    if (halvane_clock_of_zone("Nowhere/City", &none) != HALVANE_BAD_ARGUMENT || none != NULL)
        return 1;
    printf("%s\n", halvane_last_error());
    halvane_clock_free(clock);
    halvane_engine_close(engine);
    return 0;
}
