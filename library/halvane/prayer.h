// SPDX-License-Identifier: MIT
#pragma once

#include "halvane/events.h"

#include <array>
#include <cstdint>
#include <optional>

namespace halvane::HALVANE_INLINE v1 {

/// The six times of a day, in their order.
enum class Prayer { fajer = 0, shuroq = 1, dhohur = 2, aser = 3, maghreb = 4, isha = 5 };
inline constexpr std::size_t prayers = 6;

/// What Halvane's prayer report is made by. Minutes may be negative.
struct ReportRules {
    double fajer_angle = 18;  ///< depression of the Sun, 0 to 90                             [deg]
    double isha_angle = 18;   ///< depression of the Sun, 0 to 90                             [deg]
    bool hanafi = false;      ///< Aser when a shadow has grown by two lengths, not one
    double fajer_earlier = 0; ///< safety margin before Fajer                                 [min]
    double dhohur_later = 0;  ///< safety margins after the others                            [min]
    double aser_later = 0;    ///< [min]
    double maghreb_later = 0; ///< [min]
    double city = 0;          ///< how far east the observer is taken to stand for Fajer and Shuroq [km]
    Horizon horizon{};
    bool high_latitude = false; ///< Fajer and Isha as parts of the night where the twilight does not end,
                                ///< above 48.5 to 65 deg north
};

/// The six times of a civil date, as calculated, before any rounding. Dhohur may lie outside 0 to 24 h: it is
/// another date's then.
struct PrayerTimes {
    std::array<ClockTime, prayers> times;
    /// The time of a prayer.
    const ClockTime& operator[](Prayer prayer) const { return times[static_cast<std::size_t>(prayer)]; }
};

/// The six times of a date by the report's rules.
/// Error  raises Error: bad_argument; no_value where the method of high latitudes does not reach.
HALVANE_EXPORT PrayerTimes prayer_times(const Engine& engine, const Date& date, const Observer& observer,
                                        const Clock& clock, const ReportRules& rules = {});

/// How a clock is brought to its minute (or second).
enum class Rounding { nearest = 0, up = 1, down = 2 };

/// What gives a Fajer or an Isha where the Sun's depression gives none.
enum class HighLatitudeRule {
    none = 0,
    middle,           ///< the middle of the night
    seventh,          ///< the last and the first seventh of the night
    angle,            ///< the part of the night that the angle is of 60 deg
    nearest_latitude, ///< the clock of a lower latitude
    share,            ///< the share of the night at a lower latitude
    year,             ///< parts of the night, smoothed over the whole year; above 48.5 to 65 deg north
};

/// When a rule of high latitudes speaks.
enum class RuleUse {
    missing = 0, ///< when the angle gives no time
    beyond,      ///< also when it gives a Fajer before, or an Isha after, the rule's
    always,
};

/// When a prayer is begun together.
struct Iqamah {
    /// At a clock, or so long after the prayer's time.
    enum class Kind { none = 0, fixed, after };
    Kind kind = Kind::none;
    int minutes = 0;         ///< of the day (fixed, 0 to 1439), or after the prayer's time (0 to 240) [min]
    bool up_to_five = false; ///< brought up to full five minutes
};

/// The rules of a timetable.
struct TimetableRules {
    double fajer_angle = 18;             ///< depression of the Sun, 1 to 30                        [deg]
    double isha_angle = 17;              ///< the same; not looked at where `isha_minutes` is given [deg]
    double isha_minutes = 0;             ///< after Maghreb, 0 to 360; 0: by the angle              [min]
    double isha_minutes_ramadan = 0;     ///< in its place in Ramadan; 0: as on other days          [min]
    double maghreb_angle = 0;            ///< depression of the Sun, 0 to 30; 0: sunset             [deg]
    bool hanafi = false;                 ///< the Hanafi shadow at Aser
    bool height_counts = false;          ///< whether the observer's height lowers the horizon
    std::array<double, prayers> added{}; ///< minutes added to each before it is rounded, -120 to 120 [min]
    std::array<Rounding, prayers> rounding{};
    HighLatitudeRule high_latitude = HighLatitudeRule::none;
    RuleUse rule_use = RuleUse::missing;
    double reference_latitude = 0;  ///< of the two latitude rules, 0 to 65; 0: each rule's own [deg]
    bool night_until_fajer = false; ///< its middle and last third are of sunset to Fajer, not to sunrise
    double imsak_minutes = 10;      ///< before Fajer, 0 to 120                                 [min]
    bool seconds = false;           ///< clocks are to the second, not to the minute
    std::array<Iqamah, prayers> iqamah{}; ///< that of Shuroq has no meaning
    std::vector<int> jumuah{};            ///< up to three, minutes of the day, rising          [min]
};

/// An authority that publishes rules of prayer times.
struct Authority {
    std::string key; ///< "umm-al-qura"
    std::string name;
    std::string arabic_name; ///< UTF-8
    std::string region;
    std::string source; ///< where its rules are told
};
/// Every authority, in the order of Halvane's lists.
HALVANE_EXPORT std::vector<Authority> authorities();

/// The rules of an authority.
/// Error  raises Error (bad_argument) for a key that there is none of, naming the nearest.
HALVANE_EXPORT TimetableRules rules_of_authority(const std::string& key);

/// What made a time of a timetable.
enum class TimeSource {
    sky = 0,  ///< the Sun: its depression, its transit, its rise or set, a shadow
    interval, ///< minutes after Maghreb
    middle,   ///< from here on the rules of high latitudes
    seventh,
    angle,
    nearest_latitude,
    share,
    year,
};

/// A clock of a timetable, or why there is none.
struct TimetableTime {
    Missing missing = Missing::no_event;
    TimeSource source = TimeSource::sky;
    int day = 0;                   ///< days after the row's date: mostly 0, 1 past midnight, -1 before it
    int seconds = 0;               ///< of that day, 0 to 86399                                         [s]
    int offset = 0;                ///< of the clock from Universal Time then                           [s]
    std::int64_t unix_seconds = 0; ///< the same moment, since 1970 January 1, 0 h Universal Time [s]

    /// Whether there is a time.
    explicit operator bool() const { return missing == Missing::no; }
};

/// A day of a timetable.
struct TimetableDay {
    Date date;
    HijriDate hijri; ///< of the tabular calendar
    int weekday = 0; ///< 0 Sunday to 6 Saturday
    std::array<TimetableTime, prayers> times;
    TimetableTime aser_standard;
    TimetableTime aser_hanafi;
    TimetableTime imsak;
    TimetableTime midnight;
    TimetableTime last_third;
    std::array<TimetableTime, prayers> iqamah;
    std::vector<TimetableTime> jumuah; ///< on Fridays
    int offset = 0;                    ///< of the clock from Universal Time at its noon        [s]
    bool clock_changes = false;        ///< within the day

    /// The time of a prayer.
    const TimetableTime& operator[](Prayer prayer) const { return times[static_cast<std::size_t>(prayer)]; }
};

/// The rows from one date to another, both inside, 36600 at most. Each time is found in its own night,
/// whatever the clock does at midnight or on the days of its change.
/// Error  raises Error: bad_argument for rules, a place or dates out of range; no_value where the year method
///        does not reach; cancelled.
HALVANE_EXPORT std::vector<TimetableDay> timetable(const Engine& engine, const Date& first, const Date& last,
                                                   const Observer& observer, const Clock& clock,
                                                   const TimetableRules& rules = {},
                                                   Progress* progress = nullptr);

/// A place of a list of timetables.
struct TimetablePlace {
    Observer observer{};
    Clock clock{};
};
/// The timetables of many places, in their order, by one thread: the dates of a year share the Sun.
HALVANE_EXPORT std::vector<std::vector<TimetableDay>>
timetables(const Engine& engine, const Date& first, const Date& last, std::span<const TimetablePlace> places,
           const TimetableRules& rules = {}, Progress* progress = nullptr);

} // namespace halvane::HALVANE_INLINEv1
