// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/timetable.h"

#include <optional>
#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace halvane {

/// The place that a command line names: one of the list, one by its numbers, else the stored location.
struct PlaceOptions {
    std::string place, zone_name;
    std::optional<double> latitude, longitude, zone, height;

    bool by_numbers() const { return latitude || longitude; }
    bool is_given() const { return !place.empty() || by_numbers() || !zone_name.empty(); }
};

/// Adds --place, --latitude, --longitude, --zone-name, --zone and --height.
void add_place_options(CLI::App& command, PlaceOptions& options);

/// Error  raises UsageMistake for options that do not go together and for a zone that there is none of.
void check_place_options(const PlaceOptions& options);

/// Reads the stored files that the place needs.
/// Error  raises UsageMistake for a place that the list has not, telling the nearest, and for numbers that
///        are no place.
TimetablePlace place_of(const PlaceOptions& options);

} // namespace halvane
