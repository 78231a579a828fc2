// SPDX-License-Identifier: MIT
#include "bench/timing.h"
#include "calendar/modjul.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/moon.h"
#include "ephemeris/sun.h"
#include "events/riseset.h"
#include "halvane/halvane.h"
#include "halvane/prayer.h"
#include "prayer/prayerday.h"
#include "routines/seriesloader.h"
#include "settings/enginesettings.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"

#include <cstdio>
#include <string>
#include <vector>

// The time of calls through the shared library over that of the routines behind them, and of the C interface
// over the C++ one; each pair in turns, so that both meet the same machine.

namespace {

using namespace halvane;
using namespace halvane::bench;

volatile double sink = 0;

constexpr int instants = 4000;
constexpr int days = 60;
constexpr int short_calls = 1000000;

double jd_of(int number) {
    return 2461000.5 + 1.37 * number;
}

void print_ratio(const char* what, const Times& times) {
    std::printf("%-62s %6.3f\n", what, times.ours / times.reference);
}

/// A call of some nanoseconds, where the interface itself counts.
void print_short(const char* what, const Work& ours, const Work& reference) {
    const Times times = shortest_times(ours, reference);
    constexpr double nanoseconds = 1e9 / short_calls;
    std::printf("%-62s %6.3f  (%.1f ns more than %.1f ns)\n", what, times.ours / times.reference,
                (times.ours - times.reference) * nanoseconds, times.reference * nanoseconds);
}

/// The engine's own side of a comparison.
struct Engine {
    Ephemeris ephemeris{loaded_theory()};
    Location location = place_at({31.25}, {30.05}, 2);
    Observer observer = observer_of(location);
    PrayerSettings settings = prayer_settings(Preferences(), location, DayMode::report);
};

double sun_of_engine(Engine& engine, double jd) {
    const Instant instant = Instant::of_ut1(jd);
    const SunPlace sun = sun_high(engine.ephemeris, instant, engine.observer);
    double altitude = 0;
    double azimuth = 0;
    altazm_of(engine.ephemeris, instant, engine.observer, sun.topocentric_right_ascension,
              sun.topocentric_declination, altitude, azimuth);
    return altitude;
}

double moon_of_engine(Engine& engine, double jd) {
    const Instant instant = Instant::of_ut1(jd);
    const MoonPlace moon = moon_medium(engine.ephemeris, instant, engine.observer);
    double altitude = 0;
    double azimuth = 0;
    altazm_of(engine.ephemeris, instant, engine.observer, moon.topocentric_right_ascension,
              moon.topocentric_declination, altitude, azimuth);
    return altitude;
}

double prayers_of_engine(Engine& engine, int number) {
    const int month = 1 + number / 28;
    double jd = 0;
    modjul(2026, month, 1 + number % 28, 0, jd);
    const PrayerDay day = prayer_day(engine.ephemeris, engine.settings, jd, 0);
    return std::get<double>(day.times.maghreb);
}

template <class Call>
Work each(int count, const Call& call) {
    return [count, call] {
        for (int i = 0; i < count; ++i)
            sink = sink + call(i);
    };
}

} // namespace

int main() {
    const TemporaryProgramFolder folder;
    load_series();
    Engine engine;
    const v1::Engine library(folder.path().string());
    const v1::Observer cairo{30.05, 31.25, 0};
    const v1::Clock clock = v1::Clock::fixed(2);
    const v1::ReportRules rules;
    const auto sun = [&](int i) {
        return sun_seen(library, v1::Instant::of_ut1(jd_of(i)), cairo).topocentric.altitude;
    };
    const auto moon = [&](int i) {
        return moon_seen(library, v1::Instant::of_ut1(jd_of(i)), cairo).topocentric.altitude;
    };
    const auto prayers = [&](int i) {
        return v1::prayer_times(library, {2026, 1 + i / 28, 1 + i % 28}, cairo, clock, rules)
            .times[static_cast<std::size_t>(v1::Prayer::maghreb)]
            .hours;
    };
    std::puts("C++ interface over the routine behind it");
    print_ratio("  place of the Sun, complete, seen",
                shortest_times(each(instants, sun),
                               each(instants, [&](int i) { return sun_of_engine(engine, jd_of(i)); })));
    print_ratio("  place of the Moon, seen", shortest_times(each(instants, moon), each(instants, [&](int i) {
                                                                return moon_of_engine(engine, jd_of(i));
                                                            })));
    print_ratio("  prayer times of a day", shortest_times(each(days, prayers), each(days, [&](int i) {
                                                              return prayers_of_engine(engine, i);
                                                          })));

    halvane_engine* handle = nullptr;
    halvane_clock* c_clock = nullptr;
    if (halvane_engine_open_folder(folder.path().c_str(), &handle) != HALVANE_OK ||
        halvane_clock_fixed(2, &c_clock) != HALVANE_OK)
        return 1;
    const halvane_observer c_cairo{30.05, 31.25, 0};
    const auto c_sun = [&](int i) {
        halvane_seen_sun seen{};
        seen.size = sizeof seen;
        halvane_sun_seen(handle, {jd_of(i), HALVANE_UT1}, c_cairo, 0, &seen);
        return seen.topocentric.altitude;
    };
    const auto c_moon = [&](int i) {
        halvane_seen_moon seen{};
        seen.size = sizeof seen;
        halvane_moon_seen(handle, {jd_of(i), HALVANE_UT1}, c_cairo, 0, &seen);
        return seen.topocentric.altitude;
    };
    const auto c_prayers = [&](int i) {
        halvane_prayer_day day{};
        day.size = sizeof day;
        halvane_prayer_times(handle, {2026, 1 + i / 28, 1 + i % 28}, c_cairo, c_clock, nullptr, &day);
        return day.times[HALVANE_MAGHREB].hours;
    };
    std::puts("C interface over the C++ one");
    print_ratio("  place of the Sun, complete, seen",
                shortest_times(each(instants, c_sun), each(instants, sun)));
    print_ratio("  place of the Moon, seen", shortest_times(each(instants, c_moon), each(instants, moon)));
    print_ratio("  prayer times of a day", shortest_times(each(days, c_prayers), each(days, prayers)));
    const auto delta_t = [](int i) { return v1::delta_t(jd_of(i % instants)); };
    const auto c_delta_t = [](int i) {
        double seconds = 0;
        halvane_delta_t(jd_of(i % instants), &seconds);
        return seconds;
    };
    const auto refracted = [](int i) { return v1::refracted(0.02 * (i % instants)); };
    const auto c_refracted = [](int i) {
        double altitude = 0;
        halvane_refracted(0.02 * (i % instants), &altitude);
        return altitude;
    };
    print_short("  TDT less UT1", each(short_calls, c_delta_t), each(short_calls, delta_t));
    print_short("  altitude with refraction", each(short_calls, c_refracted), each(short_calls, refracted));
    halvane_clock_free(c_clock);
    halvane_engine_close(handle);
    return 0;
}
