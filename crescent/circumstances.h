// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/moddateconv.h"
#include "crescent/conjunction.h"
#include "crescent/quantities.h"
#include "events/dayevents.h"

#include <optional>

namespace halvane {

/// The chosen time of observation.
enum class ObservationTime { sun, moon, best, user };

/// The choices of a calculation, of which exactly one of each kind holds.
struct CrescentChoice {
    bool new_crescent = true; ///< evening after the conjunction; false: old, morning before it
    bool geocentric = false;
    int days = 0; ///< from the conjunction's date, before it for an old crescent: 0, 1, 2
    ObservationTime time = ObservationTime::sun;
    double user_hour = 0;   ///< local clock [h]
    double user_minute = 0; ///< local clock [min]
};

/// Of the stored fields of a kind the last true one stands; with none true the first.
CrescentChoice chosen(const CrescentSettings& settings);

/// The values that the report's criterion was put to at Best Time.
struct CriterionValues {
    double arcv = 0;  ///< [deg]
    double width = 0; ///< [arc minutes]
    double value = 0; ///< printed as "q"
};

/// A crescent on one evening or morning of one place.
struct Circumstances {
    CrescentChoice choice;
    int summer_hours = 0;
    double conjunction = 0; ///< Julian day on the local clock                             [d]
    double day = 0;         ///< 0 h of the chosen local date                              [d]
    HijriDate hijri;        ///< in the month started or ended
    double sun_event = 0;   ///< sunset (new) or sunrise (old), local clock                [h]
    double moon_event = 0;  ///< moonset (new) or moonrise (old), local clock              [h]
    double lag = 0;         ///< of the Moon behind (new) or before (old) the Sun          [h]
    double calculation = 0; ///< Julian day on the local clock                             [d]
    double universal = 0;   ///< the same, UT1                                             [d]
    double delta_t = 0;     ///< [s]
    double moon_age = 0;    ///< calculation less conjunction, signed                      [d]
    SunPlace sun;
    MoonPlace moon;
    CrescentQuantities quantities;
    CriterionValues criterion;
};

/// The circumstances of a run's choices around a conjunction; nothing when the Sun or the Moon has no event
/// on that day. In,out events  of the day calculated last, whose sunrise and moonrise stand where the day has
/// none of its
///                own; of this day
std::optional<Circumstances> crescent_circumstances(Ephemeris& ephemeris, const CrescentRecords& run,
                                                    const Conjunction& conjunction, DayEvents& events);

/// 0 h of the chosen local date                                                                 [d]
double chosen_day(const CrescentChoice& choice, const Conjunction& conjunction);

/// A date in the Hijri month whose crescent is looked for on a day.
HijriDate hijri_looked_for(double day, bool new_crescent);

/// Best Time: four ninths of the lag from the Sun's event towards the Moon's                   [h]
double best_time(bool new_crescent, double sun_event, double lag);

} // namespace halvane
