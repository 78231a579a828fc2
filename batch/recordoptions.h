// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "base/machinetime.h"
#include "batch/placeoptions.h"
#include "stored/typedrecords.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace halvane {

/// What of the days a task can be told on the command line.
enum class DayUse {
    none,
    today,    ///< one day, in the place of today: --date
    period,   ///< days of a report: --from, --to, --month, --year
    year,     ///< --year
    crescent, ///< an approximate date: --date, --month
    month,    ///< the same: --month
    instant,  ///< a date of a stored instant: --date
};

/// What the command line says in the place of the stored files, as it is typed.
struct RecordOptions {
    PlaceOptions place;
    std::string date, from, to, month, year;
    std::vector<std::string> sets; ///< "FIELD=VALUE"

    // What the task takes of it.
    DayUse days = DayUse::none;
    bool takes_place = true;
    std::vector<RecordFile> files; ///< whose settings it reads
    std::optional<double> of_year; ///< civil year that the task is of, where its own options tell

    bool has_place() const { return place.is_given(); }
    bool has_days() const { return !(date + from + to + month + year).empty(); }
    bool is_given() const { return has_place() || has_days() || !sets.empty(); }
};

/// A place with its clock on each day.
struct ClockPlace {
    Location location;
    Preferences preferences;
    std::optional<TimeZone> zone; ///< by whose rules the clock goes; else by the location and the preferences

    /// The location with the zone hours of its noon on a date. In     jd  0 h of it                 [d]
    Location on(double jd) const;
    /// What the clock shows now: --now is its time, whatever the machine's zone.
    MachineTime now() const;
    /// Now in Universal Time since the platform's day 0                                            [s]
    double universal_now() const;
};

/// Adds what `options` takes.
void add_record_options(CLI::App& command, RecordOptions& options);
/// Options of a task with places and days of its own: settings of the preferences and the stored location.
RecordOptions settings_alone();

/// What `suppose` has made.
struct Supposition {
    std::unique_ptr<TypedRecords> records; ///< supposed while it lives
    ClockPlace place;                      ///< of tasks of single days
    DateNumbers date;                      ///< that such a task is of: --date, or today at the place
};

/// The records that the options make of the stored ones: while they live, every reader answers with them. The
/// files stay as they are. Where the program folder has none of the stored files, or options ask for records
/// that it lacks, the delivered ones stand in for them.
/// Error  raises UsageMistake for what is no place, no day, no setting or not within its range.
Supposition suppose(const RecordOptions& options);

} // namespace halvane
