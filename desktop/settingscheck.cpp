// SPDX-License-Identifier: MIT
#include "desktop/settingscheck.h"

#include "base/failure.h"
#include "calendar/modjul.h"
#include "prayer/prayerrun.h"
#include "routines/machineclock.h"
#include "routines/seriesloader.h"
#include "stored/supposed.h"

#include <cmath>
#include <span>
#include <vector>

namespace halvane {

namespace {

constexpr double Location::*location_fields[] = {&Location::longitude_degrees,
                                                 &Location::longitude_minutes,
                                                 &Location::longitude_seconds,
                                                 &Location::latitude_degrees,
                                                 &Location::latitude_minutes,
                                                 &Location::latitude_seconds,
                                                 &Location::zone,
                                                 &Location::elevation,
                                                 &Location::pressure,
                                                 &Location::temperature,
                                                 &Location::city_offset};

constexpr double Preferences::*preference_fields[] = {
    &Preferences::fajer_angle, &Preferences::isha_angle, &Preferences::subtract_fajer,
    &Preferences::add_dhohur,  &Preferences::add_asr,    &Preferences::add_maghreb};

double day_number(double year, double month, double day) {
    double jd = 0;
    modjul(year, month, day, 0, jd);
    return jd;
}

bool has_times(double jd) {
    try {
        today_prayer_times(loaded_theory(), jd);
        return true;
    } catch (const RunTimeFailure&) {
        return false;
    }
}

bool has_times_today() {
    const MachineTime now = machine_time();
    return has_times(day_number(now.year, now.month, now.day));
}

/// Puts the fields of `candidate` one by one into a record of plain values. The first with which there are no
/// times is the one to blame; none is when the plain values have no times either.
/// In     Supposition  the guard that makes a record answer in place of the stored one
template <class Supposition, class Record>
std::optional<RefusedValue<double Record::*>> refused(const Record& candidate,
                                                      std::span<double Record::*const> fields) {
    for (double Record::*const field : fields)
        if (!std::isfinite(candidate.*field))
            return {{field, RefusalReason::no_times}};
    const Record stored = as_stored(candidate);
    for (double Record::*const field : fields)
        if (stored.*field != candidate.*field)
            return {{field, RefusalReason::beyond_limit, std::fabs(stored.*field)}};
    const auto possible = [](const Record& record) {
        const Supposition supposed(record);
        return has_times_today();
    };
    if (possible(candidate))
        return std::nullopt;
    Record trial = candidate;
    for (double Record::*const field : fields)
        trial.*field = Record{}.*field;
    if (!possible(trial))
        return std::nullopt;
    for (double Record::*const field : fields) {
        trial.*field = candidate.*field;
        if (!possible(trial))
            return {{field, RefusalReason::no_times}};
    }
    return std::nullopt;
}

} // namespace

std::optional<RefusedValue<double Location::*>> refused_value(const Location& location) {
    return refused<SupposedLocation, Location>(location, location_fields);
}

std::optional<RefusedValue<double Preferences::*>> refused_value(const Preferences& preferences) {
    return refused<SupposedPreferences, Preferences>(preferences, preference_fields);
}

std::optional<RefusedValue<DateNumbers CalculationDate::*>> refused_value(const CalculationDate& date) {
    std::vector<DateNumbers CalculationDate::*> used;
    if (date.one_day)
        used = {&CalculationDate::one};
    else if (date.period)
        used = {&CalculationDate::from, &CalculationDate::to};
    const CalculationDate stored = as_stored(date);
    for (DateNumbers CalculationDate::*const field : used) {
        const DateNumbers& day = date.*field;
        if (day.year != (stored.*field).year)
            return {{field, RefusalReason::beyond_limit, std::fabs((stored.*field).year)}};
        if (has_times_today() && !has_times(day_number(day.year, day.month, day.day)))
            return {{field, RefusalReason::no_times}};
    }
    return std::nullopt;
}

} // namespace halvane
