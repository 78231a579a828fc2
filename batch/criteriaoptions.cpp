// SPDX-License-Identifier: MIT
#include "batch/criteriaoptions.h"

#include "batch/usagemistake.h"
#include "timetable/inivalues.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace halvane {
namespace {

std::vector<std::string> parts_of(const std::string& text) {
    return CLI::detail::split(text, ',');
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

} // namespace

MapWindow window_of_text(const std::string& option, const std::string& text) {
    std::vector<double> sides;
    for (const std::string& part : parts_of(text))
        sides.push_back(number_of_text(part).value_or(std::nan("")));
    const bool sound = sides.size() == 4 &&
                       std::none_of(sides.begin(), sides.end(), [](double side) { return std::isnan(side); });
    if (!sound)
        throw UsageMistake(option + ": wanted W,S,E,N in degrees, found \"" + text + "\"");
    MapWindow window{sides[0], sides[1], sides[2], sides[3]};
    if (window.east < window.west && window.east >= -180)
        window.east += 360; // it crosses the date line
    return window;
}

CriteriaSettings criteria_settings(const std::string& criterion, const std::string& limits,
                                   const std::optional<double>& danjon) {
    CriteriaSettings settings;
    if (!limits.empty() && criterion != "user")
        throw UsageMistake("--limits is of the criterion user");
    if (danjon && criterion != "danjon")
        throw UsageMistake("--danjon is of the criterion danjon");
    for (const std::string& text : limits.empty() ? std::vector<std::string>() : parts_of(limits))
        set_limit(settings.user, text);
    const bool is_any = std::any_of(limit_names.begin(), limit_names.end(), [&](const LimitName& known) {
        return (settings.user.*(known.limit)).has_value();
    });
    if (!is_any)
        throw UsageMistake("--limits: one limit at least is wanted");
    constexpr double half_circle = 180;
    if (danjon && !(*danjon >= 0 && *danjon <= half_circle))
        throw UsageMistake("--danjon: wanted an angle from 0 to 180 degrees");
    settings.danjon_limit = danjon.value_or(settings.danjon_limit);
    return settings;
}

} // namespace halvane
