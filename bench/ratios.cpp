#include "app/stored/loc.h"
#include "app/stored/pref.h"
#include "bench/programrun.h"
#include "bench/swisswork.h"
#include "bench/timing.h"
#include "calendar/moddeltat.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "ephemeris/seriesterms.h"
#include "ephemeris/sun.h"
#include "prayer/moonday.h"
#include "prayer/prayerday.h"
#include "tables/ephemeristable.h"
#include "tools/measuring/scratchfolder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace halvane;
using namespace halvane::bench;
using swiss::Body;

/// Keeps results alive, so that no work is optimised away.
volatile double sink = 0;

double altitude_of(double jd, double right_ascension, double declination) {
    double altitude = 0;
    double azimuth = 0;
    modaltazm(jd, right_ascension, declination, altitude, azimuth);
    return altitude + azimuth;
}

double engine_place(Body body, double jd) {
    double ignored = 0;
    double right_ascension = 0;
    double declination = 0;
    if (body == Body::sun)
        modcorsh(pi, jd, right_ascension, declination, ignored, ignored, ignored, ignored, ignored, ignored,
                 ignored, ignored);
    else
        modcormm(pi, jd, right_ascension, declination, ignored, ignored, ignored, ignored, ignored, ignored,
                 ignored, ignored, ignored, ignored);
    return altitude_of(jd, right_ascension, declination);
}

/// Instants all over two centuries, in no order.
std::vector<double> scattered_instants() {
    constexpr int count = 2000;
    constexpr double days = 73000;
    std::mt19937_64 engine(1900);
    std::vector<double> instants;
    for (int i = 0; i < count; ++i)
        instants.push_back(epoch_j2000 - days / 2 +
                           days * static_cast<double>(engine() >> 11U) / (1ULL << 53U));
    return instants;
}

/// Every hour of 2026.
std::vector<double> hours_of_a_year() {
    constexpr double start = 2461041.5;
    std::vector<double> instants;
    for (int hour = 0; hour < 8760; ++hour)
        instants.push_back(start + hour / 24.0);
    return instants;
}

std::vector<double> days_of_a_year() {
    std::vector<double> days;
    for (int day = 0; day < 365; ++day)
        days.push_back(2461041.5 + day);
    return days;
}

class NoProgress : public Progress {
public:
    void percent(double /*value*/) override {}
    bool yield() override { return true; }
};

/// `ephemeris.out` with the Moon of every hour of 2026, from its stored choices to the file.
void moon_table_of_a_year() {
    EphemerisSettings settings;
    settings.object = 1;
    settings.geocentric = false;
    settings.end_month = 12;
    settings.end_day = 31;
    settings.end_hour = 23;
    settings.unit = 2;
    NoProgress progress;
    write_ephemeris_table(settings, progress);
}

struct Limits {
    double must;
    double aim;
};

class RatioTable {
public:
    RatioTable() {
        std::printf(
            "| Work | Engine | Swiss Ephemeris | Ratio | Must | Aim |\n|---|---:|---:|---:|---:|---:|\n");
    }
    void row(const char* work, const Limits& limits, const Work& ours, const Work& reference, double count) {
        const Times times = shortest_times(ours, reference);
        constexpr double microseconds = 1e6;
        std::printf("| %s | %.2f µs | %.2f µs | %.3f | %.2f | %.2f |\n", work,
                    times.ours / count * microseconds, times.reference / count * microseconds,
                    times.ours / times.reference, limits.must, limits.aim);
        std::fflush(stdout);
        kept_ = kept_ && times.ours / times.reference <= limits.must;
    }
    bool is_kept() const { return kept_; }

private:
    bool kept_ = true;
};

/// Does `place` for each instant.
template <class Place>
Work for_each(const std::vector<double>& instants, Place place) {
    return [&instants, place] {
        for (const double instant : instants)
            sink = place(instant);
    };
}

bool print_ratios() {
    const ScratchFolder folder;
    load_series();
    Preferences preferences = read_pref();
    preferences.clock_precision = "0";
    write_pref(preferences);
    const Location location = read_loc();
    const SwissWork swiss(longitude_of(location), latitude_of(location), location.elevation);

    RatioTable table;
    const std::vector<double> scattered = scattered_instants();
    const std::vector<double> hours = hours_of_a_year();
    const std::vector<double> days = days_of_a_year();
    const auto places = [&](const char* work, const Limits& limits, const std::vector<double>& instants,
                            Body body) {
        const TdtSpan dynamical_time(1);
        table.row(work, limits, for_each(instants, [body](double jd) { return engine_place(body, jd); }),
                  for_each(instants, [body, &swiss](double jd) { return swiss.place(body, jd); }),
                  static_cast<double>(instants.size()));
    };
    places("Sun by `modcorsh` with `modaltazm`, scattered instants", {0.8, 0.33}, scattered, Body::sun);
    places("Moon by `modcormm` with `modaltazm`, scattered instants", {0.6, 0.2}, scattered, Body::moon);
    places("Sun, every hour of a year", {0.8, 0.45}, hours, Body::sun);
    places("Moon, every hour of a year", {0.6, 0.27}, hours, Body::moon);

    table.row("table of the Moon, every hour of a year", {1.0, 0.35}, moon_table_of_a_year,
              for_each(hours, [&swiss](double jd) { return swiss.place(Body::moon, jd); }), 8760);

    const PrayerSettings settings = read_prayer_settings(DayMode::report);
    table.row("prayer day, each of a year", {0.11, 0.04},
              for_each(days,
                       [&settings](double jd) {
                           return static_cast<double>(prayer_day(settings, jd, 0).times.fajer.size());
                       }),
              for_each(days, [&](double jd) { return swiss.sun_day(jd - location.zone / 24), jd; }), 365);
    table.row("Moon day, each of a year", {0.9, 0.29},
              for_each(days,
                       [&](double jd) {
                           return static_cast<double>(moon_day(preferences, location, jd, 0).rise.size());
                       }),
              for_each(days, [&](double jd) { return swiss.moon_day(jd - location.zone / 24), jd; }), 365);

    return table.is_kept();
}

struct Report {
    const char* task;
    double must_milliseconds; ///< 0: none
};

/// What the batch program takes for each report, its start included.
constexpr Report reports[]{{"today", 40}, {"prayer", 0}, {"moon", 0}};

bool print_programs() {
    constexpr double milliseconds = 1e3;
    constexpr double most_megabytes = 40;
    constexpr double longest_loading = 10;
    constexpr int runs = 15;
    const ScratchFolder folder;
    store_year(2026);
    std::printf("\n| Work | Measured | Must |\n|---|---:|---:|\n");
    bool kept = true;
    for (const Report& report : reports) {
        ProgramRun best{HUGE_VAL, 0};
        for (int run = 0; run < runs; ++run) {
            const ProgramRun now = run_program({HALVANE_REPORT, "--folder", folder.path(), report.task});
            best = {std::min(best.seconds, now.seconds), std::max(best.megabytes, now.megabytes)};
        }
        const double time = best.seconds * milliseconds;
        const std::string must =
            report.must_milliseconds > 0 ? std::to_string(std::lround(report.must_milliseconds)) + " ms" : "";
        std::printf("| `halvane-report %s`, from start to end | %.1f ms | %s |\n", report.task, time,
                    must.c_str());
        std::printf("| its memory | %.1f MB | 40 MB |\n", best.megabytes);
        kept = kept && (must.empty() || time <= report.must_milliseconds) && best.megabytes <= most_megabytes;
    }
    const double loading = shortest_time(load_series) * milliseconds;
    std::printf("| the four series files loaded | %.2f ms | 10 ms |\n", loading);
    return kept && loading <= longest_loading;
}

std::string processor() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("model name"))
            return line.substr(line.find(": ") + 2);
    return "unknown processor";
}

} // namespace

/// Prints what the engine and the reports take, as tables in Markdown. Exit status 1 when a limit is passed.
int main() {
    try {
        std::printf("%s, %s vectors, %s, one thread\n", processor().c_str(), series_terms().instructions,
                    HALVANE_BUILD);
        const bool programs_kept = print_programs();
        return print_ratios() && programs_kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 1;
    }
}
