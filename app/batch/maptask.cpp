#include "app/batch/tasks.h"

#include "app/batch/mappicture.h"
#include "app/stored/textfile.h"
#include "crescent/conjunction.h"
#include "crescent/maptexts.h"
#include "ephemeris/series.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace halvane {
namespace {

struct MapOptions {
    std::string criterion = "vesk";
    int day = 0;
    std::string picture;
    std::string table;
};

/// Keeps the points of a map and tells how far it has come.
class PointList : public MapReceiver {
public:
    explicit PointList(Progress& progress) : progress_(progress) {}
    void point(const MapPoint& point) override { points_.push_back(point); }
    bool go_on() override {
        constexpr double blocks = 36 * 13;
        progress_.percent(++blocks_drawn_ / blocks * 100);
        return progress_.yield();
    }
    const std::vector<MapPoint>& points() const { return points_; }

private:
    Progress& progress_;
    double blocks_drawn_ = 0;
    std::vector<MapPoint> points_;
};

std::string table_of(const MapRun& run, const std::vector<MapPoint>& points) {
    std::string text;
    for (const std::string& line : map_information(run, 'E'))
        text += "# " + line + "\n";
    text += "longitude,latitude,class\n";
    for (const MapPoint& point : points)
        text += std::to_string(point.longitude) + "," + std::to_string(point.latitude) + "," +
                std::to_string(static_cast<int>(point.visibility)) + "\n";
    return text;
}

Criterion criterion_of(const std::string& name) {
    if (name == "yallop")
        return Criterion::yallop;
    return name == "saao" ? Criterion::saao : Criterion::vesk;
}

MapRun map_run(const CrescentSettings& settings, const MapOptions& options) {
    find_conjunction(settings);
    MapRun run;
    run.criterion = criterion_of(options.criterion);
    run.kind = settings.new_crescent ? CrescentKind::new_crescent : CrescentKind::old_crescent;
    run.conjunction = map_conjunction();
    run.day = map_day(run.conjunction, run.kind, options.day);
    return run;
}

int run_map(const MapOptions& options, Progress& progress) {
    load_series();
    const MapRun run = map_run(read_visib(), options);
    PointList list(progress);
    if (!draw_visibility_map(run, list)) {
        std::cerr << "Cancelled: no map has been written.\n";
        return status_failure;
    }
    if (!options.table.empty()) {
        save_text_file(options.table, table_of(run, list.points()));
        std::cout << options.table << "\n";
    }
    if (!options.picture.empty() || options.table.empty()) {
        const std::string path =
            options.picture.empty() ? map_hijri_text(run, 'E') + ".gif" : options.picture;
        save_map_picture(run, list.points(), path);
        std::cout << path << "\n";
    }
    return status_done;
}

} // namespace

Task map_task() {
    const auto options = std::make_shared<MapOptions>();
    return {"map", "World map of the stored crescent's visibility",
            [options](CLI::App& command) {
                command.add_option("--criterion", options->criterion, "vesk, yallop or saao")
                    ->type_name("NAME")
                    ->check(CLI::IsMember({"vesk", "yallop", "saao"}).description(""));
                command.add_option("--day", options->day, "0 the conjunction's date; 1, 2 days from it")
                    ->type_name("DAY")
                    ->check(CLI::Range(0, 2).description(""));
                command
                    .add_option("--output", options->picture,
                                "Picture to write; the Hijri month's name when neither file is given")
                    ->type_name("FILE.gif");
                command.add_option("--csv", options->table, "Table of every painted point in drawing order")
                    ->type_name("FILE");
            },
            [options](Progress& progress) { return run_map(*options, progress); }};
}

} // namespace halvane
