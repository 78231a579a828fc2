// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/shownclock.h"
#include "prayer/prayerday.h"

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

/// One day of the method's year. Fajer and Isha are whole minutes of the day on standard time while the year
/// is smoothed.
struct AlternativeDay {
    bool summer = false;
    DateNumbers date;
    PrayerTimes times; ///< as calculated
    int fajer = 0;     ///< 0 to 1440                                                             [min]
    int isha = 0;      ///< 0 to 1439                                                             [min]
    bool by_night_fraction = false;
};

/// What made a Fajer or an Isha.
enum class TwilightMark {
    none,
    night_fraction, ///< printed "#"
    corrected,      ///< moved from its neighbour: "#*"
    joined          ///< moved at the join of the year's halves: "#*F", "#*I"
};

/// A Fajer or an Isha as printed.
struct SmoothedTwilight {
    ShownClock clock;
    TwilightMark mark = TwilightMark::none;

    bool operator==(const SmoothedTwilight&) const = default;
};

/// Both of a day, on the day's own clock.
struct SmoothedDay {
    SmoothedTwilight fajer;
    SmoothedTwilight isha;
};

/// A day of the run as the method stores it.
/// Error  raises RunTimeFailure for a day that is bright or dark throughout.
AlternativeDay alternative_day(const PrayerDay& day, const DateNumbers& date);

/// Lets Fajer and Isha of a whole year run without jumps: forward to 21 June, backward to 22 June, and a join
/// between the two.
std::vector<SmoothedDay> smoothed_year(const std::vector<AlternativeDay>& raw);

} // namespace halvane
