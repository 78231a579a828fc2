// SPDX-License-Identifier: MIT
#pragma once

#include "stored/fields.h"

#include <string>

namespace halvane {

/// `visib.vsk`: the choices of the crescent visibility panel, in the order of the file.
struct CrescentSettings {
    std::string day = "1";
    std::string month = "1";
    std::string year = "2026";
    bool new_crescent = true;
    bool geocentric = false;
    bool day_of_conjunction = false;
    bool one_day = true;
    bool two_days = false;
    bool at_sun = false;
    bool at_moon = false;
    bool at_best_time = true;
    bool at_user_time = false;
    std::string user_hour = "18";
    std::string user_minute = "0";
    bool gregorian = true;
    bool hijri = false;
    int hijri_month = 0;
    std::string hijri_year = "1448";

    bool operator==(const CrescentSettings&) const = default;
};

/// Whether a crescent is the new one (evenings) or the old one (mornings).
enum class CrescentKind { new_crescent, old_crescent };

inline CrescentKind kind_of(const CrescentSettings& settings) {
    return settings.new_crescent ? CrescentKind::new_crescent : CrescentKind::old_crescent;
}

/// What they are, in the order of the file.
inline constexpr FieldList visib_fields{
    Field(&CrescentSettings::day, kind::NumberText{}, "day", "Gregorian day of the approximate date"),
    Field(&CrescentSettings::month, kind::NumberText{}, "month", "its month"),
    Field(&CrescentSettings::year, kind::NumberText{}, "year", "its year"),
    Field(&CrescentSettings::new_crescent, kind::Boolean{}, "new-crescent",
          "true: new crescent, false: old crescent"),
    Field(&CrescentSettings::geocentric, kind::Boolean{}, "geocentric",
          "true: geocentric, false: topocentric"),
    Field(&CrescentSettings::day_of_conjunction, kind::Boolean{}, "day-of-conjunction",
          "calculate for the day of the conjunction"),
    Field(&CrescentSettings::one_day, kind::Boolean{}, "one-day", "one day after (new) or before (old) it"),
    Field(&CrescentSettings::two_days, kind::Boolean{}, "two-days", "two days after or before it"),
    Field(&CrescentSettings::at_sun, kind::Boolean{}, "at-sun", "at sunset (new) or sunrise (old)"),
    Field(&CrescentSettings::at_moon, kind::Boolean{}, "at-moon", "at moonset (new) or moonrise (old)"),
    Field(&CrescentSettings::at_best_time, kind::Boolean{}, "at-best-time", "at Best Time"),
    Field(&CrescentSettings::at_user_time, kind::Boolean{}, "at-user-time",
          "at the time of the next two fields"),
    Field(&CrescentSettings::user_hour, kind::NumberText{}, "user-hour", "local clock [h]"),
    Field(&CrescentSettings::user_minute, kind::NumberText{}, "user-minute", "local clock [min]"),
    Field(&CrescentSettings::gregorian, kind::Boolean{}, "gregorian",
          "the date is entered in the Gregorian calendar; decides"),
    Field(&CrescentSettings::hijri, kind::Boolean{}, "hijri", "the date is entered in the Hijri calendar"),
    Field(&CrescentSettings::hijri_month, kind::WholeNumber{0, 11}, "hijri-month",
          "index of the Hijri month, 0 for Muharram"),
    Field(&CrescentSettings::hijri_year, kind::NumberText{}, "hijri-year", "Hijri year"),
};

/// The stored choices. Reads `visib.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const CrescentSettings& read_visib();

/// Rewrites `visib.vsk` whole.
void write_visib(const CrescentSettings& settings);

} // namespace halvane
