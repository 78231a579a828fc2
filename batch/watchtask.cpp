// SPDX-License-Identifier: MIT
#include "batch/watchtask.h"

#include "batch/choices.h"
#include "batch/placeoptions.h"
#include "batch/recordoptions.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "stored/programfolder.h"
#include "system/unfinishedfile.h"
#include "timetable/pagekeys.h"
#include "timetable/span.h"
#include "watch/crescentwatch.h"
#include "watch/watchcsv.h"
#include "watch/watchpage.h"
#include "watch/watchrules.h"
#include "watch/watchsheet.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace halvane {
namespace {

struct WatchOptions {
    std::string date;
    bool old_crescent = false;
    PlaceOptions place;
    RecordOptions records = settings_alone();
    std::string format = name_of(WatchFormat::pdf);
    std::string language = "en";
    std::string paper = "A4";
    std::optional<int> width;
    std::string output;
};

double day_of(const WatchOptions& options) {
    const SpanAnswer answer = dates_span(options.date, options.date);
    if (answer.refused)
        throw UsageMistake("--date: " + answer.refused->english);
    return answer.span.first;
}

void check_width(const WatchOptions& options) {
    if (!options.width)
        return;
    if (options.format != name_of(WatchFormat::png))
        throw UsageMistake("--width is of PNG pictures");
    if (*options.width < least_picture_width || *options.width > greatest_picture_width)
        throw UsageMistake("--width is from " + std::to_string(least_picture_width) + " to " +
                           std::to_string(greatest_picture_width) + " pixels");
}

WatchPage page_of(const WatchOptions& options) {
    WatchPage page;
    page.language = options.language == "ar" ? Language::arabic : Language::english;
    take_word(page.paper, options.paper, paper_words);
    return page;
}

std::string bytes_of(const CrescentWatch& watch, const WatchOptions& options, const PageMaker& pages) {
    if (options.format == name_of(WatchFormat::csv))
        return csv_of(watch);
    if (options.format == name_of(WatchFormat::png))
        return pages.watch_png(watch, page_of(options), options.width.value_or(usual_picture_width));
    return pages.watch_pdf(watch, page_of(options));
}

/// In the program folder.
std::string usual_path(const WatchOptions& options, const WatchSettings& settings) {
    return program_path(watch_file_name(settings, *watch_format_of("." + options.format)));
}

int watch_crescent(const WatchOptions& options, const PageMaker& pages) {
    WatchSettings settings;
    settings.day = day_of(options);
    settings.kind = options.old_crescent ? CrescentKind::old_crescent : CrescentKind::new_crescent;
    check_place_options(options.place);
    check_width(options);
    if (options.format != name_of(WatchFormat::csv))
        pages.begin();
    settings.place = place_of(options.place);
    const std::string path = options.output.empty() ? usual_path(options, settings) : options.output;
    require_no_program_file(path);
    load_series();
    const auto answer = crescent_watch(loaded_theory(), settings);
    if (const auto* none = std::get_if<NoWatch>(&answer))
        throw UsageMistake(words_of(*none, settings).english);
    save_result(path, bytes_of(std::get<CrescentWatch>(answer), options, pages));
    if (!is_standard_output(path))
        std::cout << path << "\n";
    return status_done;
}

int run_watch(const WatchOptions& options, const PageMaker& pages) {
    try {
        if (options.place.is_given())
            take_delivered_files();
        const Supposition supposed = suppose(options.records);
        return watch_crescent(options, pages);
    } catch (const UsageMistake& mistake) {
        return tell_mistake(mistake);
    }
}

void add_watch_options(CLI::App& command, WatchOptions& options) {
    command.add_option("--date", options.date, "The civil date of the evening, or of the morning")
        ->type_name("YYYY-MM-DD")
        ->required();
    command.add_flag("--old", options.old_crescent, "The old crescent before sunrise, not the new one");
    add_place_options(command, options.place);
    add_record_options(command, options.records);
    add_choice(command, "--format", options.format, "", format_names(watch_formats()));
    add_choice(command, "--language", options.language, "Language of the page: ", {"en", "ar"});
    add_choice(command, "--paper", options.paper, "Paper: ", all_words(paper_words));
    command.add_option("--width", options.width, "Of a PNG picture")->type_name("PIXELS");
    command.add_option("--output", options.output, "File to write, - for standard output")->type_name("FILE");
}

} // namespace

Task watch_task(const PageMaker& pages) {
    const auto options = std::make_shared<WatchOptions>();
    return {"watch", "Sheet for who watches for the crescent on one evening or morning",
            [options](CLI::App& command) { add_watch_options(command, *options); },
            [options, pages](Progress& /*progress*/) { return run_watch(*options, pages); }};
}

} // namespace halvane
