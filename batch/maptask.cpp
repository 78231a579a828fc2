// SPDX-License-Identifier: MIT
#include "batch/tasks.h"

#include "batch/choices.h"
#include "batch/finemaptask.h"
#include "batch/recordoptions.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "crescent/conjunction.h"
#include "crescent/crescentrules.h"
#include "crescent/maptable.h"
#include "crescent/maptexts.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "system/path.h"
#include "system/unfinishedfile.h"

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
    std::string day = "0";
    std::string format = picture_format; ///< or that of a table of rows
    std::string file;
    std::string table;
    bool is_fine = false;
    FineMapOptions fine; ///< what only fine maps have
    RecordOptions records;
};

/// What an option takes with --fine, and without it.
CLI::Validator by_kind(CLI::App& command, const CLI::Validator& plain, const CLI::Validator& fine) {
    std::vector<std::string> words = offered_words(plain);
    for (const std::string& word : offered_words(fine))
        if (std::find(words.begin(), words.end(), word) == words.end())
            words.push_back(word);
    const CLI::Option* const fine_wanted = command.get_option("--fine");
    const auto check = [fine_wanted, plain, fine](const std::string& text) {
        return fine_wanted->count() > 0 ? fine(text) : plain(text);
    };
    return offering(words, CLI::Validator(check, ""));
}

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

int number_of_day(const std::string& text) {
    int number = 0;
    CLI::detail::lexical_cast(text, number); // the command line takes no other text
    return number;
}

MapRun map_run(const CrescentRecords& crescent, const MapOptions& options) {
    Ephemeris ephemeris(loaded_theory());
    MapRun run;
    run.criterion = criterion_of(options.criterion).value();
    run.kind = kind_of(crescent.settings);
    run.conjunction = map_conjunction(ephemeris, find_conjunction(ephemeris, crescent).dynamical);
    run.day = map_day(run.conjunction, run.kind, number_of_day(options.day));
    return run;
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

int run_map(const MapOptions& options, const PageMaker& painter, Progress& progress) {
    const bool table_is_output = is_standard_output(options.table);
    const bool result_is_output = is_standard_output(options.file);
    if (table_is_output && result_is_output) {
        std::cerr << "Standard output takes one of the two files, not both.\n";
        return status_usage;
    }
    const bool is_picture =
        options.format == picture_format && (!options.file.empty() || options.table.empty());
    if (is_picture)
        painter.begin_map();
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
    if (options.format == picture_format && !is_picture)
        return status_done;
    const std::string path = options.file.empty() ? usual_file(run, options.format) : options.file;
    if (!is_picture) {
        write_table(*table, format_of(options.format).value(), path, table_is_output);
        return status_done;
    }
    remove_old_leftovers(folder_of(path));
    painter.save_map(run, list.points(), path);
    tell_written(path, table_is_output);
    return status_done;
}

std::vector<std::string> plain_formats() {
    std::vector<std::string> formats{picture_format};
    for (const ReportFormat format : report_formats())
        if (format != ReportFormat::text)
            formats.emplace_back(name_of(format));
    return formats;
}

/// The options of both kinds of map, which take other texts with --fine.
void add_map_options(CLI::App& command, MapOptions& options) {
    const std::vector<std::string> keys = criterion_keys();
    command
        .add_option("--criterion", options.criterion, choice_of(keys) + "; with --fine any key of criteria")
        ->type_name("NAME")
        ->check(by_kind(command, one_of(keys), one_of(catalogue_keys())));
    command
        .add_option("--day", options.day,
                    "0 the conjunction's date; 1, 2 days from it; with --fine all for the three")
        ->type_name("DAY")
        ->check(
            by_kind(command, offering({"0", "1", "2"}, CLI::Range(0, 2)), one_of({"0", "1", "2", "all"})));
    command
        .add_option("--format", options.format,
                    choice_of(plain_formats()) + "; with --fine " + choice_of(format_names(map_formats)))
        ->type_name("FORMAT")
        ->check(by_kind(command, one_of(plain_formats()), one_of(format_names(map_formats))));
    command
        .add_option("--output", options.file,
                    "Picture to write, or rows in another format, - for standard output; the "
                    "Hijri month's name when neither file is given")
        ->type_name("FILE");
    command
        .add_option("--csv", options.table,
                    "Table of every painted point in drawing order, - for standard output")
        ->type_name("FILE");
}

/// Adds what only fine maps have, and gives it.
std::vector<CLI::Option*> add_fine_options(CLI::App& command, MapOptions& options) {
    std::vector<CLI::Option*> added = add_look_options(command, options.fine);
    added.push_back(command
                        .add_option("--date", options.fine.date,
                                    "The evening or the morning, with the nearest conjunction")
                        ->type_name("YYYY-MM-DD")
                        ->excludes(command.get_option("--day")));
    for (CLI::Option* const option : added)
        option->group("With --fine");
    return added;
}

/// Error  raises UsageMistake for an option that the kind of map has not.
void require_options_of(const std::vector<CLI::Option*>& of_one_kind, bool is_fine) {
    for (const CLI::Option* const option : of_one_kind) {
        const bool is_plain = option->get_name() == "--csv";
        if (option->count() > 0 && is_plain == is_fine)
            throw UsageMistake(option->get_name() +
                               (is_fine ? " does not go with --fine" : " goes with --fine only"));
    }
}

FineMapOptions fine_options(const MapOptions& options) {
    FineMapOptions fine = options.fine;
    fine.criterion = options.criterion;
    fine.day = options.day;
    fine.format = options.format == picture_format ? name_of(MapFormat::png) : options.format;
    fine.output = options.file;
    return fine;
}

} // namespace

Task map_task(const PageMaker& painter) {
    const auto options = std::make_shared<MapOptions>();
    options->records.days = DayUse::month;
    options->records.files = {RecordFile::preferences, RecordFile::location, RecordFile::crescent};
    const auto of_fine = std::make_shared<std::vector<CLI::Option*>>();
    return {"map", "World map of the stored crescent's visibility, or a fine map by any criterion",
            [options, of_fine](CLI::App& command) {
                command.add_flag("--fine", options->is_fine, "A map of smooth zones");
                add_map_options(command, *options);
                *of_fine = add_fine_options(command, *options);
                add_record_options(command, options->records);
                // Each is refused with the kind of map that has none of it.
                of_fine->push_back(command.get_option("--csv"));
            },
            [options, of_fine, painter](Progress& progress) {
                try {
                    require_options_of(*of_fine, options->is_fine);
                    const Supposition supposed = suppose(options->records);
                    return options->is_fine ? run_fine_map(fine_options(*options), painter, progress)
                                            : run_map(*options, painter, progress);
                } catch (const UsageMistake& mistake) {
                    return tell_mistake(mistake);
                }
            }};
}

} // namespace halvane
