// SPDX-License-Identifier: MIT
#include "base/numberformat.h"
#include "bench/programrun.h"
#include "bench/storedyear.h"
#include "bench/swisswork.h"
#include "bench/timing.h"
#include "bench/yearofhours.h"
#include "calendar/moddeltat.h"
#include "crescent/circumstances.h"
#include "crescent/conjunction.h"
#include "crescent/visibilitymap.h"
#include "ephemeris/coordinates.h"
#include "ephemeris/modgeneral.h"
#include "ephemeris/moon.h"
#include "ephemeris/series.h"
#include "ephemeris/seriessums.h"
#include "ephemeris/sun.h"
#include "events/dayevents.h"
#include "events/phase.h"
#include "finemap/finemap.h"
#include "prayer/moonday.h"
#include "prayer/moonrun.h"
#include "prayer/prayerday.h"
#include "prayer/prayerrun.h"
#include "routines/seriesloader.h"
#include "settings/enginesettings.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "tables/ephemeristable.h"
#include "tests/support/programfolder.h"
#include "tools/measuring/random.h"
#include "zones/zonelist.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace halvane;
using namespace halvane::bench;

/// Keeps results alive, so that no work is optimised away.
thread_local volatile double sink = 0;

/// What the library's place is set against: ecliptic and equatorial place, geocentric and topocentric, with
/// altitude and azimuth.
/// A number that depends on a time.
double hours_or_0(const TaggedTime& time) {
    const double* hours = hours_of(time);
    return hours != nullptr ? *hours : 0;
}

double engine_place(Ephemeris& ephemeris, const Observer& observer, swiss::Body body, double jd) {
    const Instant instant = Instant::of_dynamical(jd);
    double altitude = 0;
    double azimuth = 0;
    if (body == swiss::Body::sun) {
        const SunPlace sun = sun_high(ephemeris, instant, observer);
        altazm_of(ephemeris, instant, observer, sun.right_ascension, sun.declination, altitude, azimuth);
    } else {
        const MoonPlace moon = moon_medium(ephemeris, instant, observer);
        altazm_of(ephemeris, instant, observer, moon.right_ascension, moon.declination, altitude, azimuth);
    }
    return altitude + azimuth;
}

/// Instants all over two centuries, in no order.
std::vector<double> scattered_instants() {
    constexpr int count = 2000;
    constexpr double days = 73000;
    Random random(1900);
    std::vector<double> instants;
    instants.reserve(count);
    for (int i = 0; i < count; ++i)
        instants.push_back(epoch_j2000 + random.between(-days / 2, days / 2));
    return instants;
}

/// Every hour of 2026.
std::vector<double> hours_of_a_year() {
    constexpr double start = 2461041.5;
    constexpr int hours = 8760;
    std::vector<double> instants;
    instants.reserve(hours);
    for (int hour = 0; hour < hours; ++hour)
        instants.push_back(start + hour / 24.0);
    return instants;
}

std::vector<double> days_of_a_year() {
    constexpr int count = 365;
    std::vector<double> days;
    days.reserve(count);
    for (int day = 0; day < count; ++day)
        days.push_back(2461041.5 + day);
    return days;
}

/// `ephemeris.out` with the Moon of every hour of 2026, from its stored choices to the file.
void moon_table_of_a_year() {
    NoProgress progress;
    write_report(*ephemeris_run(loaded_theory(), year_of_hours(1)), progress);
}

constexpr Phase phases[]{Phase::new_moon, Phase::first_quarter, Phase::full_moon, Phase::last_quarter};
constexpr int phases_of_a_year = 49;

/// Does `search(phase, estimate, elongation)` for the phases of 2026.
template <class Search>
Work for_each_phase(Search search) {
    return [search] {
        for (int i = 0; i < phases_of_a_year; ++i) {
            const int quarter = i % 4;
            sink = search(phases[quarter], phase_estimate(phases[quarter], 321 + i / 4.0), 90.0 * quarter);
        }
    };
}

MapRun map_of(Ephemeris& ephemeris, int day, int month, int year) {
    CrescentSettings settings;
    settings.day = std::to_string(day);
    settings.month = std::to_string(month);
    settings.year = std::to_string(year);
    const CrescentRecords crescent = read_crescent_records(settings);
    MapRun run;
    run.criterion = Criterion::yallop;
    run.conjunction = map_conjunction(ephemeris, find_conjunction(ephemeris, crescent).dynamical);
    run.day = map_day(run.conjunction, run.kind, 1);
    return run;
}

/// Takes a map into memory.
class MapInMemory : public MapReceiver {
public:
    void point(const MapPoint& point) override { points.push_back(point); }
    bool go_on() override { return true; }
    std::vector<MapPoint> points;
};

void draw_in_memory(const MapRun& run) {
    MapInMemory map;
    draw_visibility_map(loaded_theory(), run, map);
    sink = static_cast<double>(map.points.size());
}

/// The Moon of every point of the map's grid, at 18 h of its own meridian: 11,700 places.
void moons_of_the_grid(double day) {
    for (int lon = -180; lon <= 170; lon += 10)
        for (int lat = 60; lat >= -60; lat -= 10)
            for (int x = lon; x <= lon + 8; x += 2)
                for (int y = lat - 8; y <= lat; y += 2)
                    sink = swiss_moon(x, y, day + 0.75 - x / 360.0);
}

struct MapDate {
    const char* name;
    int day, month, year;
};

struct Limits {
    double must;
    double aim;
};

class RatioTable {
public:
    RatioTable() {
        std::printf(
            "\n| Work | Engine | Swiss Ephemeris | Ratio | Must | Aim |\n|---|---:|---:|---:|---:|---:|\n");
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
    const TemporaryProgramFolder folder;
    load_series();
    Preferences preferences = read_pref();
    preferences.clock_precision = "0";
    write_pref(preferences);
    const Location location = read_loc();
    const SwissWork swiss(longitude_of(location), latitude_of(location), location.elevation);

    Ephemeris ephemeris(loaded_theory());
    const Observer observer = observer_of(location);
    RatioTable table;
    const std::vector<double> scattered = scattered_instants();
    const std::vector<double> hours = hours_of_a_year();
    const std::vector<double> days = days_of_a_year();
    const auto places = [&](const char* work, const Limits& limits, const std::vector<double>& instants,
                            swiss::Body body) {
        table.row(
            work, limits,
            for_each(instants, [&, body](double jd) { return engine_place(ephemeris, observer, body, jd); }),
            for_each(instants, [body, &swiss](double jd) { return swiss.place(body, jd); }),
            static_cast<double>(instants.size()));
    };
    places("Sun, scattered instants", {0.8, 0.15}, scattered, swiss::Body::sun);
    places("Moon, scattered instants", {0.6, 0.12}, scattered, swiss::Body::moon);
    places("Sun, every hour of a year", {0.8, 0.30}, hours, swiss::Body::sun);
    places("Moon, every hour of a year", {0.6, 0.21}, hours, swiss::Body::moon);

    table.row("table of the Moon, every hour of a year", {1.0, 0.35}, moon_table_of_a_year,
              for_each(hours, [&swiss](double jd) { return swiss.place(swiss::Body::moon, jd); }), 8760);

    const PrayerSettings settings = read_prayer_settings(DayMode::report);
    table.row(
        "prayer day, each of a year", {0.11, 0.02},
        for_each(days,
                 [&](double jd) { return hours_or_0(prayer_day(ephemeris, settings, jd, 0).times.fajer); }),
        for_each(days, [&](double jd) { return swiss.sun_day(jd - location.zone / 24), jd; }), 365);
    table.row("Moon day, each of a year", {0.9, 0.29},
              for_each(days,
                       [&](double jd) {
                           return hours_or_0(moon_day(ephemeris, preferences, location, jd, 0).rise);
                       }),
              for_each(days, [&](double jd) { return swiss.moon_day(jd - location.zone / 24), jd; }), 365);

    table.row("the 49 phases of a year", {3, 0.6},
              for_each_phase([&ephemeris](Phase phase, double estimate, double) {
                  return refined_phase(ephemeris, phase, estimate);
              }),
              for_each_phase(
                  [&swiss](Phase, double estimate, double angle) { return swiss.phase(estimate, angle); }),
              1);
    for (const auto& [name, day, month, year] : {MapDate{"map of 30 March 2025, Yallop", 29, 3, 2025},
                                                 {"map of 18 February 2026, Yallop", 17, 2, 2026}}) {
        const MapRun run = map_of(ephemeris, day, month, year);
        table.row(
            name, {1.3, 0.45}, [&run] { draw_in_memory(run); }, [&run] { moons_of_the_grid(run.day); }, 1);
    }
    return table.is_kept();
}

/// Two maps on two threads, which share the theory and nothing else, against the same two one after the
/// other.
bool print_threads() {
    constexpr double must = 0.6;
    constexpr double milliseconds = 1e3;
    constexpr int runs = 25;
    if (std::thread::hardware_concurrency() < 2)
        return true;
    const TemporaryProgramFolder folder;
    load_series();
    Ephemeris ephemeris(loaded_theory());
    const MapRun run = map_of(ephemeris, 17, 2, 2026);
    const Times times = shortest_times_by_clock(
        [&run] {
            std::thread other([&run] { draw_in_memory(run); });
            draw_in_memory(run);
            other.join();
        },
        [&run] {
            draw_in_memory(run);
            draw_in_memory(run);
        },
        runs);
    std::printf("\n| Work | Two threads | One thread | Ratio | Must |\n|---|---:|---:|---:|---:|\n");
    std::printf("| two maps of 18 February 2026, Yallop | %.1f ms | %.1f ms | %.3f | %.2f |\n",
                times.ours * milliseconds, times.reference * milliseconds, times.ours / times.reference,
                must);
    return times.ours <= must * times.reference;
}

/// A fine map of the world from 80 degrees north to 80 south.
FineMapSettings fine_map_of(Ephemeris& ephemeris, double step) {
    constexpr double evening = 2461089.5; // 2026 February 18
    FineMapSettings settings;
    settings.day = evening;
    settings.conjunction = geocentric_conjunction(ephemeris, evening);
    settings.criterion = catalogued_criterion("yallop-1997");
    settings.window = {-180, -80, 180, 80};
    settings.step = step;
    return settings;
}

void make_in_memory(const FineMapSettings& settings) {
    NoProgress progress;
    sink = static_cast<double>(make_fine_map(loaded_theory(), settings, progress)->zones.size());
}

struct FineMapLimit {
    const char* name;
    double step;       ///< [deg]
    double must_clock; ///< [s]
};

/// Fine maps on all cores, by the clock, and their processor time against as many Moons of the Swiss
/// Ephemeris.
bool print_fine_maps() {
    constexpr double must_ratio = 0.4;
    constexpr double milliseconds = 1e3;
    constexpr double moons = 11700; // of moons_of_the_grid
    constexpr int runs = 5;
    const TemporaryProgramFolder folder;
    load_series();
    Ephemeris ephemeris(loaded_theory());
    std::printf("\n| Work | By the clock | Must | Processor | As many Moons | Ratio | Must |\n"
                "|---|---:|---:|---:|---:|---:|---:|\n");
    bool kept = true;
    for (const auto& [name, step, must_clock] : {FineMapLimit{"sketch of the world, every 5°", 5, 0.1},
                                                 {"fine map of the world, every 1°", 1, 0.15},
                                                 {"fine map of the world, every 0.25°", 0.25, 1.5}}) {
        const FineMapSettings settings = fine_map_of(ephemeris, step);
        const double places = (360 / step + 1) * (160 / step + 1);
        const Work make = [&settings] { make_in_memory(settings); };
        const Times processor = shortest_times(
            make, [&settings] { moons_of_the_grid(settings.day); }, runs);
        const double clock = shortest_times_by_clock(
                                 make, [] {}, runs)
                                 .ours;
        const double reference = processor.reference * places / moons;
        const double ratio = processor.ours / reference;
        std::printf("| %s | %.0f ms | %.0f ms | %.0f ms | %.0f ms | %.3f | %.2f |\n", name,
                    clock * milliseconds, must_clock * milliseconds, processor.ours * milliseconds,
                    reference * milliseconds, ratio, must_ratio);
        std::fflush(stdout);
        // A sketch is too small for its borders to be a small part of it.
        const bool is_judged = step <= 0.25;
        kept = kept && clock <= must_clock && (!is_judged || ratio <= must_ratio);
    }
    return kept;
}

/// A crescent's calculation, with its conjunction, against 60 places of each body on top of its two day
/// calculations. The report's file, which is forced onto the disk, is not in it.
bool print_crescent() {
    constexpr int places = 60;
    const TemporaryProgramFolder folder;
    load_series();
    CrescentSettings settings;
    settings.day = "17";
    settings.month = "2";
    const double day = 2461088.5;
    Ephemeris ephemeris(loaded_theory());
    const CrescentRecords run = read_crescent_records(settings);
    const Observer observer = observer_of(run.location);
    const Horizon horizon = horizon_of(run.preferences, run.location);
    const Instant midnight = Instant::of_ut1(day - run.location.zone / 24);
    DayEvents events;
    const Times times = shortest_times(
        [&] { sink = crescent_circumstances(ephemeris, run, find_conjunction(ephemeris, run), events)->lag; },
        [&] {
            take_sun_events(ephemeris, midnight, observer, horizon, events);
            take_moon_events(ephemeris, midnight, observer, horizon, events);
            for (int i = 0; i < places; ++i) {
                sink = sun_high(ephemeris, Instant::of_ut1(day + i / 100.0), observer).longitude;
                sink = moon_medium(ephemeris, Instant::of_ut1(day + i / 100.0), observer).longitude;
            }
        },
        25);
    constexpr double microseconds = 1e6;
    std::printf("\n| Work | Measured | Must |\n|---|---:|---:|\n");
    std::printf("| a crescent's circumstances, with the conjunction | %.0f µs | %.0f µs |\n",
                times.ours * microseconds, times.reference * microseconds);
    return times.ours <= times.reference;
}

/// A command of the batch program and what it may take.
struct ProgramWork {
    const char* words;
    double must_milliseconds = 0; ///< 0: no limit
    double must_megabytes = 40;
    int runs = 15;
};

constexpr const char* places_file = "places.csv";

/// From start to end, as a user waits for it.
constexpr ProgramWork program_works[]{
    {"today", 40},
    // What status bars ask every minute: not more than `today` took while its program loaded GD.
    {"next", 9, 12},
    {"next --place Cairo --json", 9, 12},
    {"day --place Cairo", 9, 12},
    {"prayer"},
    {"moon"},
    {"phases"},
    {"crescent"},
    {"qibla-sun"},
    {"qibla-shadow"},
    {"map", 1000},
    {"ephemeris"},
    {"timetable --year 2026 --output - --format csv", 40},
    {"timetable --year 2026 --output - --format ics", 40},
    {"timetable --year 2026 --output - --format json", 40},
    {"timetable --year 2026 --output - --format html", 40},
    {"timetable --year 2026 --output - --format pdf", 1000, 200},
    {"timetable --year 2026 --places places.csv --output .", 6000, 100, 3},
    {"timetable --year 2026 --places places.csv --output . --profile mwl", 6000, 100, 3},
    {"map --fine --date 2026-02-18 --step 0.25 --format geojson --output -", 0, 150, 3},
    {"map --fine --date 2026-02-18 --step 1 --format png --output -", 0, 150, 3},
    {"map --fine --date 2026-02-18 --width 30000 --format png --output -", 20000, 1000, 1}};

/// The delivered places as a table for the timetable.
void write_places(const TemporaryFolder& folder) {
    std::string text = "name,latitude,longitude,zone_name\n";
    const ZoneList zones = read_zone_list();
    for (const ZonedPlace& place : zones.places())
        text += place.name + "," + plain_number(place.latitude) + "," + plain_number(place.longitude) + "," +
                place.zone + "\n";
    folder.write(places_file, text);
}

std::vector<std::string> command_of(const TemporaryFolder& folder, const char* words) {
    std::vector<std::string> command{HALVANE_REPORT, "--folder", folder.path().string()};
    std::istringstream stream(words);
    for (std::string word; stream >> word;)
        command.push_back(word);
    return command;
}

bool print_work(const TemporaryFolder& folder, const ProgramWork& work) {
    constexpr double milliseconds = 1e3;
    ProgramRun best{HUGE_VAL, 0};
    for (int run = 0; run < work.runs; ++run) {
        const ProgramRun now = run_program(command_of(folder, work.words), folder.path().string());
        best = {std::min(best.seconds, now.seconds), std::max(best.megabytes, now.megabytes)};
    }
    const double time = best.seconds * milliseconds;
    const std::string must =
        work.must_milliseconds > 0 ? std::to_string(std::lround(work.must_milliseconds)) + " ms" : "";
    std::printf("| `halvane-report %s`, from start to end | %.1f ms | %s |\n", work.words, time,
                must.c_str());
    std::printf("| its memory | %.1f MB | %.0f MB |\n", best.megabytes, work.must_megabytes);
    return (must.empty() || time <= work.must_milliseconds) && best.megabytes <= work.must_megabytes;
}

bool print_programs() {
    constexpr double milliseconds = 1e3;
    constexpr double longest_loading = 10;
    const TemporaryProgramFolder folder;
    store_year(2026);
    write_places(folder);
    std::printf("\n| Work | Measured | Must |\n|---|---:|---:|\n");
    bool kept = true;
    for (const ProgramWork& work : program_works)
        kept = print_work(folder, work) && kept;
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

/// Prints what the engine and the reports take, as tables in Markdown; with the argument "threads" only the
/// table of two threads, with "maps" only that of the fine maps. Exit status 1 when a limit is passed.
int main(int argc, char** argv) {
    try {
        if (argc > 1 && std::string_view(argv[1]) == "threads")
            return print_threads() ? 0 : 1;
        if (argc > 1 && std::string_view(argv[1]) == "maps")
            return print_fine_maps() ? 0 : 1;
        std::printf("%s, %s vectors, %s, one thread\n", processor().c_str(), series_sums().instructions,
                    HALVANE_BUILD);
        const bool programs_kept = print_programs();
        const bool crescent_kept = print_crescent();
        const bool ratios_kept = print_ratios();
        const bool maps_kept = print_fine_maps();
        return maps_kept && print_threads() && programs_kept && crescent_kept && ratios_kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 1;
    }
}
