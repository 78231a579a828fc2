// SPDX-License-Identifier: MIT
#pragma once

#include "batch/recordoptions.h"
#include "hijri/hijrifiles.h"
#include "hijri/monthpage.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace halvane {

/// What the command line says of Hijri months, as it is typed.
struct HijriOptions {
    std::optional<int> year, from_year, to_year, month;
    std::optional<std::string> convert, convert_hijri; ///< YYYY-MM-DD
    bool list_rules = false;
    std::string rule;
    std::vector<std::string> compare;
    PlaceOptions place;
    RecordOptions records = settings_alone();
    std::string criterion, limits, region, before;
    std::optional<double> danjon;
    std::optional<int> seen_class;
    bool announced = false;
    bool strict = false;
    std::string announced_file;
    std::string format, language, paper, digits, output;

    bool is_conversion() const { return convert || convert_hijri; }
};

void add_hijri_options(CLI::App& command, HijriOptions& options);

// Each raises UsageMistake for options that do not go together.

HijriFormat format_of(const HijriOptions& options);
Language language_of(const HijriOptions& options);
MonthPage page_of(const HijriOptions& options);

/// The Hijri years of a run.
struct YearsOfRun {
    int first = 0;
    int last = 0;
};
YearsOfRun years_of(const HijriOptions& options);

/// The place by whose clock the phases of the Moon have their dates.
TimetablePlace clock_place(const HijriOptions& options);

/// The settings of each rule, the first one before those of --compare. Reads the kept rule where none is
/// named, the stored files of the place, and the announced starts; tells of faults in their list on standard
/// error.
/// In     year  civil year of whose first day the place's clock is taken
/// Error  raises RunTimeFailure for a list with faults and --strict, naming each
std::vector<HijriSettings> rules_of(const HijriOptions& options, double year);

} // namespace halvane
