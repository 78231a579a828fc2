// SPDX-License-Identifier: MIT
#include "calendar/modjul.h"
#include "crescent/circumstances.h"
#include "crescent/conjunction.h"
#include "crescent/visibilitymap.h"
#include "phases/phaseyear.h"
#include "prayer/prayerday.h"
#include "routines/seriesloader.h"
#include "tests/support/places.h"
#include "tests/support/programfolder.h"

#include <bit>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

// The engine and the tools on many threads at once; under the thread sanitizer where it is built so.

namespace halvane {
namespace {

constexpr int threads_at_once = 8;

using Result = std::vector<std::string>;
using Work = std::function<Result()>;

std::string bits_of(double value) {
    return std::to_string(std::bit_cast<std::uint64_t>(value));
}

std::string bits_of(const TaggedTime& time) {
    const double* hours = hours_of(time);
    return hours != nullptr ? bits_of(*hours) : text_of(std::get<NoEvent>(time));
}

double jd_of(double year, double month, double day) {
    double jd = 0;
    modjul(year, month, day, 0, jd);
    return jd;
}

Result year_of_prayers(const TheoryPointer& theory, const Location& location) {
    Preferences preferences;
    preferences.clock_precision = "0";
    const PrayerSettings settings = prayer_settings(preferences, location, DayMode::report);
    Ephemeris ephemeris(theory);
    Result result;
    const double first = jd_of(2026, 1, 1);
    for (int day = 0; day < 365; ++day) {
        const PrayerTimes times = prayer_day(ephemeris, settings, first + day, 0).times;
        for (const auto time : six_times)
            result.push_back(bits_of(times.*time));
    }
    return result;
}

Result year_of_phases(const TheoryPointer& theory) {
    PhaseYear run;
    run.year = 2026;
    run.location = place_at(36, 32, 2);
    Ephemeris ephemeris(theory);
    Result result;
    for (int k = 321; k < 335; ++k)
        for (const Phase phase :
             {Phase::new_moon, Phase::first_quarter, Phase::full_moon, Phase::last_quarter})
            result.push_back(
                bits_of(local_phase(ephemeris, run, phase, k + 0.25 * static_cast<double>(phase)).jd));
    return result;
}

Result year_of_crescents(const TheoryPointer& theory, const Location& location) {
    Ephemeris ephemeris(theory);
    DayEvents events;
    Result result;
    for (int month = 1; month <= 12; ++month)
        for (const bool is_new : {true, false})
            for (const bool geocentric : {true, false}) {
                CrescentRecords run{{}, {}, location};
                run.settings.month = std::to_string(month);
                run.settings.new_crescent = is_new;
                run.settings.geocentric = geocentric;
                const auto c =
                    crescent_circumstances(ephemeris, run, find_conjunction(ephemeris, run), events);
                result.push_back(c ? bits_of(c->calculation) + " " + bits_of(c->quantities.elongation) + " " +
                                         bits_of(c->criterion.value)
                                   : std::string());
            }
    return result;
}

class Points : public MapReceiver {
public:
    void point(const MapPoint& point) override {
        result.push_back(std::to_string(point.longitude) + " " + std::to_string(point.latitude) + " " +
                         std::to_string(static_cast<int>(point.visibility)));
    }
    bool go_on() override { return true; }
    Result result;
};

Result map_of(const TheoryPointer& theory, const MapRun& run) {
    Points points;
    draw_visibility_map(theory, run, points);
    return points.result;
}

MapRun run_of(Criterion criterion) {
    CrescentSettings settings;
    settings.day = std::to_string(17);
    settings.month = std::to_string(2);
    settings.year = std::to_string(2026);
    Ephemeris ephemeris(loaded_theory());
    const Conjunction conjunction = find_conjunction(ephemeris, {settings, {}, {}});
    MapRun run;
    run.criterion = criterion;
    run.conjunction = map_conjunction(ephemeris, conjunction.dynamical);
    run.day = map_day(run.conjunction, run.kind, 1);
    return run;
}

/// Eight observers' years of prayer days and of crescents, a year of phases, two maps.
std::vector<Work> works() {
    const TheoryPointer theory = loaded_theory();
    std::vector<Work> all;
    all.reserve(2 * threads_at_once + 3); // with the phases and two maps
    for (int i = 0; i < threads_at_once; ++i)
        all.emplace_back(
            [theory, i] { return year_of_prayers(theory, place_at(20 * i - 70, 8 * i - 30, i - 4)); });
    for (int i = 0; i < threads_at_once; ++i)
        all.emplace_back(
            [theory, i] { return year_of_crescents(theory, place_at(20 * i - 70, 8 * i - 30, i - 4)); });
    all.emplace_back([theory] { return year_of_phases(theory); });
    for (const MapRun& run : {run_of(Criterion::yallop), run_of(Criterion::saao)})
        all.emplace_back([theory, run] { return map_of(theory, run); });
    return all;
}

TEST(Threads, GiveBitForBitWhatOneThreadGives) {
    const TemporaryProgramFolder folder;
    load_series();
    const std::vector<Work> all = works();
    std::vector<Result> serial;
    serial.reserve(all.size());
    for (const Work& work : all)
        serial.push_back(work());

    std::vector<Result> together(all.size());
    std::vector<std::thread> threads;
    threads.reserve(threads_at_once);
    for (int thread = 0; thread < threads_at_once; ++thread)
        threads.emplace_back([&all, &together, thread] {
            // From the end: the maps and the phases start at once with five years of prayers.
            for (std::size_t i = all.size(); i-- > 0;)
                if (static_cast<int>(i % threads_at_once) == thread)
                    together[i] = all[i]();
        });
    for (std::thread& thread : threads)
        thread.join();

    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_GE(serial[i].size(), 48U) << i;
        EXPECT_EQ(together[i], serial[i]) << i;
    }
}

} // namespace
} // namespace halvane
