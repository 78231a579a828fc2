// SPDX-License-Identifier: MIT
#include "batch/tasks.h"

#include "batch/mappicture.h"
#include "batch/runoutput.h"
#include "crescent/conjunction.h"
#include "crescent/crescentrules.h"
#include "crescent/maptable.h"
#include "crescent/maptexts.h"
#include "routines/seriesloader.h"
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

constexpr const char* picture_format = "gif";

struct MapOptions {
    std::string criterion = criteria().front().key;
    int day = 0;
    std::string format = picture_format; ///< or that of a table of rows
    std::string file;
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

std::vector<std::string> criterion_keys() {
    std::vector<std::string> keys;
    for (const CriterionRow& criterion : criteria())
        keys.emplace_back(criterion.key);
    return keys;
}

MapRun map_run(const CrescentRecords& crescent, const MapOptions& options) {
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

/// The file that a picture or a table goes to when none is named: the Hijri month's name.
std::string usual_file(const MapRun& run, const std::string& format) {
    return map_hijri_text(run, Language::english) + "." + format;
}

void write_table(const Run& table, ReportFormat format, const std::string& path, bool other_is_output) {
    require_no_program_file(path);
    remove_old_leftovers(folder_of(path));
    NoProgress progress;
    write_run(table, format, path, progress);
    tell_written(path, other_is_output);
}

int run_map(const MapOptions& options, Progress& progress) {
    const bool table_is_output = is_standard_output(options.table);
    const bool result_is_output = is_standard_output(options.file);
    if (table_is_output && result_is_output) {
        std::cerr << "Standard output takes one of the two files, not both.\n";
        return status_usage;
    }
    load_series();
    const CrescentSettings settings = read_visib();
    if (const auto refused = refused_conjunction(settings))
        return report_refused(refused->told);
    const MapRun run = map_run(read_crescent_records(settings), options);
    PointList list(progress);
    if (!draw_visibility_map(loaded_theory(), run, list)) {
        std::cerr << "Cancelled: no map has been written.\n";
        return status_failure;
    }
    const RunPointer table = map_table(run, list.points());
    if (!options.table.empty())
        write_table(*table, ReportFormat::text, options.table, result_is_output);
    const bool is_picture = options.format == picture_format;
    if (is_picture && options.file.empty() && !options.table.empty())
        return status_done;
    const std::string path = options.file.empty() ? usual_file(run, options.format) : options.file;
    if (!is_picture) {
        write_table(*table, format_of(options.format).value(), path, table_is_output);
        return status_done;
    }
    remove_old_leftovers(folder_of(path));
    save_map_picture(run, list.points(), path);
    tell_written(path, table_is_output);
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
                std::vector<std::string> formats{picture_format};
                for (const ReportFormat format : report_formats())
                    if (format != ReportFormat::text)
                        formats.emplace_back(name_of(format));
                command.add_option("--format", options->format, choice_of(formats))
                    ->type_name("FORMAT")
                    ->check(CLI::IsMember(formats).description(""));
                command
                    .add_option("--output", options->file,
                                "Picture to write, or rows in another format, - for standard output; the "
                                "Hijri month's name when neither file is given")
                    ->type_name("FILE");
                command
                    .add_option("--csv", options->table,
                                "Table of every painted point in drawing order, - for standard output")
                    ->type_name("FILE");
            },
            [options](Progress& progress) { return run_map(*options, progress); }};
}

} // namespace halvane
