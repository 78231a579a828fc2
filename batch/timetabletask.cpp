// SPDX-License-Identifier: MIT
#include "batch/timetabletask.h"

#include "base/failure.h"
#include "batch/choices.h"
#include "batch/placeoptions.h"
#include "batch/recordoptions.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "calendar/civildate.h"
#include "hijri/keptrule.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/outputfile.h"
#include "stored/programfiles.h"
#include "stored/programfolder.h"
#include "stored/textfile.h"
#include "system/path.h"
#include "system/unfinishedfile.h"
#include "timetable/authorities.h"
#include "timetable/comparetable.h"
#include "timetable/hijridays.h"
#include "timetable/manyplaces.h"
#include "timetable/pagekeys.h"
#include "timetable/profilefile.h"
#include "timetable/profilekeys.h"
#include "timetable/timetablefiles.h"
#include "timetable/timetableplaces.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace halvane {
namespace {

constexpr const char* kept_rule = "kept";

struct TimetableOptions {
    std::string month, year, hijri_month, hijri_year, from, to;
    std::string hijri_rule = kept_rule;
    PlaceOptions place;
    RecordOptions records = settings_alone();
    std::string places_file;
    std::string compare;
    std::string profile, columns, layout, language, paper, clock, digits;
    std::string format = "csv";
    std::string output;
};

SpanAnswer span_answer(const TimetableOptions& options, const HijriReckoningPointer& hijri) {
    if (!options.month.empty())
        return month_span(options.month);
    if (!options.year.empty())
        return year_span(options.year);
    if (!options.hijri_month.empty())
        return hijri_month_span(options.hijri_month, hijri);
    if (!options.hijri_year.empty())
        return hijri_year_span(options.hijri_year, hijri);
    return dates_span(options.from, options.to);
}

DaySpan span_of(const TimetableOptions& options, const HijriReckoningPointer& hijri) {
    const SpanAnswer answer = span_answer(options, hijri);
    if (answer.refused)
        throw UsageMistake(answer.refused->english);
    return answer.span;
}

std::optional<HijriChoice> hijri_choice(const TimetableOptions& options) {
    if (options.hijri_rule == kept_rule)
        return kept_hijri_rule();
    HijriChoice choice;
    choice.rule = options.hijri_rule;
    return choice;
}

/// By which the Hijri dates are told; null for the tabular calendar.
HijriReckoningPointer reckoning_of(const TimetableOptions& options) {
    const DaySpan span = span_of(options, nullptr);
    const std::optional<HijriChoice> choice = hijri_choice(options);
    if (!choice)
        return nullptr;
    const double year = civil_date(span.first).year;
    const bool is_kept = options.hijri_rule == kept_rule;
    if (!is_kept)
        if (const HijriAnswer answer = settings_of(*choice, year); !answer.settings)
            throw UsageMistake("--hijri-rule " + choice->rule + ": " + answer.words.english);
    load_series();
    HijriReckoningPointer hijri = reckoning_of(loaded_theory(), *choice, year);
    if (hijri && !is_kept && !reckoning_within(hijri, span))
        throw UsageMistake("--hijri-rule: there are no Hijri months on these days");
    return hijri;
}

/// What the command line says stands in the place of the profile's.
void choose_page(PageSettings& page, const TimetableOptions& options) {
    if (!options.columns.empty()) {
        std::string unknown;
        page.columns = columns_of(options.columns, unknown);
        if (page.columns.empty())
            throw UsageMistake("--columns: there is no column \"" + unknown + "\"");
    }
    take_word(page.language, options.language, language_words);
    take_word(page.paper, options.paper, paper_words);
    take_word(page.clock, options.clock, clock_words);
    take_word(page.digits, options.digits, digits_words);
}

/// The profile of a run. What --layout needs is among its columns.
Profile profile_of(const TimetableOptions& options) {
    Profile profile = find_profile(options.profile, read_pref());
    choose_page(profile.page, options);
    if (options.layout == display_layout)
        profile.page.columns = display_columns();
    return profile;
}

TimetableFormat format_of(const TimetableOptions& options) {
    const std::span<const TimetableFormat> formats = timetable_formats();
    const auto found = std::find_if(formats.begin(), formats.end(), [&options](TimetableFormat format) {
        return options.format == name_of(format);
    });
    if (options.layout.empty())
        return *found; // the command line takes no other name
    if (*found != TimetableFormat::csv)
        throw UsageMistake("--layout is of CSV files");
    return TimetableFormat::display_csv;
}

void check_place(const TimetableOptions& options) {
    check_place_options(options.place);
    if (options.places_file.empty())
        return;
    if (!options.place.place.empty() || options.place.by_numbers())
        throw UsageMistake("--place, --places and --latitude with --longitude exclude each other");
    if (!options.place.zone_name.empty())
        throw UsageMistake("--places names the time zone of each place; --zone-name does not go with it");
}

std::string file_name(const std::string& name, const TimetableOptions& options) {
    return file_name_of(name) + "." + options.format;
}

/// The series that a profile's columns need.
void load_needed(const Profile& profile) {
    if (profile.page.shows(TimetableColumn::moon_phase)) {
        load_series();
        return;
    }
    load_term();
    load_mterm();
}

class TimetableWork {
public:
    TimetableWork(const TimetableOptions& options, const PageMaker& pages)
        : options_(options), pages_(pages), format_(format_of(options)), hijri_(reckoning_of(options)),
          span_(span_of(options, hijri_)) {
        check_place(options_);
        profile_ = profile_of(options_);
        if (format_ == TimetableFormat::pdf)
            pages_.begin();
    }

    int run(Progress& progress) {
        if (!options_.compare.empty())
            return compare(progress);
        load_needed(profile_);
        return options_.places_file.empty() ? run_one(progress) : run_many(progress);
    }

private:
    std::string text_of(const Timetable& timetable) const {
        const PageSettings& page = profile_.page;
        if (format_ == TimetableFormat::pdf)
            return pages_.timetable_pdf(timetable, page);
        const bool adds_rules = format_ == TimetableFormat::csv && options_.columns.empty();
        return text_of_timetable(timetable, adds_rules ? with_rules(timetable, page) : page, format_,
                                 utc_second_now());
    }

    int cancelled() const {
        std::cerr << "Cancelled: what is there is whole.\n";
        return status_failure;
    }

    int run_one(Progress& progress) {
        const TimetablePlace place = place_of(options_.place);
        const std::string path = options_.output.empty()
                                     ? program_path(file_name("timetable-" + place.location.name, options_))
                                     : options_.output;
        require_no_program_file(path);
        const std::optional<Timetable> timetable =
            make_timetable(loaded_theory(), {place, profile_, span_, hijri_}, progress);
        if (!timetable)
            return cancelled();
        save_result(path, text_of(*timetable));
        if (!is_standard_output(path))
            std::cout << path << "\n";
        return status_done;
    }

    /// Tells how far a table of the user's is from the timetable.
    int compare(Progress& progress) {
        if (!options_.places_file.empty())
            throw UsageMistake("--compare and --places exclude each other");
        const ForeignTable table = foreign_table_of_text(read_text_file(options_.compare), options_.compare);
        profile_.page.columns = table.columns;
        load_needed(profile_);
        const std::optional<Timetable> timetable =
            make_timetable(loaded_theory(), {place_of(options_.place), profile_, span_, hijri_}, progress);
        if (!timetable)
            return cancelled();
        const std::string path = options_.output.empty() ? std::string(standard_output) : options_.output;
        require_no_program_file(path);
        const TwinWords words = comparison_text(compare_table(table, *timetable), profile_.page.names);
        save_result(path, profile_.page.language == PageLanguage::arabic ? words.arabic : words.english);
        return status_done;
    }

    int run_many(Progress& progress) {
        const std::string folder = options_.output.empty() ? program_folder() : options_.output;
        if (!std::filesystem::is_directory(path_of(folder)))
            throw UsageMistake("--output: \"" + folder + "\" is no folder; --places writes one file a place");
        std::vector<TimetableSettings> settings;
        std::vector<std::string> paths;
        std::set<std::string> taken;
        const ProgramFiles own;
        for (const GivenPlace& given :
             places_of_text(read_text_file(options_.places_file), options_.places_file)) {
            settings.push_back({given_place(given), profile_, span_, hijri_});
            paths.push_back(free_path(folder, settings.back().place.location.name, taken, own));
        }
        const bool all = make_timetables(
            loaded_theory(), settings,
            [&](std::size_t number, const Timetable& timetable) {
                save_result(paths[number], text_of(timetable));
            },
            progress);
        if (!all)
            return cancelled();
        for (const std::string& path : paths)
            std::cout << path << "\n";
        return status_done;
    }

    /// A path that no other place of the run has: two may be of one name.
    std::string free_path(const std::string& folder, const std::string& name, std::set<std::string>& taken,
                          const ProgramFiles& own) const {
        for (int number = 1;; ++number) {
            const std::string numbered = number == 1 ? name : name + "-" + std::to_string(number);
            std::string path = joined_path(folder, file_name(numbered, options_));
            require_no_program_file(path, own);
            if (taken.insert(path).second)
                return path;
        }
    }

    const TimetableOptions& options_;
    const PageMaker& pages_;
    TimetableFormat format_;
    HijriReckoningPointer hijri_;
    DaySpan span_;
    Profile profile_;
};

int run_timetable(const TimetableOptions& options, const PageMaker& pages, Progress& progress) {
    try {
        if (options.place.is_given())
            take_delivered_files();
        const Supposition supposed = suppose(options.records);
        return TimetableWork(options, pages).run(progress);
    } catch (const UsageMistake& mistake) {
        return tell_mistake(mistake);
    }
}

/// The names that --hijri-rule takes.
std::vector<std::string> hijri_rule_names() {
    std::vector<std::string> names{kept_rule};
    for (const HijriRule& rule : hijri_rules())
        names.emplace_back(rule.key);
    return names;
}

void add_span_options(CLI::App& command, TimetableOptions& options) {
    CLI::Option_group* span = command.add_option_group("Span", "One of these");
    span->add_option("--month", options.month, "A civil month")->type_name("YYYY-MM");
    span->add_option("--year", options.year, "A civil year")->type_name("YYYY");
    span->add_option("--hijri-month", options.hijri_month, "A Hijri month")->type_name("YYYY-MM");
    span->add_option("--hijri-year", options.hijri_year, "A Hijri year")->type_name("YYYY");
    CLI::Option* from =
        span->add_option("--from", options.from, "First date, with --to")->type_name("YYYY-MM-DD");
    span->require_option(1);
    CLI::Option* to = command.add_option("--to", options.to, "Last date")->type_name("YYYY-MM-DD");
    from->needs(to);
    to->needs(from);
    command
        .add_option("--hijri-rule", options.hijri_rule,
                    "By what Hijri dates are told: the kept rule (" + std::string(kept_rule) +
                        "), or one with its usual settings: " + choice_of(hijri_rule_names()))
        ->type_name("KEY")
        ->check(one_of(hijri_rule_names()));
}

void add_places_options(CLI::App& command, TimetableOptions& options) {
    add_place_options(command, options.place);
    command
        .add_option("--places", options.places_file,
                    "A CSV file of places (name,latitude,longitude,zone_name,zone,height): one file each")
        ->type_name("FILE");
}

std::vector<std::string> authority_keys() {
    std::vector<std::string> keys;
    for (const Authority& authority : authorities())
        keys.emplace_back(authority.key);
    return keys;
}

void add_page_options(CLI::App& command, TimetableOptions& options) {
    command
        .add_option("--profile", options.profile,
                    "Rules: a stored profile or an authority's key; the preferences when none is given")
        ->type_name("NAME")
        ->check(offering(authority_keys(), CLI::Validator("")));
    command.add_option("--columns", options.columns, "Keys of the columns in their order")
        ->type_name("KEY,...");
    add_choice(command, "--layout", options.layout, "Columns of a kind of screens: ", {display_layout});
    add_choice(command, "--language", options.language, "Language of the page: ", all_words(language_words));
    add_choice(command, "--paper", options.paper, "Paper: ", all_words(paper_words));
    add_choice(command, "--clock", options.clock, "Hours of the page: ", all_words(clock_words));
    add_choice(command, "--digits", options.digits, "Digits of the page's Arabic: ", all_words(digits_words));
    add_choice(command, "--format", options.format, "", format_names(timetable_formats()));
    command
        .add_option("--compare", options.compare,
                    "A CSV table of times to compare with: prints the differences in the place of a file")
        ->type_name("FILE");
    command
        .add_option("--output", options.output,
                    "File to write, - for standard output; the folder of the files with --places")
        ->type_name("FILE");
}

} // namespace

Task timetable_task(const PageMaker& pages) {
    const auto options = std::make_shared<TimetableOptions>();
    return {"timetable", "Prayer times of a month or a year to print, import or subscribe to",
            [options](CLI::App& command) {
                add_span_options(command, *options);
                add_places_options(command, *options);
                add_page_options(command, *options);
                add_record_options(command, options->records);
            },
            [options, pages](Progress& progress) { return run_timetable(*options, pages, progress); }};
}

} // namespace halvane
