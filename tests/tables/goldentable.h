// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/modjul.h"
#include "stored/textfile.h"
#include "tables/ephemerisrow.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace halvane {

/// A printed row of a stored table, read back column by column.
struct GoldenRow {
    double clock = 0; ///< the local clock as a Julian day                                    [d]
    EphemerisRow values;
    std::string line;
};

/// "hh:mm:ss", "-dd:mm:ss" or "hhH mmM ssS" at a column (from 1) as a decimal number.
inline double sexagesimal(const std::string& line, std::size_t column, std::size_t next_column) {
    const std::string text = line.substr(column - 1, next_column - column);
    double parts[3] = {0, 0, 0};
    std::size_t at = 0;
    for (double& part : parts) {
        at = text.find_first_of("0123456789", at);
        part = std::atof(text.c_str() + at);
        at = text.find_first_not_of("0123456789", at);
    }
    const double value = parts[0] + parts[1] / 60 + parts[2] / 3600;
    return text.front() == '-' ? -value : value;
}

/// The rows of `folder`/ephemeris.out.
inline std::vector<GoldenRow> golden_rows(const std::filesystem::path& folder) {
    std::vector<GoldenRow> rows;
    std::istringstream lines(read_text_file((folder / "ephemeris.out").string()));
    for (std::string line; std::getline(lines, line);) {
        if (line.size() < 123 || line[2] != ':' || line[5] != ':')
            continue;
        GoldenRow row;
        row.line = line.substr(0, 19);
        modjul(std::atof(line.c_str() + 15), std::atof(line.c_str() + 12), std::atof(line.c_str() + 9),
               sexagesimal(line, 1, 9), row.clock);
        row.values.right_ascension = 15 * sexagesimal(line, 22, 35);
        row.values.declination = sexagesimal(line, 35, 46);
        row.values.altitude = sexagesimal(line, 46, 57);
        row.values.azimuth = sexagesimal(line, 57, 68);
        row.values.latitude = sexagesimal(line, 68, 79);
        row.values.longitude = sexagesimal(line, 79, 90);
        row.values.distance = std::atof(line.c_str() + 89);
        row.values.semidiameter = sexagesimal(line, 103, 113);
        row.values.parallax = sexagesimal(line, 113, 123);
        row.values.delta_t = std::atof(line.c_str() + 122);
        rows.push_back(row);
    }
    return rows;
}

} // namespace halvane
