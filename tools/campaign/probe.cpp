// SPDX-License-Identifier: MIT
// halvane-probe FOLDER WORK ARGUMENT ...: what the campaign asks of the engine, as rows of numbers and texts
// on standard output. FOLDER is a program folder of the campaign's own. The campaign judges the rows.

#include "calendar/hijriconversion.h"
#include "calendar/moddateconv.h"
#include "calendar/modjul.h"
#include "crescent/conjunction.h"
#include "crescent/gif.h"
#include "crescent/visibilitymap.h"
#include "ephemeris/series.h"
#include "events/phase.h"
#include "phases/phasereport.h"
#include "prayer/moonday.h"
#include "prayer/prayertexts.h"
#include "routines/namedengine.h"
#include "routines/seriesloader.h"
#include "stored/alert.h"
#include "stored/coor.h"
#include "stored/date.h"
#include "stored/loc.h"
#include "stored/loclist.h"
#include "stored/phase.h"
#include "stored/pref.h"
#include "stored/programfolder.h"
#include "stored/tele.h"
#include "stored/textfile.h"
#include "stored/visib.h"
#include "system/programstart.h"
#include "system/unfinishedfile.h"
#include "tools/measuring/random.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace halvane {
namespace {

using Arguments = std::vector<std::string>;

int whole(const std::string& text) {
    return std::stoi(text);
}

/// Every day between two day numbers: its civil date, the day number of that date, its Hijri date, the day
/// number of that date, and the Hijri date that the conversion panel gives for the civil one.
void calendars(const Arguments& arguments) {
    for (int day = whole(arguments.at(0)); day <= whole(arguments.at(1)); ++day) {
        double year = 0;
        double month = 0;
        double date = 0;
        modjuc(day, year, month, date);
        double back = 0;
        modjul(year, month, date, 12, back);
        const HijriDate hijri = hijri_of_day_number(day);
        const ConversionAnswer panel =
            convert_date(ConversionDirection::civil_to_hijri, year, month, date, Language::english);
        const ConversionAnswer civil = convert_date(ConversionDirection::hijri_to_civil, hijri.year,
                                                    hijri.month, hijri.day, Language::english);
        std::printf("%d,%g,%g,%g,%.1f,%g,%g,%g,%.1f,%g,%g,%g,%g,%g,%g,%s\n", day, year, month, date, back,
                    hijri.year, hijri.month, hijri.day,
                    day_number_of_hijri(hijri.year, hijri.month, hijri.day), panel.year, panel.month,
                    panel.day, civil.year, civil.month, civil.day, civil.weekday.c_str());
    }
}

/// A place of the globe, evenly spread over its surface, on the clock of its own meridian.
Location random_place(Random& random) {
    const double longitude = random.between(-180, 180);
    const double latitude = std::asin(random.between(-1, 1)) * 180 / std::acos(-1.0);
    Location place;
    place.name = "Here";
    place.longitude_degrees = std::fabs(longitude);
    place.latitude_degrees = std::fabs(latitude);
    place.zone = std::round(longitude / 15);
    place.east = longitude >= 0;
    place.north = latitude >= 0;
    place.west = !place.east;
    place.south = !place.north;
    return place;
}

/// Days of random places: seed, count, first and last year. A row holds longitude, latitude, zone, Julian day
/// of the day's 0 h, the six prayer times and the Moon's three, all to the second.
void globe(const Arguments& arguments) {
    constexpr int days_of_a_place = 10;
    load_series();
    Preferences preferences;
    preferences.clock_precision = "0";
    write_pref(preferences);
    Random random(std::stoull(arguments.at(0)));
    double first = 0;
    double last = 0;
    modjul(whole(arguments.at(2)), 1, 1, 0, first);
    modjul(whole(arguments.at(3)) + 1, 1, 1, 0, last);
    for (int row = 0; row < whole(arguments.at(1)); ++row) {
        if (row % days_of_a_place == 0)
            write_loc(random_place(random));
        const double day = std::floor(random.between(first, last)) + 0.5;
        const PrayerSettings settings = read_prayer_settings(DayMode::report);
        const PrayerTexts times = texts_of(prayer_day(named_ephemeris(), settings, day, 0).times, 0);
        const MoonTimes moon = moon_day(named_ephemeris(), settings.preferences, settings.location, day, 0);
        std::printf("%.17g,%.17g,%g,%.1f,%s,%s,%s,%s,%s,%s,%s,%s,%s\n", settings.longitude, settings.latitude,
                    settings.location.zone, day, times.fajer.c_str(), times.shuroq.c_str(),
                    times.dhohur.c_str(), times.aser.c_str(), times.maghreb.c_str(), times.isha.c_str(),
                    text_of(moon.rise, 0).c_str(), text_of(moon.transit, 0).c_str(),
                    text_of(moon.set, 0).c_str());
    }
}

/// Every phase of the lunations from one to another: k and the Julian day of dynamical time.
void lunations(const Arguments& arguments) {
    constexpr int quarters = 4;
    load_series();
    for (int lunation = whole(arguments.at(0)); lunation <= whole(arguments.at(1)); ++lunation)
        for (int quarter = 0; quarter < quarters; ++quarter) {
            const Phase phase = static_cast<Phase>(quarter);
            const double k = lunation + quarter / static_cast<double>(quarters);
            std::printf("%.2f,%.9f\n", k, refined_phase(named_ephemeris(), phase, phase_estimate(phase, k)));
        }
}

/// The rows of the phase tables of the years from one to another, dynamical time on the zone of Greenwich.
void phase_tables(const Arguments& arguments) {
    load_series();
    Location place = read_loc();
    place.zone = 0;
    write_loc(place);
    PhaseSettings settings = read_phase();
    settings.geocentric = true;
    settings.local_ut1 = false;
    NoProgress progress;
    for (int year = whole(arguments.at(0)); year <= whole(arguments.at(1)); ++year) {
        settings.year = std::to_string(year);
        write_report(*phase_run(loaded_theory(), phase_year(settings, "0")), progress);
        std::istringstream lines(read_text_file(program_path("results.out")));
        for (std::string line; std::getline(lines, line);)
            std::printf("%d,%s\n", year, line.c_str());
    }
}

/// Keeps the points of a map that are evaluated each by itself.
class EvaluatedPoints : public MapReceiver {
public:
    void point(const MapPoint& point) override {
        ++all_;
        if (point.evaluated)
            points_.push_back(point);
    }
    bool go_on() override { return true; }
    const std::vector<MapPoint>& points() const { return points_; }
    std::size_t all() const { return all_; }

private:
    std::vector<MapPoint> points_;
    std::size_t all_ = 0;
};

int class_alone(const MapRun& run, double longitude, double latitude) {
    double conjunction = run.conjunction.universal;
    return static_cast<int>(evaluate_point(named_ephemeris(), run, longitude, latitude, conjunction));
}

/// Maps of random months against points evaluated alone: seed, maps, points of each. A row holds the map, the
/// point, its class on the map, alone, and a thousandth of a degree to the east, west, north and south.
void map_points(const Arguments& arguments) {
    constexpr double beside = 0.001;
    load_series();
    Random random(std::stoull(arguments.at(0)));
    for (int map = 0; map < whole(arguments.at(1)); ++map) {
        CrescentSettings settings;
        settings.year = std::to_string(static_cast<int>(random.between(622, 2500)));
        settings.month = std::to_string(static_cast<int>(random.between(1, 13)));
        settings.day = "15";
        settings.new_crescent = random.between(0, 1) < 0.5;
        settings.geocentric = true;
        MapRun run;
        const auto count = static_cast<double>(criteria().size());
        run.criterion = Criterion{static_cast<int>(random.between(0, count))};
        run.kind = kind_of(settings);
        run.conjunction =
            map_conjunction(named_ephemeris(),
                            find_conjunction(named_ephemeris(), read_crescent_records(settings)).dynamical);
        run.day = map_day(run.conjunction, run.kind, static_cast<int>(random.between(0, 3)));
        EvaluatedPoints points;
        if (!draw_visibility_map(loaded_theory(), run, points) || points.points().empty())
            throw std::runtime_error("no map");
        for (int i = 0; i < whole(arguments.at(2)); ++i) {
            const auto last = static_cast<double>(points.points().size());
            const MapPoint& point = points.points()[static_cast<std::size_t>(random.between(0, last))];
            std::printf("%d %s/%s crit %d,%d,%d,%d,%d", map, settings.month.c_str(), settings.year.c_str(),
                        static_cast<int>(run.criterion), point.longitude, point.latitude,
                        static_cast<int>(point.visibility),
                        class_alone(run, point.longitude, point.latitude));
            for (const auto& [east, north] :
                 {std::pair{beside, 0.0}, {-beside, 0.0}, {0.0, beside}, {0.0, -beside}})
                std::printf(",%d", class_alone(run, point.longitude + east, point.latitude + north));
            std::printf("\n");
        }
    }
}

/// A place of a name that no delivered one has, short or long.
Location listed_place(bool second) {
    Location place;
    place.name = "Campaign";
    place.elevation = second ? 1234.5 : 1;
    return place;
}

GifPicture plain_picture(bool second) {
    GifPicture picture;
    picture.width = second ? 640 : 320;
    picture.height = 200;
    picture.palette = {{0, 0, 0}, {255, 255, 255}, {0, 139, 0}};
    for (int pixel = 0; pixel < picture.width * picture.height; ++pixel)
        picture.indices.push_back(static_cast<std::uint8_t>(pixel % (second ? 3 : 2)));
    return picture;
}

/// Saves the file `name` with the first or the second of two contents that every task can use.
void save(const std::string& name, bool second) {
    const std::string longer(second ? 3000 : 1, 'n');
    const double number = second ? 19.512345678 : 18;
    const std::map<std::string, std::function<void()>> saves{
        {"pref.vsk",
         [&] {
             Preferences record;
             record.fajer_angle = number;
             write_pref(record);
         }},
        {"loc.vsk",
         [&] {
             Location record;
             record.name = longer;
             write_loc(record);
         }},
        {"date.vsk",
         [&] {
             CalculationDate record;
             record.start.year = second ? 123456 : 1;
             write_date(record);
         }},
        {"alert.vsk",
         [&] {
             AlertSettings record;
             record.lead = number;
             write_alert(record);
         }},
        {"phase.vsk",
         [&] {
             PhaseSettings record;
             record.year = second ? "2026" : "622";
             write_phase(record);
         }},
        {"visib.vsk",
         [&] {
             CrescentSettings record;
             record.hijri_year = second ? "1448" : "999";
             write_visib(record);
         }},
        {"coor.vsk",
         [&] {
             EphemerisSettings record = read_coor();
             record.start_year = second ? 2026 : 2025;
             write_coor(record);
         }},
        {"tele.vsk",
         [&] {
             TelescopeSettings record = read_tele();
             record.minute = second ? 30 : 0;
             write_tele(record);
         }},
        {"loc.txt", [&] { modify_location(listed_place(second)); }},
        {"saved.txt",
         [&] { save_text_file(program_path("saved.txt"), std::string(second ? 900000 : 300000, 'x')); }},
        {"saved.gif",
         [&] {
             if (!GIF().SaveGIF(plain_picture(second), program_path("saved.gif")))
                 throw std::runtime_error("cannot save saved.gif");
         }},
    };
    saves.at(name)();
}

/// Saves one file once (its name, then 1 or 2), or without end (its name): the process is to be killed.
void save_file(const Arguments& arguments) {
    const std::string& name = arguments.at(0);
    if (arguments.size() > 1) {
        save(name, arguments[1] == "2");
        return;
    }
    save(name, true);
    std::printf("begun\n");
    std::fflush(stdout);
    for (bool second = false;; second = !second)
        save(name, second);
}

/// Reads one stored file.
void read_file(const Arguments& arguments) {
    const std::map<std::string, std::function<void()>> reads{
        {"pref.vsk", read_pref},   {"loc.vsk", read_loc},     {"date.vsk", read_date},
        {"phase.vsk", read_phase}, {"visib.vsk", read_visib}, {"coor.vsk", read_coor},
        {"tele.vsk", read_tele},   {"alert.vsk", read_alert}, {"loc.txt", read_location_list},
    };
    reads.at(arguments.at(0))();
}

/// Adds so many places of the names prefix0, prefix1 and so on to the list.
void add_places(const Arguments& arguments) {
    for (int i = 0; i < whole(arguments.at(1)); ++i) {
        Location place;
        place.name = arguments.at(0) + std::to_string(i);
        if (!add_location(place))
            throw std::runtime_error(place.name + " is in the list already");
    }
}

int run(const Arguments& words) {
    const std::map<std::string, void (*)(const Arguments&)> works{
        {"calendars", calendars},       {"globe", globe},
        {"lunations", lunations},       {"map-points", map_points},
        {"phase-tables", phase_tables}, {"save", save_file},
        {"add-places", add_places},     {"read", read_file},
    };
    if (words.size() < 2 || works.count(words[1]) == 0) {
        std::cerr << "halvane-probe FOLDER WORK ARGUMENT ...\n";
        return EXIT_FAILURE;
    }
    set_program_folder(words[0]);
    works.at(words[1])(Arguments(words.begin() + 2, words.end()));
    return EXIT_SUCCESS;
}

} // namespace
} // namespace halvane

int main(int count, char** words) {
    halvane::begin_program();
    try {
        return halvane::run({words + 1, words + count});
    } catch (const std::exception& failure) {
        std::cerr << "halvane-probe: " << failure.what() << "\n";
    }
    return EXIT_FAILURE;
}
