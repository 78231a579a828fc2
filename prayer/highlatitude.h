// SPDX-License-Identifier: MIT
#pragma once

#include "prayer/prayerday.h"

#include <string>
#include <vector>

namespace halvane {

/// The alternative method works above the first and up to the second of these latitudes      [deg]
inline constexpr double lowest_alternative_latitude = 48.5;
inline constexpr double highest_alternative_latitude = 65;

/// The twilight angle that the method's fractions of the night were fitted to                 [deg]
inline constexpr double alternative_twilight_angle = 18;

struct NightTwilights {
    double fajer; ///< [h]
    double isha;  ///< [h]
};

/// Fajer and Isha of a day without an end of twilight, as a fraction of its night.
/// In     latitude     48.5 to 65                                                            [deg]
///        shuroq       after the city offset                                                 [h]
///        maghreb      with its added minutes; 24 when there is none; 0 to 1 is past midnight [h]
///        add_maghreb  minutes in `maghreb`: they are not part of the night, but stay in Isha [min]
NightTwilights night_fraction_twilights(double latitude, double shuroq, double maghreb, float add_maghreb);

/// One day of the method's year: texts "hh:mm", Fajer and Isha on standard time while the year is smoothed.
struct AlternativeDay {
    bool summer = false;
    std::string date; ///< dd/mm/yyyy
    PrayerTimes times;
    std::string mark; ///< empty, or "#" for a fraction of the night
};

/// A day as printed.
struct SmoothedDay {
    AlternativeDay day;
    std::string fajer_mark; ///< empty, "#", "#*", "#*F"
    std::string isha_mark;  ///< empty, "#", "#*", "#*I"
};

/// A day of the run as the method stores it: whole minutes on standard time.
AlternativeDay alternative_day(const PrayerDay& day, const std::string& date);

/// Lets Fajer and Isha of a whole year run without jumps: forward to 21 June, backward to 22 June, and a join
/// between the two. Fajer and Isha come back on the day's own clock.
std::vector<SmoothedDay> smoothed_year(const std::vector<AlternativeDay>& raw);

} // namespace halvane
