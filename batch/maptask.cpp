// SPDX-License-Identifier: MIT
#include "batch/tasks.h"

#include "batch/mappicture.h"
#include "crescent/conjunction.h"
#include "crescent/crescentrules.h"
#include "crescent/maptexts.h"
#include "routines/series.h"
#include "stored/outputfile.h"
#include "stored/unfinishedfile.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace halvane {
namespace {

struct MapOptions {
    std::string criterion = criteria().front().key;
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
        progress_.percent(++blocks_drawn_ / MapGrid::blocks * 100);
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

std::vector<std::string> criterion_keys() {
    std::vector<std::string> keys;
    for (const CriterionRow& criterion : criteria())
        keys.emplace_back(criterion.key);
    return keys;
}

/// The names as words of a choice: "a, b or c".
std::string choice_of(const std::vector<std::string>& names) {
    std::string words = names.front();
    for (std::size_t i = 1; i < names.size(); ++i)
        words += (i + 1 < names.size() ? ", " : " or ") + names[i];
    return words;
}

MapRun map_run(const CrescentRun& crescent, const MapOptions& options) {
    Ephemeris ephemeris(loaded_theory());
    MapRun run;
    run.criterion = criterion_of(options.criterion).value();
    run.kind = kind_of(crescent.settings);
    run.conjunction = map_conjunction(ephemeris, find_conjunction(ephemeris, crescent).dynamical);
    run.day = map_day(run.conjunction, run.kind, options.day);
    return run;
}

std::string folder_of(const std::string& path) {
    return std::filesystem::path(path).parent_path().string();
}

/// Tells the name of a written file: on standard output, or beside it when that is a result itself.
void tell_written(const std::string& path, bool output_is_result) {
    if (!is_standard_output(path))
        (output_is_result ? std::cerr : std::cout) << path << "\n";
}

int run_map(const MapOptions& options, Progress& progress) {
    const bool table_is_output = is_standard_output(options.table);
    const bool picture_is_output = is_standard_output(options.picture);
    if (table_is_output && picture_is_output) {
        std::cerr << "Standard output takes the table or the picture, not both.\n";
        return status_usage;
    }
    load_series();
    const CrescentSettings settings = read_visib();
    if (const auto refused = refused_conjunction(settings))
        return report_refused(refused->told);
    const MapRun run = map_run(read_crescent_run(settings), options);
    PointList list(progress);
    if (!draw_visibility_map(loaded_theory(), run, list)) {
        std::cerr << "Cancelled: no map has been written.\n";
        return status_failure;
    }
    if (!options.table.empty()) {
        remove_old_leftovers(folder_of(options.table));
        save_result(options.table, table_of(run, list.points()));
        tell_written(options.table, picture_is_output);
    }
    if (!options.picture.empty() || options.table.empty()) {
        const std::string path =
            options.picture.empty() ? map_hijri_text(run, 'E') + ".gif" : options.picture;
        remove_old_leftovers(folder_of(path));
        save_map_picture(run, list.points(), path);
        tell_written(path, table_is_output);
    }
    return status_done;
}

} // namespace

Task map_task() {
    const auto options = std::make_shared<MapOptions>();
    return {"map", "World map of the stored crescent's visibility",
            [options](CLI::App& command) {
                const std::vector<std::string> keys = criterion_keys();
                command.add_option("--criterion", options->criterion, choice_of(keys))
                    ->type_name("NAME")
                    ->check(CLI::IsMember(keys).description(""));
                command.add_option("--day", options->day, "0 the conjunction's date; 1, 2 days from it")
                    ->type_name("DAY")
                    ->check(CLI::Range(0, 2).description(""));
                command
                    .add_option("--output", options->picture,
                                "Picture to write, - for standard output; the Hijri month's name when "
                                "neither file is given")
                    ->type_name("FILE.gif");
                command
                    .add_option("--csv", options->table,
                                "Table of every painted point in drawing order, - for standard output")
                    ->type_name("FILE");
            },
            [options](Progress& progress) { return run_map(*options, progress); }};
}

} // namespace halvane
