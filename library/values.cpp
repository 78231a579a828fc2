// SPDX-License-Identifier: MIT
#include "halvane/values.h"

#include "base/datenumbers.h"
#include "calendar/civildate.h"
#include "calendar/moddeltat.h"
#include "calendar/modjul.h"
#include "calendar/yearlimits.h"
#include "library/convert.h"
#include "library/guarded.h"

#include <cmath>

namespace halvane::v1 {
namespace {

constexpr double greatest_height = 100000; // beyond any observer's [m]
constexpr double seconds_per_hour = 3600;

/// Beyond the years of dates by a few days, which searches need at their ends.
void require_theory_day(double jd) {
    static const double first = [] {
        double day = 0;
        modjul(theory_years.first, 1, 1, 0, day);
        return day;
    }();
    static const double last = [] {
        double day = 0;
        modjul(theory_years.last, 12, 31, 0, day);
        return day;
    }();
    constexpr double some_days = 45;
    require_within("A Julian day", jd, first - some_days, last + some_days);
}

bool is_of_calendar(const Date& date, double jd) {
    const DateNumbers back = halvane::civil_date(jd);
    return back.year == date.year && back.month == date.month && back.day == date.day;
}

} // namespace

double checked_julian_day(const Date& date) {
    require_within("A year", date.year, theory_years.first, theory_years.last);
    require_within("A month", date.month, 1, 12);
    require_within("A day of a month", date.day, 1, 31);
    // The engine's routine counts the first Gregorian day as a Julian one.
    constexpr Date first_gregorian{1582, 10, 15};
    constexpr double first_gregorian_jd = 2299160.5;
    if (date == first_gregorian)
        return first_gregorian_jd;
    double jd = 0;
    modjul(date.year, date.month, date.day, 0, jd);
    if (!is_of_calendar(date, jd))
        raise_bad_argument("The calendar has no " + std::to_string(date.day) + " in month " +
                           std::to_string(date.month) + " of the year " + std::to_string(date.year) + ".");
    return jd;
}

double julian_day(const Date& date) {
    return checked_julian_day(date);
}

Date civil_date(double julian_day) {
    require_theory_day(julian_day);
    const DateNumbers date = halvane::civil_date(julian_day);
    return {static_cast<int>(date.year), static_cast<int>(date.month), static_cast<int>(date.day)};
}

double Instant::ut1() const {
    return halvane::Instant(jd,
                            scale == TimeScale::ut1 ? halvane::TimeScale::ut1 : halvane::TimeScale::dynamical)
        .ut1();
}

double Instant::dynamical() const {
    return halvane::Instant(jd,
                            scale == TimeScale::ut1 ? halvane::TimeScale::ut1 : halvane::TimeScale::dynamical)
        .dynamical();
}

double delta_t(double jd) {
    require_theory_day(jd);
    double days = 0;
    moddeltat(jd, days);
    return days * Instant::seconds_per_day;
}

Clock Clock::fixed(double hours) {
    require_within("The hours of a clock from Universal Time", hours, -24, 24);
    Clock clock;
    clock.hours_ = hours;
    return clock;
}

Clock Clock::of_zone(const std::string& name) {
    if (!is_zone_name(name))
        raise_bad_argument("The system knows no time zone \"" + name + "\".");
    Clock clock;
    clock.rules_ = guarded([&] { return std::make_shared<const Rules>(Rules{TimeZone(name)}); });
    return clock;
}

double Clock::hours_ahead(const Date& date) const {
    const double jd = checked_julian_day(date);
    return rules_ != nullptr ? rules_->zone.offset_on(jd) / seconds_per_hour : hours_;
}

const std::string& Clock::zone_name() const {
    static const std::string none;
    return rules_ != nullptr ? rules_->zone.name() : none;
}

halvane::Instant engine_instant(const Instant& instant) {
    require_theory_day(instant.jd);
    return {instant.jd,
            instant.scale == TimeScale::ut1 ? halvane::TimeScale::ut1 : halvane::TimeScale::dynamical};
}

const halvane::Observer& engine_observer(const Observer& observer) {
    thread_local Observer last;
    thread_local halvane::Observer own = observer_at(0, 0, 0);
    if (last.latitude == observer.latitude && last.longitude == observer.longitude &&
        last.height == observer.height)
        return own;
    require_within("A latitude", observer.latitude, -90, 90);
    require_within("A longitude", observer.longitude, -180, 180);
    require_within("A height", observer.height, -greatest_height, greatest_height);
    own = observer_at(observer.longitude, observer.latitude, observer.height);
    last = observer;
    return own;
}

halvane::Horizon engine_horizon(const Horizon& horizon, const Observer& observer) {
    require_within("A pressure", horizon.pressure, 0, 2000);
    require_within("A temperature", horizon.temperature, -120, 100);
    halvane::Horizon own;
    own.height_counts = horizon.height_counts;
    own.height = observer.height;
    own.pressure = horizon.pressure;
    own.temperature = horizon.temperature;
    return own;
}

Location location_at(const Observer& observer, double hours_ahead, const Horizon& horizon) {
    engine_observer(observer); // for its checks
    Location location;
    location.longitude_degrees = std::fabs(observer.longitude);
    location.latitude_degrees = std::fabs(observer.latitude);
    location.east = observer.longitude >= 0;
    location.west = !location.east;
    location.north = observer.latitude >= 0;
    location.south = !location.north;
    location.elevation = observer.height;
    location.zone = hours_ahead;
    location.pressure = horizon.pressure;
    location.temperature = horizon.temperature;
    return location;
}

std::optional<TimeZone> zone_of(const Clock& clock) {
    if (clock.rules() == nullptr)
        return std::nullopt;
    return clock.rules()->zone;
}

Missing missing_of(NoEvent reason) {
    switch (reason) {
    case NoEvent::up:
        return Missing::up;
    case NoEvent::down:
        return Missing::down;
    case NoEvent::bright:
        return Missing::bright;
    case NoEvent::dark:
        return Missing::dark;
    case NoEvent::none:
        break;
    }
    return Missing::no_event;
}

ClockTime clock_time(const TaggedTime& time) {
    if (const double* hours = hours_of(time))
        return {*hours, Missing::no};
    return {not_a_number, missing_of(std::get<NoEvent>(time))};
}

HijriDate hijri_value(const halvane::HijriDate& date) {
    return {static_cast<int>(date.year), static_cast<int>(date.month), static_cast<int>(date.day)};
}

} // namespace halvane::v1
