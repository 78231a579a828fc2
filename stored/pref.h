#pragma once

#include <string>

namespace halvane {

/// `pref.vsk`: the user's calculation and display choices, in the order of the file.
struct Preferences {
    double fajer_angle = 18;             ///< depression of the Sun at Fajer [deg]
    double isha_angle = 18;              ///< depression of the Sun at Isha [deg]
    double summer_from_month = 4;        ///< month in which summer time starts
    double summer_from_day = 1;          ///< day of that month
    double summer_to_month = 10;         ///< month in which summer time ends
    double summer_to_day = 1;            ///< day of that month
    double subtract_fajer = 0;           ///< safety margin [min]
    double add_dhohur = 0;               ///< safety margin [min]
    double add_maghreb = 0;              ///< safety margin [min]
    std::string summer_time = "0";       ///< "1" summer time in the span above, "0" none
    std::string elevation_fajer = "0";   ///< kept in the record, read by nothing
    std::string asr_rule = "1";          ///< "1" standard shadow, else Hanafi
    std::string clock_precision = "1";   ///< "1" minutes, "0" seconds
    bool english = true;                 ///< false: Arabic
    std::string elevation_setting = "0"; ///< "1" height above sea level affects rise and set
    std::string authority = "1";         ///< row of the twilight authorities, "1" to "6"
    double add_asr = 0;                  ///< safety margin [min]
    double high_latitude = 0;            ///< 1: alternative Fajer and Isha at high latitudes

    bool operator==(const Preferences&) const = default;
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
