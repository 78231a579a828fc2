// SPDX-License-Identifier: MIT
#include "batch/finemapoptions.h"

#include "base/numberformat.h"
#include "batch/choices.h"
#include "batch/criteriaoptions.h"
#include "batch/listedlocation.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "finemap/mapframe.h"
#include "finemap/mapstyle.h"
#include "timetable/inivalues.h"
#include "timetable/pagekeys.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace halvane {
namespace {

constexpr std::array<const char*, 3> steps{"1", "0.5", "0.25"};
constexpr const char* usual_step = "0.5";

MapWindow window_of(const FineMapOptions& options, double step) {
    if (options.window.empty())
        return {};
    const MapWindow window = window_of_text("--window", options.window);
    if (const std::optional<TwinWords> refused = refused_window(window, step))
        throw UsageMistake("--window: " + refused->english);
    return window;
}

int width_of(const FineMapOptions& options, MapFormat format) {
    if (!options.width)
        return MapDocument().width;
    if (format != MapFormat::png && format != MapFormat::svg)
        throw UsageMistake("--width is of png and svg");
    const double width = *options.width;
    if (!(width >= least_map_width && width <= most_map_width) || width != std::floor(width))
        throw UsageMistake("--width: wanted a whole number of pixels from " +
                           std::to_string(least_map_width) + " to " + std::to_string(most_map_width));
    return static_cast<int>(width);
}

std::vector<MapQuantity> lines_of(const FineMapOptions& options) {
    std::vector<MapQuantity> lines;
    for (const MapQuantity quantity : map_quantities)
        if (std::find(options.lines.begin(), options.lines.end(), key_of(quantity)) != options.lines.end())
            lines.push_back(quantity);
    return lines;
}

std::vector<MarkedPlace> places_of(const FineMapOptions& options) {
    const Location& own = read_loc();
    std::vector<MarkedPlace> places{marked_place(own, true)};
    for (const std::string& name : options.marks)
        if (name != own.name)
            places.push_back(marked_place(listed_location(name), false));
    return places;
}

} // namespace

std::vector<std::string> catalogue_keys() {
    std::vector<std::string> keys;
    for (const CataloguedCriterion& criterion : catalogued_criteria())
        keys.emplace_back(criterion.key);
    return keys;
}

std::vector<CLI::Option*> add_look_options(CLI::App& command, FineMapOptions& options) {
    std::vector<CLI::Option*> added;
    const auto choice = [&](const char* name, std::string& target, const std::string& words,
                            const std::vector<std::string>& choices) {
        added.push_back(add_choice(command, name, target, words, choices));
    };
    const auto text = [&](const char* name, auto& target, const char* form, const char* words) {
        added.push_back(command.add_option(name, target, words)->type_name(form));
        return added.back();
    };
    added.push_back(command.add_flag("--old", options.old_crescent, "Mornings of the old crescent"));
    choice("--step", options.step,
           "Degrees between the places that are judged: ", {steps.begin(), steps.end()});
    text("--window", options.window, "W,S,E,N", "Part of the world in degrees; E less than W crosses 180");
    text("--width", options.width, "PIXELS", "Width of a png or svg picture, 64 to 30000");
    std::vector<std::string> quantities;
    for (const MapQuantity quantity : map_quantities)
        quantities.emplace_back(key_of(quantity));
    text("--lines", options.lines, "NAME,...", "Lines of equal lag, age, altitude and elongation")
        ->delimiter(',')
        ->check(one_of(quantities));
    text("--mark", options.marks, "NAME,...", "Places of the list to mark")->delimiter(',');
    text("--limits", options.limits, "NAME=,...",
         "Least lag=, altitude=, elongation=, age= of the criterion user; nothing behind = takes one off");
    text("--danjon", options.danjon, "DEG", "Least elongation of the criterion danjon");
    choice("--language", options.language, "Language of the sheet: ", {"en", "ar"});
    choice("--paper", options.paper, "Paper of a pdf: ", all_words(paper_words));
    return added;
}

FineMapSettings map_settings(const FineMapOptions& options) {
    FineMapSettings settings;
    settings.kind = options.old_crescent ? CrescentKind::old_crescent : CrescentKind::new_crescent;
    settings.criterion = catalogued_criterion(options.criterion);
    settings.limits = criteria_settings(options.criterion, options.limits, options.danjon);
    settings.step = number_of_text(options.step.empty() ? usual_step : options.step).value();
    settings.window = window_of(options, settings.step);
    if (const std::optional<TwinWords> refused = refused_map(settings))
        throw UsageMistake(refused->english);
    return settings;
}

MapFormat format_of(const FineMapOptions& options) {
    const auto* const found =
        std::find_if(std::begin(map_formats), std::end(map_formats),
                     [&options](MapFormat format) { return options.format == name_of(format); });
    if (found == std::end(map_formats))
        throw UsageMistake("--format: wanted png, svg, pdf, geojson or csv, found \"" + options.format +
                           "\"");
    return *found;
}

MapDocument empty_document(const FineMapOptions& options, MapFormat format) {
    MapDocument document;
    document.look.language = options.language == "ar" ? Language::arabic : Language::english;
    document.look.lines = lines_of(options);
    document.look.places = places_of(options);
    take_word(document.paper, options.paper, paper_words);
    if (!options.paper.empty() && format != MapFormat::pdf)
        throw UsageMistake("--paper is of pdf");
    document.width = width_of(options, format);
    return document;
}

} // namespace halvane
