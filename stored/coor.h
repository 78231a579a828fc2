#pragma once

namespace halvane {

/// `coor.vsk`: the choices of the ephemeris table, in the order of the file.
struct EphemerisSettings {
    int object = 0;           ///< 0 Sun, 1 Moon
    bool local_ut1 = true;    ///< false: local dynamical time
    bool geocentric = true;   ///< false: topocentric
    double start_year = 2026; ///< local clock of the first row: year
    double start_month = 1;   ///< local clock of the first row: month
    double start_day = 1;     ///< local clock of the first row: day
    double start_hour = 0;    ///< local clock of the first row: hour
    double start_minute = 0;  ///< local clock of the first row: minute
    double start_second = 0;  ///< local clock of the first row: second
    double end_year = 2026;   ///< local clock of the last row: year
    double end_month = 1;     ///< local clock of the last row: month
    double end_day = 1;       ///< local clock of the last row: day
    double end_hour = 0;      ///< local clock of the last row: hour
    double end_minute = 0;    ///< local clock of the last row: minute
    double end_second = 0;    ///< local clock of the last row: second
    double interval = 1;      ///< magnitude of the whole part of the interval count
    int unit = 3;             ///< unit of the interval: 0 second, 1 minute, 2 hour, 3 day
    int summer_time = 0;      ///< 1: summer time applies to this run

    bool operator==(const EphemerisSettings&) const = default;
};

/// The stored choices. Reads `coor.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const EphemerisSettings& read_coor();

/// Rewrites `coor.vsk` whole.
void write_coor(const EphemerisSettings& settings);

} // namespace halvane
