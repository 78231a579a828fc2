// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/export.h"

#include <chrono>
#include <limits>
#include <memory>
#include <string>

namespace halvane::HALVANE_INLINE v1 {

inline constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

/// A civil date: of the Julian calendar before 15 October 1582, of the Gregorian one from then on. Years are
/// astronomical (0 is 1 BC), -4000 to 9999.
struct Date {
    int year = 2000;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31

    bool operator==(const Date&) const = default;
};

/// A date of the Hijri calendar.
struct HijriDate {
    int year = 1;
    int month = 1; ///< 1 Muharram to 12 Thul Hejjah
    int day = 1;   ///< 1 to 30

    bool operator==(const HijriDate&) const = default;
};

/// The Julian day of 0 h of a civil date; it ends in .5                                       [d]
/// Error  raises Error (bad_argument) for a date that the calendar has not.
HALVANE_EXPORT double julian_day(const Date& date);

/// The civil date that a Julian day lies in.
/// Error  raises Error (bad_argument) outside the years of Date.
HALVANE_EXPORT Date civil_date(double julian_day);

/// Where an observer stands.
struct Observer {
    double latitude = 0;  ///< north positive, -90 to 90                                        [deg]
    double longitude = 0; ///< east positive, -180 to 180                                       [deg]
    double height = 0;    ///< above sea level                                                  [m]
};

/// The clock that a Julian day counts on: the turning Earth's (UT1, for which the library takes every
/// civil clock's Universal Time; they differ by less than 0.9 s) or that of the theories (TDT).
enum class TimeScale { ut1 = 0, dynamical = 1 };

/// A moment.
struct Instant {
    double jd = 2451545; ///< Julian day in `scale`                                             [d]
    TimeScale scale = TimeScale::ut1;

    /// The moment of a Julian day in UT1.
    static constexpr Instant of_ut1(double jd) { return {jd, TimeScale::ut1}; }
    /// The moment of a Julian day in dynamical time.
    static constexpr Instant of_dynamical(double jd) { return {jd, TimeScale::dynamical}; }
    /// The moment of a number of seconds.
    /// In     seconds  since 1970 January 1, 0 h Universal Time; leap seconds are not counted
    static constexpr Instant of_unix(double seconds) {
        return {unix_epoch + seconds / seconds_per_day, TimeScale::ut1};
    }
    /// The moment of the system's clock.
    static Instant of(std::chrono::system_clock::time_point moment) {
        return of_unix(std::chrono::duration<double>(moment.time_since_epoch()).count());
    }

    /// The Julian day in UT1, by the library's Delta T                                         [d]
    HALVANE_EXPORT double ut1() const;
    /// The Julian day in dynamical time, by the library's Delta T                              [d]
    HALVANE_EXPORT double dynamical() const;
    /// Seconds since 1970 January 1, 0 h Universal Time.
    double unix_seconds() const { return (ut1() - unix_epoch) * seconds_per_day; }

    static constexpr double unix_epoch = 2440587.5;
    static constexpr double seconds_per_day = 86400;
};

/// TDT less UT1 at a Julian day                                                                [s]
HALVANE_EXPORT double delta_t(double jd);

/// Why there is no time: reports print "----", "Up", "Down", "Bright", "Dark".
enum class Missing {
    no = 0,   ///< there is one
    no_event, ///< the body does not pass its altitude in this direction on this day
    up,       ///< it stays above all day
    down,     ///< it stays below all day
    bright,   ///< the Sun does not go so far below the horizon
    dark,     ///< it stays below it all day
};

/// A time of a local day, or why there is none.
struct ClockTime {
    double hours = not_a_number; ///< from 0 h of the date on the place's clock; not a number without one
                                 ///< [h]
    Missing missing = Missing::no_event;

    /// Whether there is a time.
    explicit operator bool() const { return missing == Missing::no; }
};

/// The clock of a place. A copy costs nothing; any number of threads may ask one.
class HALVANE_EXPORT Clock {
public:
    /// Universal Time.
    Clock() = default;
    /// In     hours  of the clock from Universal Time, east positive, -24 to 24                [h]
    /// Error  raises Error (bad_argument).
    static Clock fixed(double hours);
    /// In     name  an IANA time zone, "Africa/Cairo"
    /// Error  raises Error: bad_argument for a zone that the system does not know.
    static Clock of_zone(const std::string& name);

    /// Hours ahead of Universal Time at noon of a date, which every time of that date is told by [h]
    double hours_ahead(const Date& date) const;
    /// The zone's name; empty for a fixed clock.
    const std::string& zone_name() const;

    struct Rules;
    /// The library's own; nothing for a fixed clock.
    const Rules* rules() const { return rules_.get(); }

private:
    double hours_ = 0;
    std::shared_ptr<const Rules> rules_;
};

} // namespace halvane::HALVANE_INLINEv1
