// SPDX-License-Identifier: MIT
#pragma once

#include "timetable/csvtable.h"

#include <filesystem>
#include <string>
#include <vector>

namespace halvane {

/// What an observer had of a crescent.
enum class Seen { eye, aid, no };

/// An observation that has been published.
struct Sighting {
    std::string row;       ///< its name in the published list
    double universal = 0;  ///< during the observation; Julian day, UT1                           [d]
    double longitude = 0;  ///< east positive                                                     [deg]
    double latitude = 0;   ///< north positive                                                    [deg]
    double elongation = 0; ///< as published: topocentric, to the nearest limb                   [deg]
    Seen seen = Seen::no;
};

/// A table of numbers with lines of words, which begin with "#", before its head.
/// Error  raises RunTimeFailure.
CsvTable read_told_table(const std::filesystem::path& path);

/// The field of a row under a heading.
/// Error  raises RunTimeFailure when the table has no such column.
const std::string& field(const CsvTable& table, const CsvRow& row, const char* heading);

/// The same as a number.
/// Error  raises RunTimeFailure for anything else.
double number(const CsvTable& table, const CsvRow& row, const char* heading);

/// The observations of a table with the columns row, utc, latitude, longitude, arcl and seen.
/// Error  raises RunTimeFailure.
std::vector<Sighting> read_sightings(const std::filesystem::path& path);

} // namespace halvane
