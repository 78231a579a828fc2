// SPDX-License-Identifier: MIT
#include "batch/hijrioptions.h"

#include "base/failure.h"
#include "batch/choices.h"
#include "batch/criteriaoptions.h"
#include "batch/finemapoptions.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "hijri/keptrule.h"
#include "hijri/seenbefore.h"
#include "stored/textfile.h"
#include "timetable/pagekeys.h"
#include "timetable/timetableplaces.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

namespace halvane {
namespace {

constexpr const char* announced_key = "announced"; ///< the rule of the announced starts
constexpr const char* rule_under_announced = "umm-al-qura";
constexpr const char* rule_at_place = "seen-at";

/// The names that --rule and --compare take.
std::vector<std::string> rule_keys() {
    std::vector<std::string> keys;
    for (const HijriRule& rule : hijri_rules())
        keys.emplace_back(rule.key);
    keys.emplace_back(announced_key);
    return keys;
}

bool has_place(const HijriOptions& options) {
    return !options.place.place.empty() || options.place.by_numbers();
}

/// Takes the rule of a key into a choice.
void choose_rule(HijriChoice& choice, const std::string& key) {
    const bool announced = key == announced_key;
    choice.rule = announced ? rule_under_announced : key;
    choice.announced = announced ? AnnouncedUse::sound : AnnouncedUse::none;
}

void choose_crescent(HijriChoice& choice, const HijriOptions& options) {
    if (!options.criterion.empty()) {
        choice.criterion = options.criterion;
        choice.seen_class.reset();
        choice.limits = {};
    }
    if (!options.limits.empty() || options.danjon)
        choice.limits = criteria_settings(choice.criterion, options.limits, options.danjon);
    if (options.seen_class)
        choice.seen_class = static_cast<std::size_t>(*options.seen_class);
    if (!options.region.empty())
        choice.region = window_of_text("--region", options.region);
    if (const std::optional<SeenBefore> before = seen_before_of(options.before))
        choice.before = *before;
}

/// What is chosen of each rule, that of --rule first.
std::vector<HijriChoice> choices_of(const HijriOptions& options) {
    HijriChoice first;
    if (options.rule.empty())
        first = kept_hijri_rule().value_or(HijriChoice());
    else
        choose_rule(first, options.rule);
    choose_crescent(first, options);
    std::vector<HijriChoice> choices{first};
    for (const std::string& key : options.compare) {
        choices.push_back(first);
        choose_rule(choices.back(), key);
    }
    if (options.announced || !options.announced_file.empty())
        choices.front().announced = AnnouncedUse::sound;
    if (options.strict)
        for (HijriChoice& choice : choices)
            if (choice.announced != AnnouncedUse::none)
                choice.announced = AnnouncedUse::whole;
    return choices;
}

bool is_any(const std::vector<HijriChoice>& choices, bool (*asks)(const HijriRule& rule)) {
    return std::any_of(choices.begin(), choices.end(), [asks](const HijriChoice& choice) {
        const HijriRule* const rule = choice.rule.empty() ? &hijri_rules().front() : hijri_rule(choice.rule);
        return rule != nullptr && asks(*rule);
    });
}

bool is_any(const std::vector<HijriChoice>& choices, AnnouncedUse use) {
    return std::any_of(choices.begin(), choices.end(),
                       [use](const HijriChoice& choice) { return choice.announced == use; });
}

/// Options of what no rule of the run asks for.
void check_use(const HijriOptions& options, const std::vector<HijriChoice>& choices) {
    const bool crescent =
        !options.criterion.empty() || options.seen_class || !options.limits.empty() || options.danjon;
    if (crescent && !is_any(choices, asks_criterion))
        throw UsageMistake(
            "--criterion, --class, --limits and --danjon are of rules that ask for a criterion");
    if ((!options.region.empty() || !options.before.empty()) && !is_any(choices, asks_region))
        throw UsageMistake("--region and --before are of rules that ask for a part of the world");
    if (options.strict && !is_any(choices, AnnouncedUse::whole))
        throw UsageMistake("--strict is of announced months");
    const bool is_named =
        std::find(options.compare.begin(), options.compare.end(), rule_at_place) != options.compare.end() ||
        options.rule == rule_at_place;
    for (const HijriChoice& choice : choices)
        if (is_named && choice.rule == rule_at_place && !choice.place && !has_place(options))
            throw UsageMistake(std::string("the rule ") + rule_at_place +
                               " needs --place, or --latitude and --longitude");
}

// --- Announced starts ---

constexpr const char* usual_list = "hijri-announced.csv";

TwinWords problems_of(const AnnouncedList& list, const std::string& path) {
    TwinWords told;
    for (const AnnouncedProblem& problem : list.problems) {
        const char* const between = told.english.empty() ? "" : "\n";
        const std::string line = std::to_string(problem.line) + ": ";
        (((told.english += between) += path) += ", line " + line) += problem.words.english;
        (((told.arabic += between) += path) += "، السطر " + line) += problem.words.arabic;
    }
    return told;
}

/// The list that is used. Its faults are told, or refused.
AnnouncedList announced_of(const HijriOptions& options, const std::vector<HijriChoice>& choices) {
    const bool whole = is_any(choices, AnnouncedUse::whole);
    if (!whole && !is_any(choices, AnnouncedUse::sound))
        return {};
    const std::string path = options.announced_file.empty() ? usual_list : options.announced_file;
    AnnouncedList list =
        options.announced_file.empty() ? read_announced() : announced_of_text(read_text_file(path));
    if (list.starts.empty() && list.problems.empty())
        std::cerr << path << ": there is no announced start; the rule alone counts\n";
    if (list.problems.empty())
        return list;
    const TwinWords problems = problems_of(list, path);
    if (whole)
        throw RunTimeFailure(problems, FailureKind::damaged_file);
    std::cerr << problems.english << "\n";
    return list;
}

// --- Settings ---

/// The option that a part of a choice was given by; nothing where it is that of the kept rule.
std::optional<std::string> option_of(HijriPart part, const HijriOptions& options) {
    const auto given = [](bool is_given, const char* option) {
        return is_given ? std::optional<std::string>(option) : std::nullopt;
    };
    switch (part) {
    case HijriPart::place:
        return given(has_place(options), "--place");
    case HijriPart::criterion:
        return given(!options.criterion.empty(), "--criterion");
    case HijriPart::seen_class:
        return given(options.seen_class.has_value(), "--class");
    case HijriPart::limits:
        return options.danjon ? "--danjon" : given(!options.limits.empty(), "--limits");
    case HijriPart::region:
        return given(!options.region.empty(), "--region");
    case HijriPart::announced:
        return given(options.strict, "--strict");
    case HijriPart::rule:
        break;
    }
    return given(!options.rule.empty(), "--rule");
}

[[noreturn]] void refuse(const HijriAnswer& answer, const HijriOptions& options) {
    if (const std::optional<std::string> option = option_of(answer.wrong, options))
        throw UsageMistake(*option + ": " + answer.words.english);
    throw kept_rule_failure(answer);
}

int year_in(int year, const char* option) {
    if (!hijri_rule_years.holds(year))
        throw UsageMistake(std::string(option) + ": Hijri months are told from the year " +
                           std::to_string(static_cast<int>(hijri_rule_years.first)) + " to " +
                           std::to_string(static_cast<int>(hijri_rule_years.last)));
    return year;
}

/// The list of the rules is the same whatever is said of a rule: only how it is written can be told.
void keep_to_outputs(CLI::App& command, CLI::Option& list) {
    constexpr std::array<std::string_view, 3> outputs{"--format", "--language", "--output"};
    for (CLI::Option* const option : command.get_options()) {
        const bool is_output = std::find(outputs.begin(), outputs.end(), option->get_name()) != outputs.end();
        if (!is_output && option != command.get_help_ptr())
            list.excludes(option);
    }
}

} // namespace

HijriFormat format_of(const HijriOptions& options) {
    const auto formats = hijri_formats();
    const auto found = std::find_if(formats.begin(), formats.end(), [&options](HijriFormat format) {
        return options.format == name_of(format);
    });
    const HijriFormat format = found == formats.end() ? formats.front() : *found;
    const bool is_of_page = options.language == "both" || !options.paper.empty() || !options.digits.empty();
    if (format != HijriFormat::pdf && is_of_page)
        throw UsageMistake("--language both, --paper and --digits are of pdf");
    if (format == HijriFormat::pdf && !options.compare.empty())
        throw UsageMistake("--compare has no page; its formats are text, csv, json and ics");
    if (options.is_conversion() && options.month)
        throw UsageMistake("--month belongs to --year");
    if (options.is_conversion() && !options.compare.empty())
        throw UsageMistake("--compare is of years, not of dates");
    if ((options.is_conversion() || options.list_rules) && format != HijriFormat::text &&
        format != HijriFormat::json)
        throw UsageMistake("the formats of --convert, --convert-hijri and --list-rules are text and json");
    return format;
}

Language language_of(const HijriOptions& options) {
    return options.language == "ar" ? Language::arabic : Language::english;
}

MonthPage page_of(const HijriOptions& options) {
    MonthPage page;
    take_word(page.language, options.language, language_words);
    take_word(page.paper, options.paper, paper_words);
    take_word(page.digits, options.digits, digits_words);
    return page;
}

YearsOfRun years_of(const HijriOptions& options) {
    if (options.month && !options.year)
        throw UsageMistake("--month belongs to --year");
    if (options.month && !options.compare.empty())
        throw UsageMistake("--compare is of years, not of --month");
    if (options.year) {
        const int year = year_in(*options.year, "--year");
        return {year, year};
    }
    const YearsOfRun years{year_in(*options.from_year, "--from-year"),
                           year_in(*options.to_year, "--to-year")};
    if (years.last < years.first)
        throw UsageMistake("--to-year is before --from-year");
    return years;
}

TimetablePlace clock_place(const HijriOptions& options) {
    if (!has_place(options) && options.rule.empty())
        if (const std::optional<HijriChoice> kept = kept_hijri_rule(); kept && kept->place)
            if (std::optional<TimetablePlace> place = chosen_place(kept->place))
                return *std::move(place);
    return place_of(options.place);
}

std::vector<HijriSettings> rules_of(const HijriOptions& options, double year) {
    check_place_options(options.place);
    const std::vector<HijriChoice> choices = choices_of(options);
    check_use(options, choices);
    const AnnouncedList announced = announced_of(options, choices);
    std::optional<TimetablePlace> place;
    if (has_place(options))
        place = place_of(options.place);
    std::vector<HijriSettings> rules;
    for (const HijriChoice& choice : choices) {
        HijriAnswer answer =
            place ? settings_of(choice, year, announced, *place) : settings_of(choice, year, announced);
        if (!answer.settings)
            refuse(answer, options);
        rules.push_back(*std::move(answer.settings));
    }
    return rules;
}

void add_hijri_options(CLI::App& command, HijriOptions& options) {
    const auto text = [&command](const char* name, auto& target, const char* form, const char* words) {
        return command.add_option(name, target, words)->type_name(form);
    };
    CLI::Option_group* wanted =
        command.add_option_group("Wanted", "One of these; without one the date of today");
    wanted->add_option("--year", options.year, "A Hijri year")->type_name("YYYY");
    CLI::Option* from =
        wanted->add_option("--from-year", options.from_year, "First Hijri year, with --to-year")
            ->type_name("YYYY");
    wanted->add_option("--convert", options.convert, "A civil date")->type_name("YYYY-MM-DD");
    wanted->add_option("--convert-hijri", options.convert_hijri, "A Hijri date")->type_name("YYYY-MM-DD");
    CLI::Option* list =
        wanted->add_flag("--list-rules", options.list_rules, "The rules with what they ask for");
    wanted->require_option(0, 1);
    CLI::Option* to = text("--to-year", options.to_year, "YYYY", "Last Hijri year");
    from->needs(to);
    to->needs(from);
    text("--month", options.month, "1-12", "The days of one month of --year")->check(CLI::Range(1, 12));
    const std::vector<std::string> keys = rule_keys();
    text("--rule", options.rule, "KEY", "By which months begin (see --list-rules); else the kept one")
        ->check(one_of(keys));
    text("--compare", options.compare, "KEY,...", "Further rules, side by side with the first")
        ->delimiter(',')
        ->check(one_of(keys));
    add_place_options(command, options.place);
    add_record_options(command, options.records);
    text("--criterion", options.criterion, "KEY", "Of who asks whether a crescent is seen (see criteria)")
        ->check(one_of(catalogue_keys()));
    text("--class", options.seen_class, "N", "The lowest class of the criterion that counts as seen, from 1")
        ->check(CLI::Range(1, static_cast<int>(CataloguedCriterion::most_classes) - 1));
    text("--limits", options.limits, "NAME=,...",
         "Least lag=, altitude=, elongation=, age= of the criterion user");
    text("--danjon", options.danjon, "DEG", "Least elongation of the criterion danjon");
    text("--region", options.region, "W,S,E,N", "Part of the world, in degrees, where a crescent counts");
    std::vector<std::string> befores;
    for (const SeenBefore before : seen_befores())
        befores.emplace_back(key_of(before));
    add_choice(command, "--before", options.before, "Until when a crescent counts: ", befores);
    command.add_flag("--announced", options.announced, "The kept list of announced starts over the rule");
    text("--announced-file", options.announced_file, "FILE", "Another list of announced starts");
    command.add_flag("--strict", options.strict, "Refuse a list of announced starts that has a fault");
    add_choice(command, "--format", options.format, "", format_names(hijri_formats()));
    add_choice(command, "--language", options.language,
               "Language of names and pages: ", all_words(language_words));
    add_choice(command, "--paper", options.paper, "Paper of a pdf: ", all_words(paper_words));
    add_choice(command, "--digits", options.digits, "Digits of a pdf's Arabic: ", all_words(digits_words));
    text("--output", options.output, "FILE", "File to write, - for standard output");
    keep_to_outputs(command, *list);
}

} // namespace halvane
