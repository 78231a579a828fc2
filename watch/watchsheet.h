// SPDX-License-Identifier: MIT
#pragma once

#include "base/twintext.h"
#include "watch/crescentwatch.h"

#include <string>
#include <vector>

namespace halvane {

/// A number of a sheet with its name.
struct WatchFact {
    TwinWords label;
    TwinWords value;
};

/// A heading of a sheet's table; neighbours of one group stand below its name.
struct WatchColumn {
    TwinWords group; ///< "Moon", "Sun" or nothing
    TwinWords heading;
    const char* unit; ///< "°", "'", "%" or nothing
};

struct WatchTableRow {
    std::vector<TwinWords> cells; ///< as many as there are columns
    TwinWords event;              ///< "Sunset", "Moonset" or nothing
};

/// What a criterion says, in words.
struct VerdictWords {
    TwinWords name;
    TwinWords value;
    TwinWords meaning;
};

/// A watch as the texts of its pages: the same on a screen, on paper and in a file.
struct WatchSheet {
    TwinWords title;                 ///< "New crescent of Ramadan 1447"
    TwinWords evening;               ///< "Evening of Wednesday 18 February 2026"
    TwinWords hijri;                 ///< "Hijri date of the day: 30 Sha'ban 1447 (tabular)"
    TwinWords place;                 ///< name
    TwinWords coordinates;           ///< "31°57' N, 35°56' E, 779 m"
    TwinWords zone;                  ///< "Time zone Asia/Amman (UT +3)"
    std::vector<WatchFact> facts;    ///< conjunction and age, then the evening: a half each
    std::vector<TwinWords> warnings; ///< why there is nothing to be seen
    std::vector<WatchColumn> columns;
    std::vector<WatchTableRow> rows;
    TwinWords pointing_title; ///< "For the telescope at Best Time, 17:53:12"
    std::vector<WatchFact> pointing;
    std::vector<TwinWords> orientation; ///< how the crescent lies
    TwinWords verdicts_title;
    std::vector<VerdictWords> verdicts;
    std::vector<TwinWords> notes; ///< what the numbers are
};

/// The texts of a watch.
WatchSheet sheet_of(const CrescentWatch& watch);

/// Why there is no watch, in whole sentences.
TwinWords words_of(const NoWatch& none, const WatchSettings& settings);

/// "Civil twilight"
TwinText words_of(SkyBrightness brightness);

/// "Sunset" or "Sunrise", "Moonset" or "Moonrise".
TwinText sun_event_words(CrescentKind kind);
TwinText moon_event_words(CrescentKind kind);

/// The name of the wind that an azimuth is within 1/32 of a turn of: "West", "West-southwest" ... [deg]
TwinText compass_words(double azimuth);

/// "12.34"; a negative number has the sign U+2212.
std::string fixed_number(double value, int decimals);

} // namespace halvane
