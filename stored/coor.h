// SPDX-License-Identifier: MIT
#pragma once

#include "stored/date.h"
#include "stored/fields.h"

namespace halvane {

/// `coor.vsk`: the choices of the ephemeris table, in the order of the file.
struct EphemerisSettings {
    int object = 0;
    bool local_ut1 = true;
    bool geocentric = true;
    double start_year = 2026;
    double start_month = 1;
    double start_day = 1;
    double start_hour = 0;
    double start_minute = 0;
    double start_second = 0;
    double end_year = 2026;
    double end_month = 1;
    double end_day = 1;
    double end_hour = 0;
    double end_minute = 0;
    double end_second = 0;
    double interval = 1;
    int unit = 3;
    int summer_time = 0;

    bool operator==(const EphemerisSettings&) const = default;
};

/// What they are, in the order of the file.
inline constexpr FieldList coor_fields{
    Field(&EphemerisSettings::object, kind::WholeNumber{0, 1}, "object", "0 Sun, 1 Moon"),
    Field(&EphemerisSettings::local_ut1, kind::Boolean{}, "local-ut1",
          "true: local UT1, false: local dynamical time"),
    Field(&EphemerisSettings::geocentric, kind::Boolean{}, "geocentric",
          "true: geocentric, false: topocentric"),
    Field(&EphemerisSettings::start_year, stored_year, "start-year", "local clock of the first row: year"),
    Field(&EphemerisSettings::start_month, stored_day, "start-month", "local clock of the first row: month"),
    Field(&EphemerisSettings::start_day, stored_day, "start-day", "local clock of the first row: day"),
    Field(&EphemerisSettings::start_hour, stored_day, "start-hour", "local clock of the first row: hour"),
    Field(&EphemerisSettings::start_minute, stored_day, "start-minute",
          "local clock of the first row: minute"),
    Field(&EphemerisSettings::start_second, stored_day, "start-second",
          "local clock of the first row: second"),
    Field(&EphemerisSettings::end_year, stored_year, "end-year", "local clock of the last row: year"),
    Field(&EphemerisSettings::end_month, stored_day, "end-month", "local clock of the last row: month"),
    Field(&EphemerisSettings::end_day, stored_day, "end-day", "local clock of the last row: day"),
    Field(&EphemerisSettings::end_hour, stored_day, "end-hour", "local clock of the last row: hour"),
    Field(&EphemerisSettings::end_minute, stored_day, "end-minute", "local clock of the last row: minute"),
    Field(&EphemerisSettings::end_second, stored_day, "end-second", "local clock of the last row: second"),
    Field(&EphemerisSettings::interval, kind::Number{}, "interval",
          "magnitude of the whole part of the interval count"),
    Field(&EphemerisSettings::unit, kind::WholeNumber{0, 3}, "unit",
          "unit of the interval: 0 second, 1 minute, 2 hour, 3 day"),
    Field(&EphemerisSettings::summer_time, kind::WholeNumber{0, 1}, "summer-time",
          "1: summer time applies to this run"),
};

/// The stored choices. Reads `coor.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const EphemerisSettings& read_coor();

/// Rewrites `coor.vsk` whole.
void write_coor(const EphemerisSettings& settings);

} // namespace halvane
