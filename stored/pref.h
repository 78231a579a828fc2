// SPDX-License-Identifier: MIT
#pragma once

#include "base/language.h"
#include "stored/date.h"
#include "stored/fields.h"

#include <string>

namespace halvane {

/// `pref.vsk`: the user's calculation and display choices, in the order of the file.
struct Preferences {
    double fajer_angle = 18;
    double isha_angle = 18;
    double summer_from_month = 4;
    double summer_from_day = 1;
    double summer_to_month = 10;
    double summer_to_day = 1;
    double subtract_fajer = 0;
    double add_dhohur = 0;
    double add_maghreb = 0;
    std::string summer_time = "0";
    std::string elevation_fajer = "0";
    std::string asr_rule = "1";
    std::string clock_precision = "1";
    bool english = true;
    std::string elevation_setting = "0";
    std::string authority = "1";
    double add_asr = 0;
    double high_latitude = 0;

    bool operator==(const Preferences&) const = default;

    /// The language of the panels, which the file keeps as a Boolean.
    Language language() const { return english ? Language::english : Language::arabic; }
    void set_language(Language language) { english = language == Language::english; }
};

/// What they are, in the order of the file.
inline constexpr FieldList pref_fields{
    Field(&Preferences::fajer_angle, kind::Number{}, "fajer-angle", "depression of the Sun at Fajer [deg]"),
    Field(&Preferences::isha_angle, kind::Number{}, "isha-angle", "depression of the Sun at Isha [deg]"),
    Field(&Preferences::summer_from_month, stored_day, "summer-from-month",
          "month in which summer time starts"),
    Field(&Preferences::summer_from_day, stored_day, "summer-from-day", "day of that month"),
    Field(&Preferences::summer_to_month, stored_day, "summer-to-month", "month in which summer time ends"),
    Field(&Preferences::summer_to_day, stored_day, "summer-to-day", "day of that month"),
    Field(&Preferences::subtract_fajer, kind::Number{}, "subtract-fajer", "safety margin before Fajer [min]"),
    Field(&Preferences::add_dhohur, kind::Number{}, "add-dhohur", "safety margin after Dhohur [min]"),
    Field(&Preferences::add_maghreb, kind::Number{}, "add-maghreb", "safety margin after Maghreb [min]"),
    Field(&Preferences::summer_time, kind::Letter("01"), "summer-time",
          "'1' summer time in the span above, '0' none"),
    Field(&Preferences::elevation_fajer, kind::Letter("01"), "elevation-fajer",
          "kept in the record, read by nothing"),
    Field(&Preferences::asr_rule, kind::Letter("01"), "asr-rule", "'1' standard shadow, else Hanafi"),
    Field(&Preferences::clock_precision, kind::Letter("01"), "clock-precision", "'1' minutes, '0' seconds"),
    Field(&Preferences::english, kind::Boolean{}, "english", "true: English, false: Arabic"),
    Field(&Preferences::elevation_setting, kind::Letter("01"), "elevation-setting",
          "'1' height above sea level affects rise and set"),
    Field(&Preferences::authority, kind::Letter("123456"), "authority",
          "row of the twilight authorities, '1' to '6'"),
    Field(&Preferences::add_asr, kind::Number{}, "add-asr", "safety margin after Asr [min]"),
    Field(&Preferences::high_latitude, kind::Number{0, 1}, "high-latitude",
          "1: alternative Fajer and Isha at high latitudes"),
};

/// The precision that modctim and the angle formats take: 0 seconds, 1 minutes, 2 for any other stored text.
int precision_of(const Preferences& preferences);

/// Whether a summer time span is in force at all.
bool has_summer_time(const Preferences& preferences);

/// The stored preferences. Reads `pref.vsk`. The reference holds until the next read or write.
/// Error  raises RunTimeFailure for a missing or damaged file.
const Preferences& read_pref();

/// The stored preferences as far as `pref.vsk` is sound: from its first damage on, or without the file, the
/// fields are blank (0, empty, false). Raises nothing.
Preferences readable_pref();

/// Rewrites `pref.vsk` whole.
void write_pref(const Preferences& preferences);

} // namespace halvane
