// SPDX-License-Identifier: MIT
#pragma once

#include "finemap/mapdocument.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace halvane {

/// What the command line says of fine maps, as it is typed.
struct FineMapOptions {
    std::string criterion;
    std::string day;    ///< 0, 1, 2 or all
    std::string date;   ///< YYYY-MM-DD
    std::string year;   ///< of an atlas
    bool hijri = false; ///< the year is
    bool old_crescent = false;
    std::string step, window, limits, language, paper, format, output;
    std::vector<std::string> lines, marks;
    std::optional<double> danjon, width;
};

/// Adds what every fine map has besides its criterion, its days and its file.
/// Returns the options that were added.
std::vector<CLI::Option*> add_look_options(CLI::App& command, FineMapOptions& options);

/// Every key of the catalogue.
std::vector<std::string> catalogue_keys();

/// What all maps of a run are made of; the day and the conjunction are left at 0.
/// Error  raises UsageMistake for what cannot be mapped; so do the others.
FineMapSettings map_settings(const FineMapOptions& options);

MapFormat format_of(const FineMapOptions& options);

/// The look of the maps, its title and its pages left empty. Reads `loc.vsk`, and `loc.txt` for the marks.
MapDocument empty_document(const FineMapOptions& options, MapFormat format);

} // namespace halvane
