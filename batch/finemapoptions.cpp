// SPDX-License-Identifier: MIT
#include "batch/finemapoptions.h"

#include "base/numberformat.h"
#include "batch/listedlocation.h"
#include "batch/runoutput.h"
#include "batch/usagemistake.h"
#include "finemap/mapframe.h"
#include "finemap/mapstyle.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

namespace halvane {
namespace {

constexpr std::array<const char*, 3> steps{"1", "0.5", "0.25"};
constexpr const char* usual_step = "0.5";

/// The whole text as a finite number; nothing for any other.
std::optional<double> number_of_text(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::vector<std::string> parts_of(const std::string& text) {
    return CLI::detail::split(text, ',');
}

MapWindow window_of(const FineMapOptions& options, double step) {
    if (options.window.empty())
        return {};
    std::vector<double> sides;
    for (const std::string& part : parts_of(options.window)) {
        const std::optional<double> side = number_of_text(part);
        if (!side)
            throw UsageMistake("--window: wanted W,S,E,N in degrees, found \"" + options.window + "\"");
        sides.push_back(*side);
    }
    if (sides.size() != 4)
        throw UsageMistake("--window: wanted W,S,E,N in degrees, found \"" + options.window + "\"");
    MapWindow window{sides[0], sides[1], sides[2], sides[3]};
    if (window.east < window.west && window.east >= -180)
        window.east += 360; // it crosses the date line
    if (const std::optional<TwinWords> refused = refused_window(window, step))
        throw UsageMistake("--window: " + refused->english);
    return window;
}

struct LimitName {
    const char* name;
    std::optional<double> UserLimits::*limit;
};
constexpr std::array<LimitName, 4> limit_names{{{"lag", &UserLimits::lag},
                                                {"altitude", &UserLimits::altitude},
                                                {"elongation", &UserLimits::elongation},
                                                {"age", &UserLimits::age}}};

/// Takes one limit: "altitude=5", or "age=" for none.
void set_limit(UserLimits& limits, const std::string& text) {
    const std::size_t equals = text.find('=');
    const std::string name = text.substr(0, equals);
    const auto* const found = std::find_if(limit_names.begin(), limit_names.end(),
                                           [&name](const LimitName& known) { return name == known.name; });
    if (found == limit_names.end() || equals == std::string::npos)
        throw UsageMistake("--limits: wanted lag=, altitude=, elongation= or age=, found \"" + text + "\"");
    const std::string value = text.substr(equals + 1);
    const std::optional<double> number = number_of_text(value);
    if (!number && !value.empty())
        throw UsageMistake("--limits: wanted a number or nothing behind \"" + name + "=\", found \"" + value +
                           "\"");
    limits.*(found->limit) = number;
}

CriteriaSettings limits_of(const FineMapOptions& options) {
    CriteriaSettings settings;
    if (!options.limits.empty() && options.criterion != "user")
        throw UsageMistake("--limits is of the criterion user");
    if (options.danjon && options.criterion != "danjon")
        throw UsageMistake("--danjon is of the criterion danjon");
    for (const std::string& text :
         options.limits.empty() ? std::vector<std::string>() : parts_of(options.limits))
        set_limit(settings.user, text);
    const bool is_any = std::any_of(limit_names.begin(), limit_names.end(), [&](const LimitName& known) {
        return (settings.user.*(known.limit)).has_value();
    });
    if (!is_any)
        throw UsageMistake("--limits: one limit at least is wanted");
    constexpr double half_circle = 180;
    if (options.danjon && !(*options.danjon >= 0 && *options.danjon <= half_circle))
        throw UsageMistake("--danjon: wanted an angle from 0 to 180 degrees");
    settings.danjon_limit = options.danjon.value_or(settings.danjon_limit);
    return settings;
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
    const auto one_of = [&](const char* name, std::string& target, const std::string& words,
                            const std::vector<std::string>& choices) {
        added.push_back(command.add_option(name, target, words + choice_of(choices))
                            ->type_name("NAME")
                            ->check(CLI::IsMember(choices).description("")));
    };
    const auto text = [&](const char* name, auto& target, const char* form, const char* words) {
        added.push_back(command.add_option(name, target, words)->type_name(form));
        return added.back();
    };
    added.push_back(command.add_flag("--old", options.old_crescent, "Mornings of the old crescent"));
    one_of("--step", options.step,
           "Degrees between the places that are judged: ", {steps.begin(), steps.end()});
    text("--window", options.window, "W,S,E,N", "Part of the world in degrees; E less than W crosses 180");
    text("--width", options.width, "PIXELS", "Width of a png or svg picture, 64 to 30000");
    std::vector<std::string> quantities;
    for (const MapQuantity quantity : map_quantities)
        quantities.emplace_back(key_of(quantity));
    text("--lines", options.lines, "NAME,...", "Lines of equal lag, age, altitude and elongation")
        ->delimiter(',')
        ->check(CLI::IsMember(quantities).description(""));
    text("--mark", options.marks, "NAME,...", "Places of the list to mark")->delimiter(',');
    text("--limits", options.limits, "NAME=,...",
         "Least lag=, altitude=, elongation=, age= of the criterion user; nothing behind = takes one off");
    text("--danjon", options.danjon, "DEG", "Least elongation of the criterion danjon");
    one_of("--language", options.language, "Language of the sheet: ", {"en", "ar"});
    one_of("--paper", options.paper, "Paper of a pdf: ", {"A4", "Letter"});
    return added;
}

FineMapSettings map_settings(const FineMapOptions& options) {
    FineMapSettings settings;
    settings.kind = options.old_crescent ? CrescentKind::old_crescent : CrescentKind::new_crescent;
    settings.criterion = catalogued_criterion(options.criterion);
    settings.limits = limits_of(options);
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
    document.paper = options.paper == "Letter" ? PaperSize::letter : PaperSize::a4;
    if (!options.paper.empty() && format != MapFormat::pdf)
        throw UsageMistake("--paper is of pdf");
    document.width = width_of(options, format);
    return document;
}

} // namespace halvane
