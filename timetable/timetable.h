// SPDX-License-Identifier: MIT
#pragma once

#include "base/datenumbers.h"
#include "base/progress.h"
#include "calendar/hijricalendar.h"
#include "calendar/moddateconv.h"
#include "calendar/taggedtime.h"
#include "ephemeris/ephemeris.h"
#include "stored/loc.h"
#include "stored/pref.h"
#include "timetable/daytimes.h"
#include "timetable/moonofday.h"
#include "timetable/profile.h"
#include "timetable/skytime.h"
#include "timetable/span.h"
#include "zones/timezone.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace halvane {

/// Whether a rule and not the Sun's place made a time: such a time carries a mark.
bool is_by_rule(TimeSource source);
/// The key of a source: "sky", "interval", "middle" ...
const char* key_of(TimeSource source);

/// A clock of a place, brought to its minute or second.
struct LocalClock {
    int day = 0;     ///< days after the row's civil date: mostly 0, 1 past midnight, -1 before it
    int seconds = 0; ///< of that day, 0 to 86399                                                  [s]
    int offset = 0;  ///< of the clock from Universal Time then                                    [s]

    bool operator==(const LocalClock&) const = default;
};

/// A time of a row: a clock, or why there is none.
struct RowTime {
    std::optional<LocalClock> clock;
    NoEvent missing = NoEvent::none; ///< where there is no clock
    TimeSource source = TimeSource::sky;

    bool operator==(const RowTime&) const = default;
};

/// A day of a timetable.
struct TimetableRow {
    double jd = 0; ///< 0 h of the civil date                                                       [d]
    DateNumbers date;
    HijriDate hijri;
    int weekday = 0; ///< 0 Sunday to 6 Saturday
    OfSix<RowTime> times;
    RowTime aser_standard;
    RowTime aser_hanafi;
    RowTime imsak;
    RowTime midnight;
    RowTime last_third;
    OfSix<RowTime> iqamah;
    std::vector<RowTime> jumuah;          ///< on Fridays
    MoonOfDay moon = MoonOfDay::new_moon; ///< where its column is wanted
    std::vector<RowTime> qiblah_sun;      ///< the moments of the day above the horizon, where wanted
    int offset = 0;                       ///< of the clock from Universal Time at its noon         [s]
    bool clock_changes = false;           ///< within the day

    bool is_friday() const { return weekday == 5; }
};

/// Where and by which clock.
struct TimetablePlace {
    Location location;
    /// Its rules, for each day; without it `location.zone` and the summer dates of `preferences`.
    std::optional<TimeZone> zone;
    Preferences preferences;
    /// The zone that the place is known to lie in, to compare with the stored one.
    std::optional<TimeZone> known_zone;
};

/// What a timetable is made from.
struct TimetableSettings {
    TimetablePlace place;
    Profile profile;
    DaySpan span;
    /// By which the Hijri dates are told; null for the tabular calendar. A timetable keeps it where
    /// reckoning_within (hijridays.h) does.
    HijriReckoningPointer hijri = nullptr;
};

/// Days on which the stored zone and summer dates differ from the rules of the place's time zone.
struct ZoneDifference {
    int days = 0;
    double first = 0; ///< 0 h of the first such date                                               [d]
    double last = 0;
};

/// A timetable: its settings and a row for each day.
struct Timetable {
    TimetableSettings settings;
    std::vector<TimetableRow> rows;
    bool to_second = false; ///< its clocks are to the second, not to the minute
    ZoneDifference zone_difference;
    std::vector<TimeSource> rules; ///< that made times of the rows, each once
};

/// Calculates a timetable. Values in, values out: any number of threads may do so at once.
/// In     theory  with `term.vsk` and `mterm.vsk`; where the Moon's column is wanted with the two others too
/// Returns nothing when it has been cancelled.
/// Error  raises RunTimeFailure, as the prayer day does; also where the year method is refused.
std::optional<Timetable> make_timetable(const TheoryPointer& theory, const TimetableSettings& settings,
                                        Progress& progress);
/// The same by an ephemeris that one thread uses for several places.
std::optional<Timetable> make_timetable(Ephemeris& ephemeris, const TimetableSettings& settings,
                                        Progress& progress);

/// Seconds since 1970 January 1 0 h Universal Time of a clock in a row.
std::int64_t utc_seconds(const TimetableRow& row, const LocalClock& clock);

} // namespace halvane
