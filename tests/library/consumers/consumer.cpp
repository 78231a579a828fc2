// SPDX-License-Identifier: MIT
// Calls of every header's kind in C++20; the numbers are those of consumer.c.
#include <cstdio>
#include <halvane/crescent.h>
#include <halvane/engine.h>
#include <halvane/error.h>
#include <halvane/events.h>
#include <halvane/halvane.h>
#include <halvane/hijri.h>
#include <halvane/prayer.h>
#include <halvane/qiblah.h>
#include <halvane/sky.h>
#include <halvane/values.h>

int main() {
    const halvane::Date date{2026, 2, 18};
    const halvane::Observer amman{31.95, 35.93, 900};
    const halvane::Instant instant = halvane::Instant::of_unix(1771430400);
    const halvane::Engine engine;
    const halvane::Clock clock = halvane::Clock::of_zone("Asia/Amman");

    const halvane::SeenMoon moon = halvane::moon_seen(engine, instant, amman);
    std::printf("%.17g %.17g\n", moon.geocentric.longitude, moon.topocentric.altitude);
    const halvane::BodyDay day = halvane::sun_day(engine, date, amman, clock);
    std::printf("%.17g %.17g\n", day.rise.hours, day.set.hours);
    for (const halvane::ClockTime& time : halvane::prayer_times(engine, date, amman, clock).times)
        std::printf("%.17g\n", time.hours);
    std::printf("%.17g\n", halvane::qiblah_direction(amman.latitude, amman.longitude));
    const auto answer = halvane::crescent(engine, halvane::CrescentKind::new_crescent, date, amman, clock);
    for (const halvane::CrescentVerdict& verdict : answer.verdicts)
        std::printf("%s %d\n", verdict.criterion.c_str(),
                    verdict.band ? static_cast<int>(*verdict.band) : -1);
    const halvane::HijriDate hijri = halvane::hijri_date(engine, {}, date);
    std::printf("%d-%d-%d\n", hijri.year, hijri.month, hijri.day);
    try {
        halvane::Clock::of_zone("Nowhere/City");
    } catch (const halvane::Error& error) {
        if (error.kind() != halvane::ErrorKind::bad_argument)
            return 1;
        std::printf("%s\n", error.what());
        return 0;
    }
    return 1;
}
